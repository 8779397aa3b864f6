// A view of a document: its own editor camera and, where one is set, the scene camera it looks through.
#pragma once

#include <memory>

#include "host/value/link.h"

struct HostView {
    virtual ~HostView() = default;
};

namespace host {

class Document;
class Object;

class View : public HostView {
  public:
    View();
    ~View() override;
    Object *SceneCamera(const Document *document) const;  // null: the editor camera
    void SetSceneCamera(Object *camera);                  // null: the editor camera
    Object *EditorCamera() const { return editor_camera_.get(); }

  private:
    std::unique_ptr<Object> editor_camera_;
    HostLink scene_camera_;
};

}  // namespace host
