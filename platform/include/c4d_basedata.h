#pragma once

#include "ge_prepass.h"

// Names the class's base SUPER. What follows is private until an access word says otherwise.
#define INSTANCEOF(X, Y) \
  public:                \
    typedef Y SUPER;     \
                         \
  private:

// What all plug-in classes derive from. Their objects are made with gNew.
class BaseData {
  public:
    BaseData();
    virtual ~BaseData();

    // Destroys the object and gives its memory back: what the host calls.
    void Destructor();
};
