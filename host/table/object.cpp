#include "host/table/internal.h"
#include "host/table/nodes.h"

namespace host {
namespace {

HostAtom *Create(std::int32_t type) {
    return Guarded<HostAtom *>(nullptr, [=]() -> HostAtom * { return Object::Create(type).release(); });
}

void GetVector(const HostAtom *atom, std::int32_t which, TableVector *out) {
    if (out == nullptr) return;
    const Object *object = AsObject(atom);
    const Transform transform = object != nullptr ? object->GetTransform() : Transform();
    switch (which) {
        case TABLE_ABS_POSITION:
            *out = transform.AbsPosition();
            break;
        case TABLE_ABS_SCALE:
            *out = transform.AbsScale();
            break;
        case TABLE_ABS_ROTATION:
            *out = transform.AbsRotation();
            break;
        case TABLE_FROZEN_POSITION:
            *out = transform.frozen_position;
            break;
        case TABLE_FROZEN_SCALE:
            *out = transform.frozen_scale;
            break;
        case TABLE_FROZEN_ROTATION:
            *out = transform.frozen_rotation;
            break;
        case TABLE_REL_POSITION:
            *out = transform.position;
            break;
        case TABLE_REL_SCALE:
            *out = transform.scale;
            break;
        case TABLE_REL_ROTATION:
            *out = transform.rotation;
            break;
        default:
            *out = {0, 0, 0};
            break;
    }
}

void SetVector(HostAtom *atom, std::int32_t which, const TableVector *value) {
    Object *object = AsObject(atom);
    if (object == nullptr || value == nullptr) return;
    Transform transform = object->GetTransform();
    switch (which) {
        case TABLE_ABS_POSITION:
            transform.SetAbsPosition(*value);
            break;
        case TABLE_ABS_SCALE:
            transform.SetAbsScale(*value);
            break;
        case TABLE_ABS_ROTATION:
            transform.SetAbsRotation(*value);
            break;
        case TABLE_FROZEN_POSITION:
            transform.frozen_position = *value;
            break;
        case TABLE_FROZEN_SCALE:
            transform.frozen_scale = *value;
            break;
        case TABLE_FROZEN_ROTATION:
            transform.frozen_rotation = *value;
            break;
        case TABLE_REL_POSITION:
            transform.position = *value;
            break;
        case TABLE_REL_SCALE:
            transform.scale = *value;
            break;
        case TABLE_REL_ROTATION:
            transform.rotation = *value;
            break;
        default:
            return;
    }
    object->SetTransform(transform);
}

void LocalMatrix(const HostAtom *atom, TableMatrix *out) {
    const Object *object = AsObject(atom);
    if (out != nullptr) *out = object != nullptr ? object->LocalMatrix() : kIdentity;
}
void SetLocalMatrix(HostAtom *atom, const TableMatrix *matrix) {
    Object *object = AsObject(atom);
    if (object != nullptr && matrix != nullptr) object->SetLocalMatrix(*matrix);
}
void GlobalMatrix(const HostAtom *atom, TableMatrix *out) {
    const Object *object = AsObject(atom);
    if (out != nullptr) *out = object != nullptr ? object->GlobalMatrix() : kIdentity;
}
void SetGlobalMatrix(HostAtom *atom, const TableMatrix *matrix) {
    Object *object = AsObject(atom);
    if (object != nullptr && matrix != nullptr) object->SetGlobalMatrix(*matrix);
}
void ParentMatrix(const HostAtom *atom, TableMatrix *out) {
    const Object *object = AsObject(atom);
    if (out != nullptr) *out = object != nullptr ? object->ParentMatrix() : kIdentity;
}
// Relative and frozen values and the order: the local transform becomes equal, whatever the parents are.
void CopyMatrix(const HostAtom *atom, HostAtom *destination) {
    const Object *source = AsObject(atom);
    Object *object = AsObject(destination);
    if (source != nullptr && object != nullptr) object->SetTransform(source->GetTransform());
}

std::int32_t RotationOrder(const HostAtom *atom) {
    const Object *object = AsObject(atom);
    return object != nullptr ? object->GetTransform().order : kOrderHpb;
}
void SetRotationOrder(HostAtom *atom, std::int32_t order) {
    Object *object = AsObject(atom);
    if (object == nullptr || order < 0 || order > kOrderHpb) return;
    Transform transform = object->GetTransform();
    transform.order = order;
    object->SetTransform(transform);
}

HostAtom *FirstTag(const HostAtom *atom) {
    const Object *object = AsObject(atom);
    return object != nullptr ? object->FirstTag() : nullptr;
}
HostAtom *FindTag(const HostAtom *atom, std::int32_t type, std::int32_t number) {
    const Object *object = AsObject(atom);
    return object != nullptr ? object->FindTag(type, number) : nullptr;
}
void InsertTag(HostAtom *atom, HostAtom *tag, HostAtom *predecessor) {
    Object *object = AsObject(atom);
    if (object != nullptr) object->InsertTag(AsTag(tag), AsTag(predecessor));
}
HostAtom *CreateTag(std::int32_t type) {
    return Guarded<HostAtom *>(nullptr, [=]() -> HostAtom * { return Tag::Create(type).release(); });
}
HostAtom *TagObject(const HostAtom *atom) {
    const Tag *tag = AsTag(atom);
    return tag != nullptr ? tag->GetObject() : nullptr;
}

const ObjectTable kEntries = {Create,          GetVector,    SetVector,  LocalMatrix,   SetLocalMatrix,   GlobalMatrix,
                              SetGlobalMatrix, ParentMatrix, CopyMatrix, RotationOrder, SetRotationOrder, FirstTag,
                              FindTag,         InsertTag,    CreateTag,  TagObject};

}  // namespace

const ObjectTable *ObjectEntries() { return &kEntries; }

}  // namespace host
