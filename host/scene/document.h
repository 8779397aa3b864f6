// A document: the scene's objects, its times and settings, selection, view and undo.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "host/scene/node.h"
#include "host/scene/object.h"
#include "host/scene/undo.h"
#include "host/scene/view.h"

namespace host {

enum DocumentSetting : std::int32_t {
    kDocumentTime = 1000,
    kDocumentFps = 1001,
    kDocumentMinTime = 1002,
    kDocumentMaxTime = 1003,
    kDocumentLoopMinTime = 1004,
    kDocumentLoopMaxTime = 1005,
    kDocumentPath = 1012,
    kDocumentName = 1013
};

class Document : public Node {
  public:
    Document();
    ~Document() override;

    std::int32_t Classification() const override { return kTypeDocument; }
    Document *GetDocument() const override { return const_cast<Document *>(this); }
    bool SendMessage(std::int32_t type, void *data) override;

    // The live settings; type 2 (document) holds kDocumentTime and its neighbours, any other type is kept as written.
    Container &Settings(std::int32_t type = 2);
    const Container &Settings() const;

    Time GetTime() const { return Settings().GetTime(kDocumentTime); }
    void SetTime(const Time &time) { Settings().Set(kDocumentTime, host::Data(time)); }  // no evaluation
    std::int32_t Fps() const;
    void SetFps(std::int32_t fps);  // 1 to 2500, else left as it is
    void SetFrame(std::int64_t frame) { SetTime(MakeTime(static_cast<double>(frame), Fps())); }
    void SetRange(std::int64_t first_frame, std::int64_t last_frame);  // minimum, maximum and loop times

    Object *FirstObject() const { return static_cast<Object *>(objects_.first); }
    // Takes the object over. After `predecessor`, else first below `parent`, else first of the scene.
    void InsertObject(Object *object, Object *parent = nullptr, Object *predecessor = nullptr,
                      bool unique_name = false);
    Object *FindObject(const std::string &name) const;  // first in hierarchy order
    // Every object in hierarchy order, parents before children.
    std::vector<Object *> AllObjects() const;
    // The document, its objects, tags and tracks: everything that a broadcast reaches.
    std::vector<Node *> AllNodes() const;

    Object *ActiveObject() const;  // the selected one; with several the last
    Tag *ActiveTag() const;
    std::vector<Object *> ActiveObjects() const;
    enum SelectionMode { kSelectNew = 0, kSelectAdd = 1, kSelectSubtract = 2 };
    void SetActiveObject(Object *object, std::int32_t mode = kSelectNew);
    void SetActiveTag(Tag *tag, std::int32_t mode = kSelectNew);

    UndoStack &Undo() { return undo_; }
    View *ActiveView() { return view_.get(); }
    bool Changed() const { return changed_; }
    void SetChanged(bool changed = true) { changed_ = changed; }
    // The time that the tracks were last evaluated at; an update only needs them again when the time is another.
    const Time &AnimatedTime() const { return animated_time_; }
    void SetAnimatedTime(const Time &time) { animated_time_ = time; }

  protected:
    bool GetVirtualParameter(const TableDescID &id, host::Data *out) const override;
    bool SetVirtualParameter(const TableDescID &id, const host::Data &data) override;
    bool IsVirtualParameter(const TableDescID &id) const override;
    Node *CreateSameKind() const override { return new Document; }
    bool CopyOwnState(Node *copy, std::int32_t flags, HostAliasTrans *translation) const override;
    void DestroyBranches() override;

  private:
    friend class NodeState;
    friend class UndoPlace;
    void CopyView(Document *copy, std::int32_t flags, const HostAliasTrans &translation) const;
    void SetActive(Node *node, bool active);                                     // part of an open undo step
    std::vector<std::pair<std::int32_t, std::unique_ptr<Container>>> settings_;  // by type, type 2 first
    NodeList objects_;
    UndoStack undo_{this};
    std::unique_ptr<View> view_;
    bool changed_ = false;
    Time animated_time_{1, 0};  // differs from every time: never
};

}  // namespace host
