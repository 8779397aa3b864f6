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

// To everything in the document but what a receiver destroys. true when nobody objects.
bool Broadcast(Document *document, std::int32_t type, void *data);
bool BroadcastDocumentInfo(Document *document, std::int32_t info_type);

}  // namespace host
