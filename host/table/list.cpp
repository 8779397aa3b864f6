#include "host/application.h"
#include "host/table/internal.h"
#include "host/table/nodes.h"
#include "host/value/text.h"

namespace host {
namespace {

HostAtom *Next(const HostAtom *atom) { return atom != nullptr ? AsNode(atom)->Next() : nullptr; }
HostAtom *Previous(const HostAtom *atom) { return atom != nullptr ? AsNode(atom)->Previous() : nullptr; }
HostAtom *Up(const HostAtom *atom) { return atom != nullptr ? AsNode(atom)->Up() : nullptr; }
HostAtom *Down(const HostAtom *atom) { return atom != nullptr ? AsNode(atom)->Down() : nullptr; }
HostAtom *DownLast(const HostAtom *atom) { return atom != nullptr ? AsNode(atom)->DownLast() : nullptr; }

void InsertBefore(HostAtom *atom, HostAtom *sibling) {
    if (atom != nullptr) AsNode(atom)->InsertBefore(AsNode(sibling));
}
void InsertAfter(HostAtom *atom, HostAtom *sibling) {
    if (atom != nullptr) AsNode(atom)->InsertAfter(AsNode(sibling));
}
void InsertUnder(HostAtom *atom, HostAtom *parent) {
    if (atom != nullptr) AsNode(atom)->InsertUnder(AsNode(parent));
}
void InsertUnderLast(HostAtom *atom, HostAtom *parent) {
    if (atom != nullptr) AsNode(atom)->InsertUnderLast(AsNode(parent));
}
void Remove(HostAtom *atom) {
    if (atom != nullptr) AsNode(atom)->Remove();
}

HostAtom *DocumentOf(const HostAtom *atom) { return atom != nullptr ? AsNode(atom)->GetDocument() : nullptr; }
ModuleObject *ModuleObjectOf(const HostAtom *atom) { return atom != nullptr ? AsNode(atom)->Plugin() : nullptr; }

// A document that the application shows leaves it first.
bool IsShown(const Document *document) {
    const Application *application = Application::Current();
    if (application == nullptr || document == nullptr) return false;
    for (const auto &shown : application->Documents()) {
        if (shown.get() == document) return true;
    }
    return false;
}

void Release(HostAtom *atom) {
    Guarded([=] {
        Document *document = AsDocument(atom);
        if (IsShown(document)) {
            Application::Current()->KillDocument(document);
        } else {
            Node::Discard(AsNode(atom));
        }
    });
}

HostAtom *Main(const HostAtom *atom) { return atom != nullptr ? AsNode(atom)->Main() : nullptr; }

// A document's own container is that of its settings.
TableContainer *DataOf(HostAtom *atom) {
    if (Document *document = AsDocument(atom)) return &document->Settings();
    return atom != nullptr ? &AsNode(atom)->Data() : nullptr;
}

void Name(const HostAtom *atom, TableString *out) {
    Guarded([=] {
        if (out != nullptr) Assign(out, atom != nullptr ? AsNode(atom)->Name() : std::string());
    });
}
void SetName(HostAtom *atom, const TableString *name) {
    Guarded([=] {
        if (atom != nullptr) AsNode(atom)->SetName(ToUtf8(name));
    });
}
std::int32_t Bits(const HostAtom *atom) { return atom != nullptr ? AsNode(atom)->Bits() : 0; }
void SetBits(HostAtom *atom, std::int32_t bits) {
    if (atom != nullptr) AsNode(atom)->SetBits(bits);
}

HostAtom *FirstTrack(HostAtom *atom) {
    return atom != nullptr && !AsNode(atom)->Tracks().empty() ? AsNode(atom)->Tracks().front() : nullptr;
}
HostAtom *FindTrack(HostAtom *atom, const TableDescID *id) {
    return atom != nullptr && id != nullptr ? AsNode(atom)->FindTrack(*id) : nullptr;
}
void InsertTrack(HostAtom *atom, HostAtom *track) {
    Guarded([=] {
        if (atom != nullptr) AsNode(atom)->InsertTrack(AsTrack(track));
    });
}

const ListTable kEntries = {Next,        Previous,    Up,
                            Down,        DownLast,    InsertBefore,
                            InsertAfter, InsertUnder, InsertUnderLast,
                            Remove,      DocumentOf,  ModuleObjectOf,
                            Release,     Main,        DataOf,
                            Name,        SetName,     Bits,
                            SetBits,     FirstTrack,  FindTrack,
                            InsertTrack};

}  // namespace

const ListTable *ListEntries() { return &kEntries; }

}  // namespace host
