// Undo and redo: steps of stored states that are really put back.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace host {

class Document;
class Node;

enum UndoType : std::int32_t {
    kUndoChange = 40,
    kUndoChangeNoChildren = 41,
    kUndoChangeSmall = 42,
    kUndoChangeSelection = 43,
    kUndoNew = 44,
    kUndoDelete = 45,
    kUndoActivate = 46,
    kUndoDeactivate = 47,
    kUndoBits = 48,
    kUndoHierarchy = 49
};

class UndoStack {
  public:
    // Of finished steps; the oldest goes for a new one.
    static constexpr std::size_t kMostSteps = 100;
    explicit UndoStack(Document *document);
    ~UndoStack();

    bool Start();     // nested pairs join the outer step
    bool End();       // false when nothing was opened; a step without entries is dropped
    void TakeBack();  // instead of End: the open step is undone and forgotten, the finished ones stay as they were
    void Drop();      // instead of End: what was done in the open step stays, and nobody can take it back
    // Outside of a step: a step of its own, unless those are refused. Before a change or a removal, after an insertion.
    bool Add(std::int32_t type, Node *node);
    // Hosts may do either.
    void RefuseOutsideSteps() { refuses_outside_steps_ = true; }
    bool Undo();  // false when there is nothing to undo
    bool Redo();
    void Flush();
    int Depth() const { return depth_; }              // open Start calls
    std::size_t Steps() const;                        // finished steps that Undo can take back
    std::vector<std::int32_t> LastStepTypes() const;  // the entry kinds of the newest finished step

  private:
    class Entry;
    using Step = std::vector<std::unique_ptr<Entry>>;
    void Close();
    void Exchange(Step *step, bool backwards);
    Document *document_;
    int depth_ = 0;
    bool refuses_outside_steps_ = false;
    bool exchanging_ = false;  // what restoring sets off adds no entries
    std::unique_ptr<Step> open_;
    std::vector<std::unique_ptr<Step>> done_, undone_;
};

}  // namespace host
