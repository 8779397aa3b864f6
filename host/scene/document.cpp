#include "host/scene/document.h"

#include <algorithm>

#include "host/animation/track.h"
#include "host/scene/messages.h"
#include "host/scene/tag.h"
#include "host/value/descid.h"

namespace host {
namespace {

constexpr std::int32_t kDefaultFps = 30, kMaxFps = 2500;
constexpr double kDefaultLastFrame = 90;

void SetDocumentDefaults(Container *settings) {
    const Time first = MakeTime(0, 1), last = MakeTime(kDefaultLastFrame, kDefaultFps);
    settings->Set(kDocumentTime, Data(first));
    settings->Set(kDocumentFps, Data(kDefaultFps));
    settings->Set(kDocumentMinTime, Data(first));
    settings->Set(kDocumentMaxTime, Data(last));
    settings->Set(kDocumentLoopMinTime, Data(first));
    settings->Set(kDocumentLoopMaxTime, Data(last));
    settings->SetReal(1006, 1.0);  // level of detail
    settings->Set(1007, Data(0));  // the same for rendering
    // Animation, expressions, generators, deformers.
    for (std::int32_t used = 1008; used <= 1011; ++used) settings->Set(used, Data(1));
    settings->Set(kDocumentPath, Data::Filename(""));
    settings->Set(kDocumentName, Data::Filename(""));
}

// The next object of a depth-first walk, parents before children.
Object *NextInHierarchy(const Object *object) {
    if (object->FirstChild() != nullptr) return object->FirstChild();
    while (object != nullptr && object->NextObject() == nullptr) object = object->Parent();
    return object != nullptr ? object->NextObject() : nullptr;
}

}  // namespace

Document::Document() : Node(kTypeDocument), view_(std::make_unique<View>()) {
    objects_.owner = this;
    SetDocumentDefaults(&Settings());
}

Document::~Document() {
    Detach();
    undo_.Flush();
    DestroyBranches();
    DestroyTracks();
}

bool Document::SendMessage(std::int32_t type, void *data) {
    if (type == kMessageChange) SetChanged();
    return Node::SendMessage(type, data);
}

// ---- Settings

Container &Document::Settings(std::int32_t type) {
    for (auto &[stored_type, settings] : settings_) {
        if (stored_type == type) return *settings;
    }
    settings_.emplace_back(type, std::make_unique<Container>(type));
    return *settings_.back().second;
}

const Container &Document::Settings() const { return *settings_.front().second; }

std::int32_t Document::Fps() const {
    const std::int32_t fps = Settings().Whole(kDocumentFps, kDefaultFps);
    return fps >= 1 && fps <= kMaxFps ? fps : kDefaultFps;
}

void Document::SetFps(std::int32_t fps) {
    if (fps >= 1 && fps <= kMaxFps) Settings().Set(kDocumentFps, host::Data(fps));
}

void Document::SetRange(std::int64_t first_frame, std::int64_t last_frame) {
    const Time first = MakeTime(static_cast<double>(std::min(first_frame, last_frame)), Fps());
    const Time last = MakeTime(static_cast<double>(std::max(first_frame, last_frame)), Fps());
    Settings().Set(kDocumentMinTime, host::Data(first));
    Settings().Set(kDocumentLoopMinTime, host::Data(first));
    Settings().Set(kDocumentMaxTime, host::Data(last));
    Settings().Set(kDocumentLoopMaxTime, host::Data(last));
}

// Every parameter of a document but its name lies in its settings.
bool Document::IsVirtualParameter(const TableDescID &) const { return true; }

bool Document::GetVirtualParameter(const TableDescID &id, host::Data *out) const {
    return Node::GetVirtualParameter(id, out) || Settings().GetParameter(id, out);
}

bool Document::SetVirtualParameter(const TableDescID &id, const host::Data &data) {
    if (Node::IsVirtualParameter(id)) return Node::SetVirtualParameter(id, data);
    if (id.depth != 1 || LevelId(id, 0) != kDocumentFps) return Settings().SetParameter(id, data);
    const std::int32_t fps = data.Whole();
    if (fps < 1 || fps > kMaxFps) return false;
    SetFps(fps);
    return true;
}

// ---- Objects

void Document::InsertObject(Object *object, Object *parent, Object *predecessor, bool unique_name) {
    if (object == nullptr || parent == object || predecessor == object) return;
    if (parent != nullptr && parent->IsBelow(object)) return;
    if (predecessor != nullptr && predecessor->IsBelow(object)) return;
    if (unique_name) {
        object->Remove();
        const std::string name = object->Name();
        for (int number = 1; FindObject(object->Name()) != nullptr; ++number) {
            object->SetName(name + "." + std::to_string(number));
        }
    }
    if (predecessor != nullptr && predecessor->GetDocument() == this) {
        object->InsertAfter(predecessor);
    } else if (parent != nullptr && parent->GetDocument() == this) {
        object->InsertUnder(parent);
    } else if (objects_.first != object) {
        objects_.InsertFirst(object);
    }
    SetChanged();
}

Object *Document::FindObject(const std::string &name) const {
    for (Object *object = FirstObject(); object != nullptr; object = NextInHierarchy(object)) {
        if (object->Name() == name) return object;
    }
    return nullptr;
}

std::vector<Object *> Document::AllObjects() const {
    std::vector<Object *> objects;
    for (Object *object = FirstObject(); object != nullptr; object = NextInHierarchy(object)) objects.push_back(object);
    return objects;
}

std::vector<Node *> Document::AllNodes() const {
    std::vector<Node *> nodes;
    const auto add = [&nodes](Node *node) {
        nodes.push_back(node);
        for (Track *track : node->Tracks()) nodes.push_back(track);
    };
    add(const_cast<Document *>(this));
    for (Object *object = FirstObject(); object != nullptr; object = NextInHierarchy(object)) {
        add(object);
        for (Node *tag = object->FirstTag(); tag != nullptr; tag = tag->Next()) add(tag);
    }
    return nodes;
}

void Document::DestroyBranches() { objects_.Clear(); }

// ---- Selection

std::vector<Object *> Document::ActiveObjects() const {
    std::vector<Object *> active;
    for (Object *object = FirstObject(); object != nullptr; object = NextInHierarchy(object)) {
        if ((object->Bits() & kBitActive) != 0) active.push_back(object);
    }
    return active;
}

Object *Document::ActiveObject() const {
    const std::vector<Object *> active = ActiveObjects();
    return active.empty() ? nullptr : active.back();
}

Tag *Document::ActiveTag() const {
    Tag *active = nullptr;
    for (Object *object = FirstObject(); object != nullptr; object = NextInHierarchy(object)) {
        for (Node *tag = object->FirstTag(); tag != nullptr; tag = tag->Next()) {
            if ((tag->Bits() & kBitActive) != 0) active = static_cast<Tag *>(tag);
        }
    }
    return active;
}

void Document::SetActive(Node *node, bool active) {
    const std::int32_t bits = active ? node->Bits() | kBitActive : node->Bits() & ~kBitActive;
    if (bits == node->Bits()) return;
    if (undo_.Depth() > 0) undo_.Add(active ? kUndoActivate : kUndoDeactivate, node);
    node->SetBits(bits);
    node->SetDirty(kDirtySelect);
}

void Document::SetActiveObject(Object *object, std::int32_t mode) {
    if (object != nullptr && object->GetDocument() != this) return;
    if (mode == kSelectNew) {
        for (Object *other : ActiveObjects()) {
            if (other != object) SetActive(other, false);
        }
    }
    if (object != nullptr) SetActive(object, mode != kSelectSubtract);
}

void Document::SetActiveTag(Tag *tag, std::int32_t mode) {
    if (tag != nullptr && tag->GetDocument() != this) return;
    if (mode == kSelectNew) {
        for (Object *object : AllObjects()) {
            for (Node *other = object->FirstTag(); other != nullptr; other = other->Next()) {
                if (other != tag) SetActive(other, false);
            }
        }
    }
    if (tag == nullptr) return;
    SetActive(tag, mode != kSelectSubtract);
    // A selected tag is shown with its object.
    if (mode != kSelectSubtract && (tag->GetObject()->Bits() & kBitActive) == 0)
        SetActiveObject(tag->GetObject(), mode);
}

// ---- Copies

bool Document::CopyOwnState(Node *copy, std::int32_t flags, HostAliasTrans *translation) const {
    Document *document = static_cast<Document *>(copy);
    if ((flags & (kCopyNoHierarchy | kCopyNoBranches)) == 0) {
        for (Node *object = objects_.first; object != nullptr; object = object->Next()) {
            Node *copied = object->CloneTree(flags, translation);
            if (copied == nullptr) return false;
            document->objects_.InsertLast(copied);
        }
        CopyView(document, flags, *translation);
    }
    // After the objects: links in the settings then find their copies.
    for (const auto &[type, settings] : settings_) document->Settings(type).CopyFrom(*settings, translation);
    document->changed_ = changed_;
    return true;
}

void Document::CopyView(Document *copy, std::int32_t flags, const HostAliasTrans &translation) const {
    const auto camera = translation.copies.find(view_->SceneCamera(this));
    const bool is_copied = camera != translation.copies.end() && camera->second != nullptr;
    copy->view_->SetSceneCamera(is_copied ? static_cast<Object *>(camera->second->node) : nullptr);
    if (view_->EditorCamera() != nullptr) view_->EditorCamera()->CopyInto(copy->view_->EditorCamera(), flags, nullptr);
}

}  // namespace host
