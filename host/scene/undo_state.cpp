#include "host/scene/undo_state.h"

#include <algorithm>

#include "host/scene/document.h"
#include "host/scene/object.h"
#include "host/scene/tag.h"

namespace host {

// ---- NodeState

NodeState::NodeState(Node *node, bool with_tracks)
    : node_(node->Anchor()), data_(node->data_), name_(node->name_), bits_(node->bits_), with_tracks_(with_tracks) {
    switch (node->Classification()) {
        case kTypeObject:
            transform_ = static_cast<Object *>(node)->transform_;
            break;
        case kTypeDocument:
            for (const auto &[type, settings] : static_cast<Document *>(node)->settings_) {
                settings_.emplace_back(type, std::make_unique<Container>(*settings));
            }
            break;
        case kTypeTrack:
            own_.reset(static_cast<Track *>(node->Clone(0, nullptr)));
            break;
        default:
            break;
    }
    if (!with_tracks) return;
    for (Track *track : node->tracks_) {
        tracks_.emplace_back(static_cast<Track *>(static_cast<Node *>(track)->Clone(0, nullptr)));
    }
}

void NodeState::ExchangeTrack(Track *a, Track *b) {
    if (a == nullptr || b == nullptr) return;
    std::swap(a->before, b->before);
    std::swap(a->after, b->after);
    a->curve_->Exchange(b->curve_.get());
}

void NodeState::ExchangeTracks(Node *node) {
    std::vector<std::unique_ptr<Track>> present;
    while (!node->tracks_.empty()) {
        Track *track = node->tracks_.back();
        node->RemoveTrack(track);
        present.emplace_back(track);
    }
    for (auto &stored : tracks_) {
        const auto same = std::find_if(present.begin(), present.end(), [&stored](const std::unique_ptr<Track> &track) {
            return track != nullptr && SameId(track->Id(), stored->Id());
        });
        if (same == present.end()) {
            node->InsertTrack(stored.release());
            continue;
        }
        // A track that was there before stays the same track.
        ExchangeTrack(same->get(), stored.get());
        std::swap(static_cast<Node *>(same->get())->data_, static_cast<Node *>(stored.get())->data_);
        std::swap(static_cast<Node *>(same->get())->name_, static_cast<Node *>(stored.get())->name_);
        node->InsertTrack(same->release());
    }
    for (auto &track : present) tracks_.push_back(std::move(track));
    tracks_.erase(std::remove(tracks_.begin(), tracks_.end(), nullptr), tracks_.end());
}

void NodeState::Exchange() {
    Node *node = node_->node;
    if (node == nullptr) return;
    std::swap(node->data_, data_);
    std::swap(node->name_, name_);
    std::swap(node->bits_, bits_);
    switch (node->Classification()) {
        case kTypeObject:
            std::swap(static_cast<Object *>(node)->transform_, transform_);
            break;
        case kTypeDocument: {
            Document *document = static_cast<Document *>(node);
            // Modules hold the settings' addresses: their contents are exchanged, not they themselves.
            for (auto &[type, settings] : settings_) std::swap(document->Settings(type), *settings);
            break;
        }
        case kTypeTrack:
            ExchangeTrack(static_cast<Track *>(node), own_.get());
            break;
        default:
            break;
    }
    if (with_tracks_) ExchangeTracks(node);
    node->SetDirty(kDirtyData | kDirtyMatrix | kDirtyDescription);
}

// ---- UndoPlace

namespace {

Node *OwnerOf(Node *node) {
    if (node->Up() != nullptr) return node->Up();
    if (node->Classification() == kTypeKey) return static_cast<Key *>(node)->GetCurve();
    if (node->Classification() == kTypeObject) return node->GetDocument();
    return node->Main();
}

std::shared_ptr<NodeAnchor> AnchorOf(const Node *node) { return node != nullptr ? node->Anchor() : nullptr; }
Node *Living(const std::shared_ptr<NodeAnchor> &anchor) { return anchor != nullptr ? anchor->node : nullptr; }

}  // namespace

UndoPlace::UndoPlace(Node *node) : owner_(AnchorOf(OwnerOf(node))), previous_(AnchorOf(node->Previous())) {}

void UndoPlace::Restore(Node *node) const {
    Node *owner = Living(owner_), *previous = Living(previous_);
    if (node == nullptr || owner == nullptr || owner == node) return;
    if (previous != nullptr && OwnerOf(previous) != owner) previous = nullptr;
    switch (node->Classification()) {
        case kTypeTrack:
            owner->InsertTrack(static_cast<Track *>(node));
            break;
        case kTypeKey:
            static_cast<Curve *>(owner)->InsertKey(static_cast<Key *>(node));
            break;
        case kTypeTag:
            static_cast<Object *>(owner)->InsertTag(static_cast<Tag *>(node), static_cast<Tag *>(previous));
            break;
        case kTypeObject:
            if (previous != nullptr) {
                node->InsertAfter(previous);
            } else if (owner->Classification() == kTypeDocument) {
                static_cast<Document *>(owner)->objects_.InsertFirst(node);
            } else {
                node->InsertUnder(owner);
            }
            break;
        default:
            break;
    }
}

// ---- UndoBranches

UndoBranches::UndoBranches(Object *object, bool with_children)
    : object_(static_cast<Node *>(object)->Anchor()), with_children_(with_children) {
    for (Node *tag = object->tags_.first; tag != nullptr; tag = tag->Next()) tags_.emplace_back(tag);
    if (!with_children) return;
    for (Node *child = object->Down(); child != nullptr; child = child->Next()) children_.emplace_back(child);
}

namespace {

// Free, or in the document already: what has gone to another one stays there.
bool MayReturn(const Node *node, const Document *document) {
    return node != nullptr && (node->GetDocument() == nullptr || node->GetDocument() == document);
}

void TakeOutMissing(const std::vector<UndoKeep> &present, const std::vector<UndoKeep> &wanted) {
    for (const UndoKeep &keep : present) {
        const auto is_same = [&keep](const UndoKeep &other) { return other.Get() == keep.Get(); };
        if (std::none_of(wanted.begin(), wanted.end(), is_same)) keep.TakeOut();
    }
}

}  // namespace

void UndoBranches::Exchange() {
    Object *object = static_cast<Object *>(object_->node);
    if (object == nullptr) return;
    UndoBranches present(object, with_children_);
    const Document *document = object->GetDocument();
    TakeOutMissing(present.tags_, tags_);
    TakeOutMissing(present.children_, children_);
    for (const UndoKeep &tag : tags_) {
        if (MayReturn(tag.Get(), document)) object->tags_.InsertLast(tag.Get());
    }
    for (const UndoKeep &child : children_) {
        if (MayReturn(child.Get(), document)) child.Get()->InsertUnderLast(object);
    }
    std::swap(tags_, present.tags_);
    std::swap(children_, present.children_);
}

}  // namespace host
