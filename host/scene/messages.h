// Messages to many nodes at once.
#pragma once

#include <cstdint>

namespace host {

class Document;
class Node;

enum Message : std::int32_t {
    kMessageChange = 7,
    kMessageDocumentImported = 13,
    kMessageInitUndo = 16,
    kMessageCheckUpdate = 17,
    kMessageCommand = 18,
    kMessagePostSetParameter = 19,
    kMessageValidate = 20,
    kMessageEdit = 21,
    kMessageMenuPrepare = 22,
    kMessageDocumentInfo = 1001078,
    kMessageAnimate = 300001037
};
enum DocumentInfo : std::int32_t {
    kInfoSetActive = 1000,
    kInfoLoad = 1001,
    kInfoSaveBefore = 1004,
    kInfoSaveAfter = 1005,
    kInfoUndo = 1013,
    kInfoRedo = 1014
};
enum Route : std::int32_t { kRouteNone = 0, kRouteUp = 1, kRouteRoot = 2, kRouteDown = 3, kRouteBroadcast = 4 };

// To the node and, by the route, its parents, its topmost node, everything below it, or its whole document. Nodes that
// a receiver destroys are left out. true when nobody objects.
bool SendAlong(Node *node, std::int32_t route, std::int32_t type, void *data);
// To everything in the document.
bool Broadcast(Document *document, std::int32_t type, void *data);
bool BroadcastDocumentInfo(Document *document, std::int32_t info_type);

}  // namespace host
