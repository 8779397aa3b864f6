#include "host/value/link.h"

#include "host/table/guard.h"
#include "host/table/internal.h"

namespace host {

namespace {

HostLink *Create() {
    return Guarded<HostLink *>(nullptr, [] { return CreateLink(); });
}

HostLink *Clone(const HostLink *link, HostAliasTrans *translation) {
    if (link == nullptr) return nullptr;
    return Guarded<HostLink *>(nullptr, [&] { return CloneLink(link, translation); });
}

HostAtom *Resolve(const HostLink *link, const HostAtom *document, std::int32_t instance_of) {
    return Guarded<HostAtom *>(nullptr, [&] { return ResolveLink(link, document, instance_of); });
}

void Set(HostLink *link, HostAtom *target) {
    Guarded([&] { SetLink(link, target); });
}

HostAliasTrans *CreateTranslation() {
    return Guarded<HostAliasTrans *>(nullptr, [] { return new HostAliasTrans; });
}

void ReleaseTranslation(HostAliasTrans *translation) { delete translation; }

std::int32_t InitTranslation(HostAliasTrans *translation, HostAtom *document) {
    if (translation == nullptr) return 0;
    translation->document = document;
    translation->copies.clear();
    return 1;
}

void Translate(HostAliasTrans *translation, std::int32_t connect_old_goals) {
    if (translation != nullptr) Guarded([&] { TurnLinks(*translation, connect_old_goals != 0); });
}

}  // namespace

const LinkTable *LinkEntries() {
    static const LinkTable table = {
        Create,          ReleaseLink, Clone, Resolve, ResolveAnywhere, Set, CreateTranslation, ReleaseTranslation,
        InitTranslation, Translate};
    return &table;
}

}  // namespace host
