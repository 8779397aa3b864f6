// One step of the user's undo list.
#pragma once

#include "c4d.h"

// Everything until its end is taken back at once, as far as the tag is in a document.
class UndoStep {
  public:
    explicit UndoStep(BaseTag *tag) : doc_(tag->GetDocument()) {
        StopAllThreads();
        if (doc_) doc_->StartUndo();
        Add(UNDOTYPE_CHANGE, tag);
    }
    ~UndoStep() {
        if (doc_) doc_->EndUndo();
    }
    UndoStep(const UndoStep &) = delete;
    UndoStep &operator=(const UndoStep &) = delete;
    // Before a change; after an insertion. FALSE when it cannot be taken back.
    Bool Add(UNDOTYPE type, void *node) { return doc_ && doc_->AddUndo(type, node); }

  private:
    BaseDocument *doc_;
};
