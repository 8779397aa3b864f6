#include "host/ui/attribute_manager.h"

#include "host/application.h"
#include "host/scene/document.h"
#include "host/scene/messages.h"
#include "host/scene/parameters.h"
#include "host/scene/tag.h"

namespace host {
namespace {

bool TakesValue(const DescribedParameter &described, const Data &value) {
    if (described.value_type == kDataNil) return false;
    if (described.value_type == kDataWhole || described.value_type == kDataReal) return IsNumber(value);
    return value.type == described.value_type;
}

// One user step: opens the undo step, tells the node, and leaves no step open that a module forgot to end.
class UserStep {
  public:
    UserStep(const std::shared_ptr<NodeAnchor> &node, const TableDescID &id) {
        Document *document = node->node->GetDocument();
        if (document == nullptr) return;
        document_ = static_cast<Node *>(document)->Anchor();
        depth_ = document->Undo().Depth();
        document->Undo().Start();
        TableDescriptionInitUndo message{document, &id};
        node->node->SendMessage(kMessageInitUndo, &message);
        if (node->node != nullptr && GetDocument() != nullptr) document->Undo().Add(kUndoChangeSmall, node->node);
    }
    void Finish() {
        if (document_ == nullptr) return;
        if (Document *document = GetDocument()) {
            while (document->Undo().Depth() > depth_) document->Undo().End();
        }
        Application *application = Application::Current();
        if (application == nullptr) return;
        application->QueueEvent(0);
        application->HandleEvents();
    }
    Document *GetDocument() const { return document_ != nullptr ? static_cast<Document *>(document_->node) : nullptr; }

  private:
    std::shared_ptr<NodeAnchor> document_;  // null: the node is free
    int depth_ = 0;
};

void SendCommand(Node *node, const TableDescID &id) {
    TableDescriptionCommand message{};
    message.id = id;
    node->SendMessage(kMessageCommand, &message);
}

}  // namespace

bool IsControlEnabled(Node *node, const TableDescID &id, const Container &settings) {
    if (node->Classification() != kTypeTag) return true;
    Data present;
    node->GetParameter(id, &present);
    return static_cast<Tag *>(node)->IsControlEnabled(id, present, 0, &settings);
}

bool EditParameter(Node *node, const TableDescID &id, const Data &value) {
    DescribedParameter described;
    if (node == nullptr || !FindDescribed(node, id, &described)) return false;
    if (!TakesValue(described, value) || !IsControlEnabled(node, id, described.settings)) return false;

    // A module may destroy the node or its document in answer to any message.
    const std::shared_ptr<NodeAnchor> anchor = node->Anchor();
    UserStep step(anchor, id);
    const bool is_set = anchor->node != nullptr && node->SetParameter(id, value, kSetUserInteraction);
    if (is_set && anchor->node != nullptr) {
        TableDescriptionValidate validate{0};
        node->SendMessage(kMessageValidate, &validate);
    }
    if (is_set && anchor->node != nullptr) {
        TableDescriptionCheckUpdate update{step.GetDocument(), 0, &id};
        node->SendMessage(kMessageCheckUpdate, &update);
    }
    if (is_set && anchor->node != nullptr && described.value_type == kDataLink) SendCommand(node, id);
    step.Finish();
    return is_set;
}

bool PressButton(Node *node, const TableDescID &id) {
    DescribedParameter described;
    if (node == nullptr || !FindDescribed(node, id, &described)) return false;
    if (described.described_type != kDescribedButton || !IsControlEnabled(node, id, described.settings)) return false;
    const std::shared_ptr<NodeAnchor> anchor = node->Anchor();
    UserStep step(anchor, id);
    if (anchor->node != nullptr) SendCommand(node, id);
    step.Finish();
    return true;
}

}  // namespace host
