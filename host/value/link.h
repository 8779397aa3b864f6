// Alias links: weak references that resolve only inside the document that asks.
#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>

#include "platform/table.h"

namespace host {
class Node;

// What links hold of a node; the node clears it when it dies.
struct NodeAnchor {
    Node *node = nullptr;
};
}  // namespace host

struct HostLink {
    std::shared_ptr<host::NodeAnchor> goal;  // null: an empty link
};

// While nodes are copied: which copy stands for which original. A copy that died is null.
struct HostAliasTrans {
    HostAtom *document = nullptr;
    std::unordered_map<const host::Node *, std::shared_ptr<host::NodeAnchor>> copies;
};

namespace host {

HostLink *CreateLink();
void ReleaseLink(HostLink *link);
// Turned to the copy of its goal where the translation (may be null) knows one already.
HostLink *CloneLink(const HostLink *link, const HostAliasTrans *translation);
void SetLink(HostLink *link, HostAtom *target);
// The goal when it is in `document` and an instance of the type (0: any), else null.
HostAtom *ResolveLink(const HostLink *link, const HostAtom *document, std::int32_t instance_of);
HostAtom *ResolveAnywhere(const HostLink *link);
// When all copies are made: turns the links in the copies' containers to copies that did not exist yet when the link
// was copied. Links with goals outside the copied group stay (`keep_others`) or are emptied.
void TurnLinks(const HostAliasTrans &translation, bool keep_others);

}  // namespace host
