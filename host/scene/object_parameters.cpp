// The parameters of objects that live in their transform or are computed from others.
#include <cmath>
#include <optional>

#include "host/scene/object.h"
#include "host/value/descid.h"
#include "host/value/radians.h"

namespace host {
namespace {

// The number that a component's id names; null for an id that names none.
double *ComponentOf(Vector *v, std::int32_t component) {
    switch (component) {
        case kVectorX:
            return &v->x;
        case kVectorY:
            return &v->y;
        case kVectorZ:
            return &v->z;
        default:
            return nullptr;
    }
}

// The plain vectors of a transform; null for any other parameter.
Vector *StoredVector(Transform *transform, std::int32_t id) {
    switch (id) {
        case kParamRelPosition:
            return &transform->position;
        case kParamRelRotation:
            return &transform->rotation;
        case kParamRelScale:
            return &transform->scale;
        case kParamFrozenPosition:
            return &transform->frozen_position;
        case kParamFrozenRotation:
            return &transform->frozen_rotation;
        case kParamFrozenScale:
            return &transform->frozen_scale;
        default:
            return nullptr;
    }
}

std::optional<Vector> ComputedVector(const Object &object, std::int32_t id) {
    const Transform &transform = object.GetTransform();
    switch (id) {
        case kParamGlobalPosition:
            return object.GlobalMatrix().off;
        case kParamGlobalRotation:
            return MatrixToHpb(object.GlobalMatrix(), transform.order);
        case kParamAbsPosition:
            return transform.AbsPosition();
        case kParamAbsRotation:
            return transform.AbsRotation();
        case kParamAbsScale:
            return transform.AbsScale();
        default:
            return std::nullopt;
    }
}

void SetComputedVector(Object *object, std::int32_t id, const Vector &v) {
    Transform transform = object->GetTransform();
    Matrix global = object->GlobalMatrix();
    switch (id) {
        case kParamGlobalPosition:
            global.off = v;
            object->SetGlobalMatrix(global);
            return;
        case kParamGlobalRotation: {
            const Matrix turned = HpbToMatrix(v, transform.order);
            object->SetGlobalMatrix({global.off, turned.v1 * Length(global.v1), turned.v2 * Length(global.v2),
                                     turned.v3 * Length(global.v3)});
            return;
        }
        case kParamAbsPosition:
            transform.SetAbsPosition(v);
            break;
        case kParamAbsRotation:
            transform.SetAbsRotation(v);
            break;
        case kParamAbsScale:
            transform.SetAbsScale(v);
            break;
        default:
            return;
    }
    object->SetTransform(transform);
}

bool IsTransformVector(std::int32_t id) {
    Transform none;
    return StoredVector(&none, id) != nullptr || id == kParamGlobalPosition || id == kParamGlobalRotation ||
           (id >= kParamAbsPosition && id <= kParamAbsScale);
}

}  // namespace

bool Object::IsVirtualParameter(const TableDescID &id) const {
    const std::int32_t first = LevelId(id, 0);
    return IsTransformVector(first) || first == kParamRotationOrder || (first == kCameraFov && Type() == kTypeCamera) ||
           Node::IsVirtualParameter(id);
}

bool Object::GetVirtualParameter(const TableDescID &id, host::Data *out) const {
    const std::int32_t first = LevelId(id, 0);
    if (IsTransformVector(first)) {
        Transform transform = transform_;
        const Vector *stored = StoredVector(&transform, first);
        Vector v = stored != nullptr ? *stored : ComputedVector(*this, first).value_or(Vector{0, 0, 0});
        if (id.depth == 1) {
            *out = host::Data(v);
            return true;
        }
        const double *component = id.depth == 2 ? ComponentOf(&v, LevelId(id, 1)) : nullptr;
        if (component != nullptr) *out = host::Data(*component);
        return component != nullptr;
    }
    if (id.depth == 1 && first == kParamRotationOrder) {
        *out = host::Data(transform_.order);
        return true;
    }
    if (id.depth == 1 && first == kCameraFov && Type() == kTypeCamera) {
        *out = host::Data(2 * std::atan2(Data().Real(kCameraAperture), 2 * Data().Real(kCameraFocalLength)));
        return true;
    }
    return Node::GetVirtualParameter(id, out);
}

bool Object::SetVirtualParameter(const TableDescID &id, const host::Data &data) {
    const std::int32_t first = LevelId(id, 0);
    if (IsTransformVector(first)) {
        Vector *stored = StoredVector(&transform_, first);
        Vector v{0, 0, 0};
        if (id.depth == 1 && data.type == kDataVector) {
            v = data.GetVector();
        } else if (id.depth == 2 && IsNumber(data)) {
            v = stored != nullptr ? *stored : ComputedVector(*this, first).value_or(v);
            double *component = ComponentOf(&v, LevelId(id, 1));
            if (component == nullptr) return false;
            *component = data.Real();
        } else {
            return false;
        }
        if (stored == nullptr) {
            SetComputedVector(this, first, v);
            return true;
        }
        *stored = v;
        SetDirty(kDirtyMatrix);
        return true;
    }
    if (id.depth == 1 && first == kParamRotationOrder) {
        if (!IsNumber(data) || data.Whole() < 0 || data.Whole() > kOrderHpb) return false;
        transform_.order = data.Whole();
        SetDirty(kDirtyMatrix);
        return true;
    }
    if (id.depth == 1 && first == kCameraFov && Type() == kTypeCamera) {
        // The sensor stays, the focal length follows.
        const double angle = data.Real();
        if (!IsNumber(data) || !(angle > 0 && angle < kPi)) return false;
        Data().SetReal(kCameraFocalLength, Data().Real(kCameraAperture) / (2 * std::tan(angle / 2)));
        return true;
    }
    return Node::SetVirtualParameter(id, data);
}

}  // namespace host
