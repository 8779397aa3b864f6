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

    BaseObject *GetNext() { return static_cast<BaseObject *>(GeListNode::GetNext()); }
    BaseObject *GetPred() { return static_cast<BaseObject *>(GeListNode::GetPred()); }
    BaseObject *GetUp() { return static_cast<BaseObject *>(GeListNode::GetUp()); }
    BaseObject *GetDown() { return static_cast<BaseObject *>(GeListNode::GetDown()); }
    BaseObject *GetDownLast() { return static_cast<BaseObject *>(GeListNode::GetDownLast()); }

    // In the parent, frozen values included.
    Vector GetAbsPos() const;
    Vector GetAbsScale() const;
    Vector GetAbsRot() const;
    void SetAbsPos(const Vector &value);
    void SetAbsScale(const Vector &value);
    void SetAbsRot(const Vector &value);
    Vector GetFrozenPos() const;
    Vector GetFrozenScale() const;
    Vector GetFrozenRot() const;
    void SetFrozenPos(const Vector &value);
    void SetFrozenScale(const Vector &value);
    void SetFrozenRot(const Vector &value);
    // On top of the frozen values: what the parameters and the tracks hold.
    Vector GetRelPos() const;
    Vector GetRelScale() const;
    Vector GetRelRot() const;
    void SetRelPos(const Vector &value);
    void SetRelScale(const Vector &value);
    void SetRelRot(const Vector &value);

    // Local, frozen values and scale included.
    Matrix GetMl() const;
    void SetMl(const Matrix &matrix);
    // Global.
    Matrix GetMg() const;
    void SetMg(const Matrix &matrix);
    // The parent's global matrix; identity at the top.
    Matrix GetUpMg() const;
    // With axes of length 1.
    Matrix GetMln() const;
    Matrix GetMgn() const;
    // The local transform, frozen values and rotation order.
    void CopyMatrixTo(BaseObject *destination);

    ROTATIONORDER GetRotationOrder() const;
    void SetRotationOrder(ROTATIONORDER order);

    BaseTag *GetFirstTag();
    BaseTag *GetTag(LONG type, LONG nr = 0);
    // The object owns the tag. Without a predecessor it becomes the first.
    BaseTag *MakeTag(LONG type, BaseTag *pred = NULL);
    void InsertTag(BaseTag *tag, BaseTag *pred = NULL);
    void KillTag(LONG type, LONG nr = 0);

  private:
    BaseObject();
    ~BaseObject();

    friend class CameraObject;
};

class CameraObject : public BaseObject {
  public:
    LONG GetProjection() const;
    // For parallel projections.
    Real GetZoom() const;
    // Sensor width and focal length, millimetres.
    Real GetAperture() const;
    Real GetFocus() const;
    Bool SetProjection(LONG projection);
    Bool SetZoom(Real zoom);
    Bool SetAperture(Real aperture);
    Bool SetFocus(Real focus);

  private:
    CameraObject();
    ~CameraObject();
};
