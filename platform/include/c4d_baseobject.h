// Objects of the scene. Lengths are scene units, angles radians (x = heading, y = pitch, z = bank in order HPB); the
// system is left-handed, a camera looks along its v3.
#pragma once

#include "c4d_basetag.h"

class BaseObject : public BaseList2D {
  public:
    // In no document; NULL for an unknown type.
    static BaseObject *Alloc(LONG type);
    // Removes it first; children, tags and tracks go with it.
    static void Free(BaseObject *&object);

    BaseObject *GetUp() { return static_cast<BaseObject *>(GeListNode::GetUp()); }

    Vector GetFrozenPos() const;
    Vector GetFrozenRot() const;
    // On top of the frozen values: what the parameters and the tracks hold.
    Vector GetRelPos() const;
    Vector GetRelRot() const;

    // Local, frozen values and scale included.
    Matrix GetMl() const;
    // Global.
    Matrix GetMg() const;
    void SetMg(const Matrix &matrix);
    // The parent's global matrix; identity at the top.
    Matrix GetUpMg() const;

    // The object owns the tag. Without a predecessor it becomes the first.
    BaseTag *MakeTag(LONG type, BaseTag *pred = NULL);
    void InsertTag(BaseTag *tag, BaseTag *pred = NULL);

  private:
    BaseObject();
    ~BaseObject();
};
