#include <algorithm>

#include "host/description/description.h"
#include "host/scene/messages.h"
#include "host/table/internal.h"
#include "host/table/nodes.h"

namespace host {
namespace {

constexpr std::int32_t kDescriptionLoaded = 2;

std::int32_t Type(const HostAtom *atom) { return atom != nullptr ? AsNode(atom)->Type() : 0; }
std::int32_t Classification(const HostAtom *atom) { return atom != nullptr ? AsNode(atom)->Classification() : 0; }
std::int32_t IsInstanceOf(const HostAtom *atom, std::int32_t type) {
    return atom != nullptr && AsNode(atom)->IsInstanceOf(type);
}

std::int32_t SendTo(HostAtom *atom, std::int32_t type, void *data) {
    return Guarded(0, [=] { return atom != nullptr && AsNode(atom)->SendMessage(type, data) ? 1 : 0; });
}

std::int32_t MultiMessage(HostAtom *atom, std::int32_t route, std::int32_t type, void *data) {
    return Guarded(0, [=] { return SendAlong(AsNode(atom), route, type, data) ? 1 : 0; });
}

HostAtom *Clone(HostAtom *atom, std::int32_t flags, HostAliasTrans *translation) {
    return Guarded<HostAtom *>(
        nullptr, [=]() -> HostAtom * { return atom != nullptr ? AsNode(atom)->Clone(flags, translation) : nullptr; });
}

std::int32_t CopyTo(HostAtom *atom, HostAtom *destination, std::int32_t flags, HostAliasTrans *translation) {
    return Guarded(
        0, [=] { return atom != nullptr && AsNode(atom)->CopyInto(AsNode(destination), flags, translation) ? 1 : 0; });
}

std::int32_t GetDescription(HostAtom *atom, HostDescription *description, std::int32_t flags) {
    return Guarded(0, [=] {
        if (atom == nullptr || description == nullptr) return 0;
        Description *out = static_cast<Description *>(description);
        const TableDescID single = out->single_id;
        return BuildDescription(AsNode(atom), out->has_single_id ? &single : nullptr, flags & ~kDescriptionLoaded, out)
                   ? 1
                   : 0;
    });
}

std::int32_t GetParameter(HostAtom *atom, const TableDescID *id, TableData *out, std::int32_t flags) {
    return Guarded(0, [=] {
        if (atom == nullptr || id == nullptr || out == nullptr) return 0;
        // A plug-in's own answer may look at what it is given: it gets a valid empty value, never the caller's.
        Data value;
        const bool is_there = AsNode(atom)->GetParameter(*id, &value, flags);
        static_cast<Data &>(*out) = std::move(value);
        return is_there ? 1 : 0;
    });
}

std::int32_t SetParameter(HostAtom *atom, const TableDescID *id, const TableData *data, std::int32_t flags) {
    return Guarded(0, [=] {
        if (atom == nullptr || id == nullptr || data == nullptr) return 0;
        return AsNode(atom)->SetParameter(*id, Data(*data), flags) ? 1 : 0;
    });
}

std::int32_t GetEnabling(HostAtom *atom, const TableDescID *id, const TableData *data, std::int32_t flags,
                         const TableContainer *settings) {
    return Guarded(0, [=] {
        if (atom == nullptr || id == nullptr) return 0;
        Tag *tag = AsTag(atom);
        const Data nothing;
        const TableData &value = data != nullptr ? *data : nothing;
        return tag == nullptr || tag->IsControlEnabled(*id, value, flags, settings) ? 1 : 0;
    });
}

std::uint32_t Dirty(const HostAtom *atom, std::int32_t flags) {
    return atom != nullptr ? AsNode(atom)->Dirty(flags) : 0;
}
void SetDirty(HostAtom *atom, std::int32_t flags) {
    if (atom != nullptr) AsNode(atom)->SetDirty(flags);
}

HostAtomArray *CreateArray() {
    return Guarded<HostAtomArray *>(nullptr, [] { return new HostAtomArray; });
}
void ReleaseArray(HostAtomArray *array) { delete array; }
std::int32_t ArrayCount(const HostAtomArray *array) {
    return array != nullptr ? static_cast<std::int32_t>(array->atoms.size()) : 0;
}
HostAtom *ArrayAt(const HostAtomArray *array, std::int32_t index) {
    return index >= 0 && index < ArrayCount(array) ? array->atoms[static_cast<std::size_t>(index)] : nullptr;
}
std::int32_t ArrayAppend(HostAtomArray *array, HostAtom *atom) {
    return Guarded(0, [=] {
        if (array == nullptr || atom == nullptr) return 0;
        array->atoms.push_back(atom);
        return 1;
    });
}
std::int32_t ArrayRemove(HostAtomArray *array, HostAtom *atom) {
    if (array == nullptr) return 0;
    const auto found = std::find(array->atoms.begin(), array->atoms.end(), atom);
    if (found == array->atoms.end()) return 0;
    array->atoms.erase(found);
    return 1;
}
void ArrayFlush(HostAtomArray *array) {
    if (array != nullptr) array->atoms.clear();
}

const AtomTable kEntries = {Type,        Classification, IsInstanceOf,   SendTo,       MultiMessage,
                            Clone,       CopyTo,         GetDescription, GetParameter, SetParameter,
                            GetEnabling, Dirty,          SetDirty,       CreateArray,  ReleaseArray,
                            ArrayCount,  ArrayAt,        ArrayAppend,    ArrayRemove,  ArrayFlush};

}  // namespace

const AtomTable *AtomEntries() { return &kEntries; }

}  // namespace host
