#include "host/description/description.h"
#include "host/scene/messages.h"
#include "host/table/entries.h"
#include "host/table/nodes.h"

namespace host {

namespace {

constexpr std::int32_t kDescriptionLoaded = 2;

}  // namespace

std::int32_t AtomEntries::type(const HostAtom *atom) { return atom != nullptr ? AsNode(atom)->Type() : 0; }

std::int32_t AtomEntries::is_instance_of(const HostAtom *atom, std::int32_t type) {
    return atom != nullptr && AsNode(atom)->IsInstanceOf(type);
}

std::int32_t AtomEntries::message(HostAtom *atom, std::int32_t type, void *data) {
    return Guarded(0, [=] { return atom != nullptr && AsNode(atom)->SendMessage(type, data) ? 1 : 0; });
}

std::int32_t AtomEntries::get_description(HostAtom *atom, HostDescription *description, std::int32_t flags) {
    return Guarded(0, [=] {
        if (atom == nullptr || description == nullptr) return 0;
        Description *out = static_cast<Description *>(description);
        const TableDescID single = out->single_id;
        return BuildDescription(AsNode(atom), out->has_single_id ? &single : nullptr, flags & ~kDescriptionLoaded, out)
                   ? 1
                   : 0;
    });
}

std::int32_t AtomEntries::get_parameter(HostAtom *atom, const TableDescID *id, TableData *out, std::int32_t flags) {
    return Guarded(0, [=] {
        if (atom == nullptr || id == nullptr || out == nullptr) return 0;
        // A plug-in's own answer may look at what it is given: it gets a valid empty value, never the caller's.
        Data value;
        const bool is_there = AsNode(atom)->GetParameter(*id, &value, flags);
        static_cast<Data &>(*out) = std::move(value);
        return is_there ? 1 : 0;
    });
}

std::int32_t AtomEntries::set_parameter(HostAtom *atom, const TableDescID *id, const TableData *data,
                                        std::int32_t flags) {
    return Guarded(0, [=] {
        if (atom == nullptr || id == nullptr || data == nullptr) return 0;
        return AsNode(atom)->SetParameter(*id, Data(*data), flags) ? 1 : 0;
    });
}

void AtomEntries::set_dirty(HostAtom *atom, std::int32_t flags) {
    if (atom != nullptr) AsNode(atom)->SetDirty(flags);
}

std::int32_t AtomEntries::array_count(const HostAtomArray *array) {
    return array != nullptr ? static_cast<std::int32_t>(array->atoms.size()) : 0;
}

HostAtom *AtomEntries::array_at(const HostAtomArray *array, std::int32_t index) {
    return index >= 0 && index < array_count(array) ? array->atoms[static_cast<std::size_t>(index)] : nullptr;
}

}  // namespace host
