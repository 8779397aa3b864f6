#include "host/scene/undo.h"

#include <optional>

#include "host/scene/document.h"
#include "host/scene/messages.h"
#include "host/scene/tag.h"
#include "host/scene/undo_state.h"

namespace host {
namespace {

bool IsKnown(std::int32_t type) { return type >= kUndoChange && type <= kUndoHierarchy; }

// Keys and curves change with the track that they are part of.
Node *Changing(Node *node) {
    Curve *curve = nullptr;
    if (node->Classification() == kTypeKey) curve = static_cast<Key *>(node)->GetCurve();
    if (node->Classification() == kTypeCurve) curve = static_cast<Curve *>(node);
    return curve != nullptr && curve->GetTrack() != nullptr ? static_cast<Node *>(curve->GetTrack()) : node;
}

}  // namespace

class UndoStack::Entry {
  public:
    Entry(std::int32_t type, Node *node) : type_(type), keep_(node) {
        switch (type) {
            case kUndoNew:
                break;
            case kUndoDelete:
                place_.emplace(node);
                keep_.LeaveToUndo();
                break;
            case kUndoBits:
            case kUndoActivate:
            case kUndoDeactivate:
                bits_ = node->Bits();
                break;
            case kUndoHierarchy:
                place_.emplace(node);
                states_.emplace_back(node, false);
                break;
            case kUndoChange:
                Store(Changing(node), true, true);
                break;
            case kUndoChangeNoChildren:
                Store(Changing(node), true, false);
                break;
            default:
                states_.emplace_back(Changing(node), false);
                break;
        }
    }

    std::int32_t Type() const { return type_; }

    void Exchange(bool backwards) {
        Node *node = keep_.Get();
        if (node == nullptr) return;
        switch (type_) {
            case kUndoNew:
                backwards ? TakeOut(node) : PutIn(node);
                break;
            case kUndoDelete:
                backwards ? PutIn(node) : TakeOut(node);
                break;
            case kUndoBits:
            case kUndoActivate:
            case kUndoDeactivate: {
                const std::int32_t present = node->Bits();
                node->SetBits(bits_);
                node->SetDirty(kDirtySelect);
                bits_ = present;
                break;
            }
            case kUndoHierarchy: {
                const UndoPlace present(node);
                place_->Restore(node);
                place_ = present;
                break;
            }
            default:
                break;
        }
        for (UndoBranches &branches : branches_) branches.Exchange();
        for (NodeState &state : states_) state.Exchange();
    }

  private:
    void Store(Node *node, bool with_branches, bool with_children) {
        states_.emplace_back(node, true);
        if (!with_branches || node->Classification() != kTypeObject) return;
        Object *object = static_cast<Object *>(node);
        branches_.emplace_back(object, with_children);
        for (Node *tag = object->FirstTag(); tag != nullptr; tag = tag->Next()) states_.emplace_back(tag, true);
        if (!with_children) return;
        for (Node *child = object->Down(); child != nullptr; child = child->Next()) Store(child, true, true);
    }

    void TakeOut(Node *node) {
        place_.emplace(node);
        keep_.TakeOut();
    }

    void PutIn(Node *node) {
        if (place_) place_->Restore(node);
    }

    std::int32_t type_;
    UndoKeep keep_;
    std::optional<UndoPlace> place_;
    std::int32_t bits_ = 0;
    std::vector<UndoBranches> branches_;
    std::vector<NodeState> states_;
};

UndoStack::UndoStack(Document *document) : document_(document) {}
UndoStack::~UndoStack() = default;

bool UndoStack::Start() {
    if (exchanging_) return false;
    if (depth_++ == 0) open_ = std::make_unique<Step>();
    return true;
}

bool UndoStack::End() {
    if (depth_ == 0) return false;
    if (--depth_ == 0) Close();
    return true;
}

void UndoStack::Close() {
    depth_ = 0;
    const std::unique_ptr<Step> step = std::move(open_);
    if (step == nullptr || step->empty()) return;
    undone_.clear();
    done_.push_back(std::make_unique<Step>(std::move(*step)));
    if (done_.size() <= kMostSteps) return;
    // Gone from the stack first: what a step frees may look at it.
    const std::unique_ptr<Step> oldest = std::move(done_.front());
    done_.erase(done_.begin());
}

void UndoStack::Drop() {
    depth_ = 0;
    open_.reset();
}

void UndoStack::TakeBack() {
    depth_ = 0;
    const std::unique_ptr<Step> step = std::move(open_);
    if (step != nullptr && !step->empty()) Exchange(step.get(), true);
}

bool UndoStack::Add(std::int32_t type, Node *node) {
    if (node == nullptr || exchanging_ || !IsKnown(type) || node->GetDocument() != document_) return false;
    const bool own_step = depth_ == 0;
    if (own_step && refuses_outside_steps_) return false;
    if (own_step) Start();
    open_->push_back(std::make_unique<Entry>(type, node));
    if (own_step) End();
    document_->SetChanged();
    return true;
}

void UndoStack::Exchange(Step *step, bool backwards) {
    exchanging_ = true;
    if (backwards) {
        for (auto entry = step->rbegin(); entry != step->rend(); ++entry) (*entry)->Exchange(true);
    } else {
        for (auto &entry : *step) entry->Exchange(false);
    }
    document_->SetChanged();
    BroadcastDocumentInfo(document_, backwards ? kInfoUndo : kInfoRedo);
    exchanging_ = false;
}

bool UndoStack::Undo() {
    if (exchanging_) return false;
    Close();
    if (done_.empty()) return false;
    undone_.push_back(std::move(done_.back()));
    done_.pop_back();
    Exchange(undone_.back().get(), true);
    return true;
}

bool UndoStack::Redo() {
    if (exchanging_) return false;
    Close();
    if (undone_.empty()) return false;
    done_.push_back(std::move(undone_.back()));
    undone_.pop_back();
    Exchange(done_.back().get(), false);
    return true;
}

void UndoStack::Flush() {
    if (exchanging_) return;
    // Freed from here, nodes find an empty stack when their plug-ins look for one.
    const auto done = std::move(done_), undone = std::move(undone_);
    const auto open = std::move(open_);
    done_.clear();
    undone_.clear();
    if (depth_ > 0) open_ = std::make_unique<Step>();
}

std::size_t UndoStack::Steps() const { return done_.size(); }

std::vector<std::int32_t> UndoStack::LastStepTypes() const {
    std::vector<std::int32_t> types;
    if (done_.empty()) return types;
    for (const auto &entry : *done_.back()) types.push_back(entry->Type());
    return types;
}

}  // namespace host
