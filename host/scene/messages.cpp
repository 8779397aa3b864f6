#include "host/scene/messages.h"

#include "host/animation/track.h"
#include "host/scene/document.h"
#include "host/scene/tag.h"

namespace host {
namespace {

using Receivers = std::vector<std::shared_ptr<NodeAnchor>>;

void AddWithBranches(Node *node, Receivers *receivers) {
    receivers->push_back(node->Anchor());
    if (node->Classification() == kTypeObject) {
        for (Node *tag = static_cast<Object *>(node)->FirstTag(); tag != nullptr; tag = tag->Next()) {
            AddWithBranches(tag, receivers);
        }
    }
    for (Track *track : node->Tracks()) receivers->push_back(static_cast<Node *>(track)->Anchor());
    for (Node *child = node->Down(); child != nullptr; child = child->Next()) AddWithBranches(child, receivers);
}

bool Send(const Receivers &receivers, std::int32_t type, void *data) {
    bool agreed = true;
    for (const auto &receiver : receivers) {
        if (receiver->node != nullptr && !receiver->node->SendMessage(type, data)) agreed = false;
    }
    return agreed;
}

}  // namespace

bool SendAlong(Node *node, std::int32_t route, std::int32_t type, void *data) {
    if (node == nullptr) return false;
    Receivers receivers;
    switch (route) {
        case kRouteUp:
            for (Node *up = node; up != nullptr; up = up->Up()) receivers.push_back(up->Anchor());
            break;
        case kRouteRoot:
            while (node->Up() != nullptr) node = node->Up();
            receivers.push_back(node->Anchor());
            break;
        case kRouteDown:
            AddWithBranches(node, &receivers);
            break;
        case kRouteBroadcast:
            if (Document *document = node->GetDocument()) return Broadcast(document, type, data);
            AddWithBranches(node, &receivers);
            break;
        default:
            return node->SendMessage(type, data);
    }
    return Send(receivers, type, data);
}

bool Broadcast(Document *document, std::int32_t type, void *data) {
    if (document == nullptr) return false;
    Receivers receivers;
    for (Node *node : document->AllNodes()) receivers.push_back(node->Anchor());
    return Send(receivers, type, data);
}

bool BroadcastDocumentInfo(Document *document, std::int32_t info_type) {
    TableDocumentInfo info{};
    info.type = info_type;
    info.document = document;
    return Broadcast(document, kMessageDocumentInfo, &info);
}

}  // namespace host
