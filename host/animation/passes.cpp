#include "host/animation/passes.h"

#include <algorithm>

#include "host/animation/priority_list.h"
#include "host/animation/track.h"
#include "host/scene/document.h"
#include "host/scene/messages.h"
#include "host/scene/tag.h"
#include "host/value/descid.h"
#include "host/watch/operation.h"

namespace host {
namespace {

enum ExecutionFlag : std::int32_t { kWithAnimation = 2, kWithExpressions = 4, kWithCaches = 8 };
constexpr std::int32_t kAnimationPriority = 2000;
constexpr std::int32_t kTagExpression = 8;  // of a tag's registration
constexpr std::int32_t kExecutionOk = 0;

using Animated = std::vector<std::shared_ptr<NodeAnchor>>;

// Of this thread. Plain, since a thread's values with destructors outlive their memory under some Windows compilers.
thread_local bool is_running = false;

class Running {
  public:
    Running() { is_running = true; }
    ~Running() { is_running = false; }
};

void WriteTrack(Node *node, const Track &track, const Time &time) {
    if (!track.Governs(time)) return;
    const TableDescID id = WithoutEmptyLevels(track.Id());
    if (track.Category() == 1)
        node->WriteAnimated(id, track.ValueAt(time));
    else
        node->WriteAnimated(id, track.DataAt(time));
}

// Every object of the scene in hierarchy order, with its tags from first to last.
template <typename Visit>
void VisitNodes(Document *document, Visit visit) {
    Object *object = document->FirstObject();
    while (object != nullptr) {
        visit(static_cast<Node *>(object));
        for (Node *tag = object->FirstTag(); tag != nullptr; tag = tag->Next()) visit(tag);
        if (object->FirstChild() != nullptr) {
            object = object->FirstChild();
            continue;
        }
        while (object != nullptr && object->NextObject() == nullptr) object = object->Parent();
        if (object != nullptr) object = object->NextObject();
    }
}

Animated CollectAnimated(Document *document) {
    Animated animated;
    const auto add = [&animated](Node *node) {
        if (!node->Tracks().empty()) animated.push_back(node->Anchor());
    };
    add(document);
    VisitNodes(document, add);
    return animated;
}

void RunTracks(const Animated &animated, const Time &time) {
    for (const auto &node : animated) {
        if (node->node != nullptr) Animate(node->node, time);
    }
}

// Asking a tag for its priorities calls its module, which may change the scene: first the tags, then the questions.
HostPriorityList CollectExpressions(Document *document) {
    HostPriorityList list;
    bool has_own_list = false;
    VisitNodes(document, [&list, &has_own_list](Node *node) {
        if (node->Classification() != kTypeTag) return;
        const Tag *tag = static_cast<Tag *>(node);
        if ((tag->Registration().info & kTagExpression) == 0 || tag->Registration().execute == nullptr) return;
        if (tag->Registration().add_to_execution != nullptr) has_own_list = true;
        list.Add(node, tag->ExecutionPriority(), 0);
    });
    if (!has_own_list) return list;
    const std::vector<HostPriorityList::Entry> tags = std::move(list.entries);
    list.entries.clear();
    for (const HostPriorityList::Entry &entry : tags) {
        if (entry.node->node == nullptr) continue;
        Tag *tag = static_cast<Tag *>(entry.node->node);
        const auto add_to_execution = tag->Registration().add_to_execution;
        const Operation operation("AddToExecution");
        if (add_to_execution != nullptr && tag->Enabled() && add_to_execution(tag->Plugin(), tag, &list)) continue;
        list.entries.push_back(entry);
    }
    return list;
}

// false: the expression asks for an end of the evaluation.
bool RunExpression(const HostPriorityList::Entry &entry, Document *document, std::int32_t flags) {
    Node *node = entry.node->node;
    if (node == nullptr || node->Classification() != kTypeTag) return true;
    if (entry.flags != 0 && (entry.flags & flags) == 0) return true;
    Tag *tag = static_cast<Tag *>(node);
    Object *object = tag->GetObject();
    if (object == nullptr || tag->Plugin() == nullptr || tag->Registration().execute == nullptr) return true;
    if (!tag->Enabled() || tag->GetDocument() != document) return true;
    const Operation operation("Execute", Operation::kEvaluation);
    return tag->Registration().execute(tag->Plugin(), tag, document, object, nullptr, entry.priority, flags) ==
           kExecutionOk;
}

}  // namespace

void Animate(Node *node, const Time &time) {
    if (node == nullptr || node->Tracks().empty()) return;
    for (const Track *track : node->Tracks()) WriteTrack(node, *track, time);
    node->SendMessage(kMessageAnimate, nullptr);
}

bool ExecutePasses(Document *document, bool animation, bool expressions, bool caches, std::int32_t) {
    if (document == nullptr || is_running) return false;
    const Running running;
    const std::int32_t flags =
        (animation ? kWithAnimation : 0) | (expressions ? kWithExpressions : 0) | (caches ? kWithCaches : 0);
    const Time time = document->GetTime();
    Animated animated;
    if (animation) {
        document->SetAnimatedTime(time);
        animated = CollectAnimated(document);
    }
    HostPriorityList list;
    if (expressions) {
        list = CollectExpressions(document);
        list.Sort();
    }
    bool tracks_wait = animation;
    for (const HostPriorityList::Entry &entry : list.entries) {
        if (tracks_wait && entry.priority >= kAnimationPriority) {
            RunTracks(animated, time);
            tracks_wait = false;
        }
        if (!RunExpression(entry, document, flags)) return false;
    }
    if (tracks_wait) RunTracks(animated, time);
    return true;
}

}  // namespace host
