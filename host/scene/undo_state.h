// What an undo entry stores of nodes. Every state is put back by exchange, so that the same entry serves for undo and
// redo; the nodes themselves stay, and with them pointers and links.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/animation/track.h"
#include "host/scene/node.h"
#include "host/scene/transform.h"
#include "host/scene/undo_keep.h"
#include "host/value/descid.h"

namespace host {

class Object;

// A node's own values; its tracks where they are asked for (a track's keys always).
class NodeState {
  public:
    NodeState(Node *node, bool with_tracks);
    void Exchange();

  private:
    static void ExchangeTrack(Track *a, Track *b);
    void ExchangeTracks(Node *node);
    std::shared_ptr<NodeAnchor> node_;
    Container data_;
    std::string name_;
    std::int32_t bits_ = 0;
    Transform transform_;                                                        // of an object
    std::vector<std::pair<std::int32_t, std::unique_ptr<Container>>> settings_;  // of a document
    std::unique_ptr<Track> own_;                                                 // of a track: loops and keys
    bool with_tracks_;
    std::vector<std::unique_ptr<Track>> tracks_;
};

// Where a node stands.
class UndoPlace {
  public:
    explicit UndoPlace(Node *node);
    void Restore(Node *node) const;  // nothing when what it stood in is gone

  private:
    std::shared_ptr<NodeAnchor> owner_, previous_;
};

// Which tags and, where asked for, which children an object has, in their order.
class UndoBranches {
  public:
    UndoBranches(Object *object, bool with_children);
    void Exchange();

  private:
    std::shared_ptr<NodeAnchor> object_;
    bool with_children_;
    std::vector<UndoKeep> tags_, children_;
};

}  // namespace host
