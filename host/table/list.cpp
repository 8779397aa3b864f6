#include "host/table/entries.h"
#include "host/table/nodes.h"
#include "host/value/text.h"

namespace host {

HostAtom *ListEntries::next(const HostAtom *atom) { return atom != nullptr ? AsNode(atom)->Next() : nullptr; }

HostAtom *ListEntries::up(const HostAtom *atom) { return atom != nullptr ? AsNode(atom)->Up() : nullptr; }

HostAtom *ListEntries::document(const HostAtom *atom) {
    return atom != nullptr ? AsNode(atom)->GetDocument() : nullptr;
}

void ListEntries::release(HostAtom *atom) {
    Guarded([=] { Node::Discard(AsNode(atom)); });
}

// A document's own container is that of its settings.
TableContainer *ListEntries::data(HostAtom *atom) {
    if (Document *document = AsDocument(atom)) return &document->Settings();
    return atom != nullptr ? &AsNode(atom)->Data() : nullptr;
}

void ListEntries::name(const HostAtom *atom, TableString *out) {
    Guarded([=] {
        if (out != nullptr) Assign(out, atom != nullptr ? AsNode(atom)->Name() : std::string());
    });
}

void ListEntries::set_name(HostAtom *atom, const TableString *name) {
    Guarded([=] {
        if (atom != nullptr) AsNode(atom)->SetName(ToUtf8(name));
    });
}

HostAtom *ListEntries::first_track(HostAtom *atom) {
    return atom != nullptr && !AsNode(atom)->Tracks().empty() ? AsNode(atom)->Tracks().front() : nullptr;
}

HostAtom *ListEntries::find_track(HostAtom *atom, const TableDescID *id) {
    return atom != nullptr && id != nullptr ? AsNode(atom)->FindTrack(*id) : nullptr;
}

void ListEntries::insert_track(HostAtom *atom, HostAtom *track) {
    Guarded([=] {
        if (atom != nullptr) AsNode(atom)->InsertTrack(AsTrack(track));
    });
}

}  // namespace host
