#pragma once

#include "c4d_baselist.h"

class BaseTag : public BaseList2D {
  public:
    // On no object; NULL for an unknown type, and when the tag's Init failed.
    static BaseTag *Alloc(LONG type);
    // Takes it off its object first.
    static void Free(BaseTag *&tag);

    // NULL when it is on none.
    BaseObject *GetObject();

  private:
    BaseTag();
    ~BaseTag();
};
