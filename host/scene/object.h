// Objects of the scene: a transform, tags, children. Cameras are objects whose lens lies in their container.
#pragma once

#include <memory>

#include "host/scene/node.h"
#include "host/scene/transform.h"

namespace host {

class Tag;

class Object : public Node {
  public:
    // A free object with its type's defaults; null for an unknown type (known: camera, null, polygon, light, spline).
    static std::unique_ptr<Object> Create(std::int32_t type);
    ~Object() override;

    std::int32_t Classification() const override { return kTypeObject; }
    bool IsInstanceOf(std::int32_t type) const override;
    Document *GetDocument() const override;
    Object *Parent() const { return static_cast<Object *>(Up()); }
    Object *FirstChild() const { return static_cast<Object *>(Down()); }
    Object *NextObject() const { return static_cast<Object *>(Next()); }

    const Transform &GetTransform() const { return transform_; }
    void SetTransform(const Transform &transform);
    Matrix LocalMatrix() const { return transform_.Local(); }
    void SetLocalMatrix(const Matrix &matrix);
    Matrix GlobalMatrix() const;  // always with the current values of all parents
    void SetGlobalMatrix(const Matrix &matrix);
    Matrix ParentMatrix() const;

    Tag *FirstTag() const;
    Tag *FindTag(std::int32_t type, std::int32_t number = 0) const;
    void InsertTag(Tag *tag, Tag *predecessor = nullptr);  // takes it over; null: first of all
    // Alloc and InsertTag; null when the type is unknown or the tag's Init failed.
    Tag *MakeTag(std::int32_t type, Tag *predecessor = nullptr);

  protected:
    explicit Object(std::int32_t type);
    bool GetVirtualParameter(const TableDescID &id, host::Data *out) const override;
    bool SetVirtualParameter(const TableDescID &id, const host::Data &data) override;
    bool IsVirtualParameter(const TableDescID &id) const override;
    Node *CreateSameKind() const override;
    bool CopyOwnState(Node *copy, std::int32_t flags, HostAliasTrans *translation) const override;
    bool CanHoldChildren() const override { return true; }
    void DestroyBranches() override;

  private:
    friend class UndoStack;
    friend class NodeState;
    friend class UndoPlace;
    friend class UndoBranches;
    Transform transform_;
    NodeList tags_;
};

// Parameters of objects and cameras.
constexpr std::int32_t kParamName = 900, kParamRelPosition = 903, kParamRelRotation = 904, kParamRelScale = 905,
                       kParamUseColor = 907, kParamColor = 908, kParamGlobalPosition = 910, kParamGlobalRotation = 911,
                       kParamFrozenPosition = 917, kParamFrozenRotation = 918, kParamFrozenScale = 919,
                       kParamAbsPosition = 925, kParamAbsRotation = 926, kParamAbsScale = 927,
                       kParamRotationOrder = 928;
constexpr std::int32_t kCameraFocalLength = 500, kCameraZoom = 1000, kCameraProjection = 1001, kCameraAperture = 1006,
                       kCameraFov = 1008, kCameraUseTarget = 1009, kCameraFocusDistance = 1010,
                       kCameraFocusObject = 1130;

}  // namespace host
