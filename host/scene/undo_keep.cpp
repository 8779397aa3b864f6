#include "host/scene/undo_keep.h"

#include "host/animation/track.h"
#include "host/scene/node.h"

namespace host {
namespace {

bool StandsSomewhere(const Node &node) {
    if (node.Up() != nullptr || node.Main() != nullptr || node.GetDocument() != nullptr) return true;
    return node.Classification() == kTypeKey && static_cast<const Key &>(node).GetCurve() != nullptr;
}

}  // namespace

UndoKeep::UndoKeep(Node *node) {
    if (node == nullptr) return;
    anchor_ = node->Anchor();
    ++node->undo_keepers_;
}

UndoKeep::~UndoKeep() {
    Node *node = Get();
    if (node == nullptr || --node->undo_keepers_ > 0) return;
    if (node->left_to_undo_ && !StandsSomewhere(*node)) delete node;
}

void UndoKeep::LeaveToUndo() const {
    if (Node *node = Get()) node->left_to_undo_ = true;
}

void UndoKeep::TakeOut() const {
    Node *node = Get();
    if (node == nullptr) return;
    node->Remove();
    node->left_to_undo_ = true;
}

}  // namespace host
