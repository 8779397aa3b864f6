#include "host/value/link.h"

#include "host/animation/track.h"
#include "host/scene/document.h"
#include "host/value/container.h"

namespace host {

namespace {

// The copy's anchor, or null when the translation knows none.
std::shared_ptr<NodeAnchor> CopyOf(const HostLink &link, const HostAliasTrans &translation) {
    if (link.goal == nullptr || link.goal->node == nullptr) return nullptr;
    const auto found = translation.copies.find(link.goal->node);
    return found == translation.copies.end() ? nullptr : found->second;
}

bool IsCopy(const HostLink &link, const HostAliasTrans &translation) {
    for (const auto &[original, copy] : translation.copies)
        if (copy == link.goal) return true;
    return false;
}

void TurnLink(HostLink *link, const HostAliasTrans &translation, bool keep_others) {
    if (const auto copy = CopyOf(*link, translation); copy != nullptr) {
        link->goal = copy;
    } else if (!keep_others && !IsCopy(*link, translation)) {
        link->goal = nullptr;
    }
}

void TurnLinks(Data *data, const HostAliasTrans &translation, bool keep_others);

void TurnLinks(Container *container, const HostAliasTrans &translation, bool keep_others) {
    if (!container->MayHoldLinks()) return;
    for (std::int32_t i = 0; i < container->Count(); ++i) {
        const std::int32_t type = container->DataAt(i)->type;
        // Nothing else is touched, so that it can still be shared.
        if (type == kDataLink || type == kDataContainer) TurnLinks(container->LiveAt(i), translation, keep_others);
    }
}

void TurnLinks(Data *data, const HostAliasTrans &translation, bool keep_others) {
    if (data->type == kDataLink && data->value.link != nullptr) TurnLink(data->value.link, translation, keep_others);
    if (Container *inner = data->GetContainer(); inner != nullptr) TurnLinks(inner, translation, keep_others);
}

}  // namespace

HostLink *CreateLink() { return new HostLink; }

void ReleaseLink(HostLink *link) { delete link; }

HostLink *CloneLink(const HostLink *link, const HostAliasTrans *translation) {
    if (link == nullptr) return CreateLink();
    auto *clone = new HostLink(*link);
    if (translation != nullptr) TurnLink(clone, *translation, true);
    return clone;
}

void SetLink(HostLink *link, HostAtom *target) {
    if (link == nullptr) return;
    link->goal = target == nullptr ? nullptr : static_cast<Node *>(target)->Anchor();
}

HostAtom *ResolveLink(const HostLink *link, const HostAtom *document, std::int32_t instance_of) {
    if (link == nullptr || document == nullptr || link->goal == nullptr || link->goal->node == nullptr) return nullptr;
    Node *goal = link->goal->node;
    if (static_cast<const HostAtom *>(goal->GetDocument()) != document) return nullptr;
    return instance_of == 0 || goal->IsInstanceOf(instance_of) ? goal : nullptr;
}

HostAtom *ResolveAnywhere(const HostLink *link) {
    return link == nullptr || link->goal == nullptr ? nullptr : link->goal->node;
}

void TurnLinks(const HostAliasTrans &translation, bool keep_others) {
    for (const auto &[original, copy] : translation.copies) {
        if (copy == nullptr || copy->node == nullptr) continue;
        TurnLinks(&copy->node->Data(), translation, keep_others);
        for (const Track *track : copy->node->Tracks())
            for (std::int32_t i = 0; i < track->GetCurve()->KeyCount(); ++i)
                TurnLinks(&track->GetCurve()->KeyAt(i)->data, translation, keep_others);
    }
}

}  // namespace host
