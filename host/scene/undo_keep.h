// An undo entry's hold on a node that it may have to put back.
#pragma once

#include <memory>

#include "host/value/link.h"

namespace host {

class Node;

// While one exists, Node::Discard only removes the node. The last one frees a node that was left to the undo buffer
// and stands nowhere.
class UndoKeep {
  public:
    explicit UndoKeep(Node *node);
    UndoKeep(const UndoKeep &other) : UndoKeep(other.Get()) {}
    UndoKeep(UndoKeep &&other) noexcept = default;
    ~UndoKeep();
    Node *Get() const { return anchor_ != nullptr ? anchor_->node : nullptr; }  // null: it was destroyed
    // Removes it from where it stands; from then on it belongs to the undo buffer.
    void TakeOut() const;
    void LeaveToUndo() const;

  private:
    std::shared_ptr<NodeAnchor> anchor_;
};

}  // namespace host
