#include "host/animation/passes.h"
#include "host/table/entries.h"
#include "host/table/nodes.h"

namespace host {

namespace {

// 0: there is no such time.
std::int32_t SettingOf(std::int32_t which) {
    switch (which) {
        case TABLE_DOCUMENT_TIME:
            return kDocumentTime;
        case TABLE_DOCUMENT_MIN:
            return kDocumentMinTime;
        case TABLE_DOCUMENT_MAX:
            return kDocumentMaxTime;
        default:
            return 0;
    }
}

View *AsView(HostView *view) { return static_cast<View *>(view); }

}  // namespace

TableContainer *DocumentEntries::settings(HostAtom *atom, std::int32_t type) {
    return Guarded<TableContainer *>(nullptr, [=]() -> TableContainer * {
        Document *document = AsDocument(atom);
        return document != nullptr ? &document->Settings(type) : nullptr;
    });
}

HostAtom *DocumentEntries::first_object(const HostAtom *atom) {
    const Document *document = AsDocument(atom);
    return document != nullptr ? document->FirstObject() : nullptr;
}

void DocumentEntries::insert_object(HostAtom *atom, HostAtom *object, HostAtom *parent, HostAtom *predecessor,
                                    std::int32_t check_names) {
    Guarded([=] {
        Document *document = AsDocument(atom);
        if (document == nullptr) return;
        document->InsertObject(AsObject(object), AsObject(parent), AsObject(predecessor), check_names != 0);
    });
}

HostAtom *DocumentEntries::active_object(HostAtom *atom) {
    return Guarded<HostAtom *>(nullptr, [=]() -> HostAtom * {
        const Document *document = AsDocument(atom);
        return document != nullptr ? document->ActiveObject() : nullptr;
    });
}

void DocumentEntries::set_active_object(HostAtom *atom, HostAtom *object, std::int32_t mode) {
    Guarded([=] {
        Document *document = AsDocument(atom);
        if (document != nullptr && (object == nullptr || AsObject(object) != nullptr)) {
            document->SetActiveObject(AsObject(object), mode);
        }
    });
}

void DocumentEntries::set_active_tag(HostAtom *atom, HostAtom *tag, std::int32_t mode) {
    Guarded([=] {
        Document *document = AsDocument(atom);
        if (document != nullptr && (tag == nullptr || AsTag(tag) != nullptr)) document->SetActiveTag(AsTag(tag), mode);
    });
}

void DocumentEntries::get_time(const HostAtom *atom, std::int32_t which, TableTime *out) {
    if (out == nullptr) return;
    const Document *document = AsDocument(atom);
    const std::int32_t setting = SettingOf(which);
    *out = document != nullptr && setting != 0 ? document->Settings().GetTime(setting) : TableTime{0, 1};
}

void DocumentEntries::set_time(HostAtom *atom, const TableTime *time) {
    Guarded([=] {
        Document *document = AsDocument(atom);
        if (document != nullptr && time != nullptr) document->Settings().Set(kDocumentTime, Data(*time));
    });
}

std::int32_t DocumentEntries::fps(const HostAtom *atom) {
    const Document *document = AsDocument(atom);
    return document != nullptr ? document->Fps() : 0;
}

std::int32_t DocumentEntries::start_undo(HostAtom *atom) {
    return Guarded(0, [=] {
        Document *document = AsDocument(atom);
        return document != nullptr && document->Undo().Start() ? 1 : 0;
    });
}

std::int32_t DocumentEntries::end_undo(HostAtom *atom) {
    return Guarded(0, [=] {
        Document *document = AsDocument(atom);
        return document != nullptr && document->Undo().End() ? 1 : 0;
    });
}

std::int32_t DocumentEntries::add_undo(HostAtom *atom, std::int32_t type, HostAtom *node) {
    return Guarded(0, [=] {
        Document *document = AsDocument(atom);
        return document != nullptr && document->Undo().Add(type, AsNode(node)) ? 1 : 0;
    });
}

std::int32_t DocumentEntries::execute_passes(HostAtom *atom, HostThread *, std::int32_t animation,
                                             std::int32_t expressions, std::int32_t caches, std::int32_t flags) {
    return Guarded(0, [=] {
        return ExecutePasses(AsDocument(atom), animation != 0, expressions != 0, caches != 0, flags) ? 1 : 0;
    });
}

HostView *DocumentEntries::active_view(HostAtom *atom) {
    Document *document = AsDocument(atom);
    return document != nullptr ? document->ActiveView() : nullptr;
}

HostAtom *DocumentEntries::view_scene_camera(HostView *view, const HostAtom *document) {
    return view != nullptr ? AsView(view)->SceneCamera(AsDocument(document)) : nullptr;
}

void DocumentEntries::view_set_scene_camera(HostView *view, HostAtom *object, std::int32_t) {
    Guarded([=] {
        if (view != nullptr) AsView(view)->SetSceneCamera(AsObject(object));
    });
}

}  // namespace host
