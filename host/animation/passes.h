// Evaluation of a scene: tracks, then expressions by priority, then caches.
#pragma once

#include <cstdint>

#include "host/value/time.h"

struct HostPriorityList;

namespace host {

class Document;
class Node;

// Exactly the stages asked for, at the document's time. false when an expression broke it off or when called from
// inside an expression (refused: it would never end).
bool ExecutePasses(Document *document, bool animation, bool expressions, bool caches, std::int32_t build_flags = 0);
// The tracks of one node alone.
void Animate(Node *node, const Time &time);

}  // namespace host
