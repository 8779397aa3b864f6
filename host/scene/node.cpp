#include "host/scene/node.h"

#include <algorithm>

#include "host/animation/track.h"
#include "host/scene/messages.h"
#include "host/value/descid.h"

namespace host {

Node::Node(std::int32_t type) : type_(type) {}

Node::~Node() {
    Detach();
    DestroyTracks();
    DestroyChildren();
}

void Node::Detach() {
    Remove();
    if (anchor_) anchor_->node = nullptr;
}

void Node::DestroyChildren() {
    while (first_child_ != nullptr) {
        // Grandchildren move up first, so that deep chains do not nest destructors.
        Node *child = first_child_;
        // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDelete): a child leaves its parent as it goes.
        while (child->last_child_ != nullptr) child->last_child_->InsertAfter(child);
        delete child;
    }
}

void Node::DestroyTracks() {
    while (!tracks_.empty()) {
        Track *track = tracks_.back();
        RemoveTrack(track);
        delete track;
    }
}

const std::shared_ptr<NodeAnchor> &Node::Anchor() const {
    if (!anchor_) {
        anchor_ = std::make_shared<NodeAnchor>();
        anchor_->node = const_cast<Node *>(this);
    }
    return anchor_;
}

void Node::Discard(Node *node) {
    if (node == nullptr || node->OwnedForGood()) return;
    if (node->undo_keepers_ == 0) {
        delete node;
        return;
    }
    node->Remove();
    node->left_to_undo_ = true;
}

bool Node::IsInstanceOf(std::int32_t type) const {
    return type == type_ || type == Classification() || type == kTypeBaseList;
}

Document *Node::GetDocument() const { return nullptr; }

// ---- The tree

void Node::LinkBetween(Node *previous, Node *next) {
    previous_ = previous;
    next_ = next;
    if (previous != nullptr) previous->next_ = this;
    if (next != nullptr) next->previous_ = this;
    left_to_undo_ = false;
}

void Node::Unlink() {
    if (previous_ != nullptr) previous_->next_ = next_;
    if (next_ != nullptr) next_->previous_ = previous_;
    previous_ = next_ = nullptr;
}

void Node::Remove() {
    if (RemoveFromOwner()) return;
    if (up_ != nullptr) {
        if (up_->first_child_ == this) up_->first_child_ = next_;
        if (up_->last_child_ == this) up_->last_child_ = previous_;
    } else if (list_ != nullptr) {
        if (list_->first == this) list_->first = next_;
        if (list_->last == this) list_->last = previous_;
    } else {
        return;
    }
    Unlink();
    up_ = nullptr;
    list_ = nullptr;
}

bool Node::IsBelow(const Node *ancestor) const {
    // What is inserted is mostly without children: no walk up a deep tree for each.
    if (ancestor->first_child_ == nullptr) return false;
    for (const Node *up = up_; up != nullptr; up = up->up_) {
        if (up == ancestor) return true;
    }
    return false;
}

// A free node has no siblings: nobody would own the second one.
void Node::InsertAfter(Node *sibling) {
    if (sibling == nullptr || sibling == this || sibling->Classification() != Classification()) return;
    if ((sibling->up_ == nullptr && sibling->list_ == nullptr) || sibling->IsBelow(this)) return;
    if (sibling->next_ == this) return;
    Remove();
    up_ = sibling->up_;
    list_ = sibling->list_;
    LinkBetween(sibling, sibling->next_);
    if (next_ == nullptr) (up_ != nullptr ? up_->last_child_ : list_->last) = this;
}

void Node::InsertUnder(Node *parent) {
    if (parent == nullptr || parent == this || !parent->CanHoldChildren() || !CanHoldChildren()) return;
    if (parent->IsBelow(this)) return;
    Remove();
    up_ = parent;
    LinkBetween(nullptr, parent->first_child_);
    parent->first_child_ = this;
    if (parent->last_child_ == nullptr) parent->last_child_ = this;
}

void Node::InsertUnderLast(Node *parent) {
    if (parent == nullptr || parent == this || !parent->CanHoldChildren() || !CanHoldChildren()) return;
    if (parent->IsBelow(this)) return;
    Remove();
    up_ = parent;
    LinkBetween(parent->last_child_, nullptr);
    parent->last_child_ = this;
    if (parent->first_child_ == nullptr) parent->first_child_ = this;
}

NodeList::~NodeList() { Clear(); }

void NodeList::Clear() {
    // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDelete): a node leaves its list as it goes.
    while (first != nullptr) delete first;
}

void NodeList::InsertFirst(Node *node) { InsertAfter(node, nullptr); }

void NodeList::InsertLast(Node *node) {
    if (node != last) InsertAfter(node, last);
}

void NodeList::InsertAfter(Node *node, Node *predecessor) {
    if (node == nullptr || node == owner || node == predecessor) return;
    if (predecessor != nullptr && predecessor->list_ != this) predecessor = nullptr;
    node->Remove();
    node->list_ = this;
    node->LinkBetween(predecessor, predecessor != nullptr ? predecessor->next_ : first);
    if (node->previous_ == nullptr) first = node;
    if (node->next_ == nullptr) last = node;
}

// ---- Marks and messages

std::uint32_t Node::Dirty(std::int32_t flags) const {
    std::uint32_t sum = 0;
    for (int bit = 0; bit < 8; ++bit) {
        if ((flags >> bit) & 1) sum += dirty_[bit];
    }
    return sum;
}

void Node::SetDirty(std::int32_t flags) {
    for (int bit = 0; bit < 8; ++bit) {
        if ((flags >> bit) & 1) ++dirty_[bit];
    }
}

bool Node::SendMessage(std::int32_t type, void *) {
    if (type == kMessageChange) SetDirty(kDirtyData);
    return true;
}

// ---- Tracks

namespace {

// Position, rotation and scale first, then every other parameter by its number; components in their order.
bool TrackComesBefore(const TableDescID &a, const TableDescID &b) {
    const auto rank = [](std::int32_t id) { return id >= 903 && id <= 905 ? 0 : 1; };
    const std::int32_t first_a = LevelId(a, 0), first_b = LevelId(b, 0);
    if (rank(first_a) != rank(first_b)) return rank(first_a) < rank(first_b);
    for (std::int32_t level = 0; level < TABLE_DESC_LEVELS; ++level) {
        if (LevelId(a, level) != LevelId(b, level)) return LevelId(a, level) < LevelId(b, level);
    }
    return false;
}

}  // namespace

Track *Node::FindTrack(const TableDescID &id) const {
    for (Track *track : tracks_) {
        if (SameId(track->Id(), id)) return track;
    }
    return nullptr;
}

bool Node::InsertTrack(Track *track) {
    if (track == nullptr || track == this) return false;
    if (track->node_ == this) return true;
    if (Track *present = FindTrack(track->Id())) Discard(present);
    track->Remove();
    const auto place = std::upper_bound(tracks_.begin(), tracks_.end(), track, [](const Track *a, const Track *b) {
        return TrackComesBefore(a->Id(), b->Id());
    });
    Node *next = place == tracks_.end() ? nullptr : *place;
    Node *previous = place == tracks_.begin() ? nullptr : *(place - 1);
    tracks_.insert(place, track);
    track->node_ = this;
    track->LinkBetween(previous, next);
    return true;
}

void Node::RemoveTrack(Track *track) {
    const auto found = std::find(tracks_.begin(), tracks_.end(), track);
    if (found == tracks_.end()) return;
    tracks_.erase(found);
    track->node_ = nullptr;
    static_cast<Node *>(track)->Unlink();
}

}  // namespace host
