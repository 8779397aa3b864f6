#pragma once

#include "c4d_baseobject.h"

// A view on the scene.
class BaseDraw {
  public:
    // NULL when the view looks through its own camera.
    BaseObject *GetSceneCamera(const BaseDocument *doc);
    // NULL: the view's own camera.
    void SetSceneCamera(BaseObject *camera, Bool animate = FALSE);

  private:
    BaseDraw();
    ~BaseDraw();
};
