#include "host/scene/messages.h"

#include "host/scene/document.h"

namespace host {

bool Broadcast(Document *document, std::int32_t type, void *data) {
    if (document == nullptr) return false;
    std::vector<std::shared_ptr<NodeAnchor>> receivers;
    for (Node *node : document->AllNodes()) receivers.push_back(node->Anchor());
    bool agreed = true;
    for (const auto &receiver : receivers) {
        if (receiver->node != nullptr && !receiver->node->SendMessage(type, data)) agreed = false;
    }
    return agreed;
}

bool BroadcastDocumentInfo(Document *document, std::int32_t info_type) {
    TableDocumentInfo info{};
    info.type = info_type;
    info.document = document;
    return Broadcast(document, kMessageDocumentInfo, &info);
}

}  // namespace host
