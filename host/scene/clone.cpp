// Copies of nodes, with everything they own and with their links turned to what was copied along.
#include "host/animation/track.h"
#include "host/scene/node.h"

namespace host {
namespace {

// Keys are numerous, and nothing links to them: they are left out of the translation.
bool CanBeLinked(const Node &node) { return node.Classification() != kTypeKey && node.Classification() != kTypeCurve; }

}  // namespace

bool Node::CopyOwnState(Node *, std::int32_t, HostAliasTrans *) const { return true; }

bool Node::CopyState(Node *copy, std::int32_t flags, HostAliasTrans *translation) const {
    if (CanBeLinked(*this)) translation->copies[this] = copy->Anchor();
    copy->data_.CopyFrom(data_, translation);
    copy->name_ = name_;
    if ((flags & kCopyNoBits) == 0) copy->bits_ = bits_;
    if (!CopyOwnState(copy, flags, translation)) return false;
    if ((flags & (kCopyNoAnimation | kCopyNoBranches)) != 0) return true;
    for (const Track *track : tracks_) {
        Node *copied = static_cast<const Node *>(track)->CloneTree(flags, translation);
        if (copied == nullptr) return false;
        copy->InsertTrack(static_cast<Track *>(copied));
    }
    return true;
}

Node *Node::CloneTree(std::int32_t flags, HostAliasTrans *translation) const {
    std::unique_ptr<Node> copy(CreateSameKind());
    if (!copy || !CopyState(copy.get(), flags, translation)) return nullptr;
    return copy.release();
}

Node *Node::Clone(std::int32_t flags, HostAliasTrans *translation) const {
    HostAliasTrans own;
    if (translation == nullptr) translation = &own;
    Node *copy = CloneTree(flags, translation);
    // A link may have been copied before its goal was.
    if (copy != nullptr) TurnLinks(*translation, true);
    return copy;
}

bool Node::CopyInto(Node *destination, std::int32_t flags, HostAliasTrans *translation) const {
    if (destination == nullptr || destination == this || destination->type_ != type_) return false;
    if (destination->Classification() != Classification()) return false;
    if (IsBelow(destination) || destination->IsBelow(this)) return false;
    HostAliasTrans own;
    if (translation == nullptr) translation = &own;
    if ((flags & (kCopyNoAnimation | kCopyNoBranches)) == 0) destination->DestroyTracks();
    if ((flags & kCopyNoBranches) == 0) destination->DestroyBranches();
    if ((flags & kCopyNoHierarchy) == 0) destination->DestroyChildren();
    if (!CopyState(destination, flags, translation)) return false;
    destination->SetDirty(kDirtyData | kDirtyMatrix);
    TurnLinks(*translation, true);
    return true;
}

}  // namespace host
