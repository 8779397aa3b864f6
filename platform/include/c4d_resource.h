// The module's resources: icons, and texts in the user's language.
#pragma once

#include "ge_types.h"

class GeResource {
  public:
    // The folder "res" beside the module's file. FALSE when it is no usable resource folder.
    Bool Init();
};

extern GeResource resource;
