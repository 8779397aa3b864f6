#include "host/scene/view.h"

#include "host/scene/document.h"
#include "host/scene/object.h"

namespace host {

View::View() : editor_camera_(Object::Create(kTypeCamera)) {}
View::~View() = default;

Object *View::SceneCamera(const Document *document) const {
    return static_cast<Object *>(ResolveLink(&scene_camera_, document, kTypeObject));
}

void View::SetSceneCamera(Object *camera) { SetLink(&scene_camera_, camera); }

}  // namespace host
