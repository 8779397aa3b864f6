#include "tag/curvefeeder.h"

#include "lib_description.h"
#include "obase.h"
#include "ocamera.h"
#include "tag/hostmaths.h"
#include "tag/parameters.h"
#include "tag/scene.h"

namespace {

Bool HasKeys(CTrack *track) {
    CCurve *curve = track->GetCurve(CCURVE_CURVE, FALSE);
    return curve && curve->GetKeyCount() > 0;
}

Real ValueAt(CTrack *track, BaseDocument *doc, const BaseTime &time) {
    return track->GetValue(doc, time, doc->GetFps());
}

}  // namespace

ParameterCurves::ParameterCurves(BaseTag *tag) {
    for (CTrack *track = tag->GetFirstCTrack(); track; track = track->GetNext()) {
        const LONG id = track->GetDescriptionID()[0].id;
        if (HasKeys(track) && FindParameter(id)) animated_.push_back({id, track});
    }
}

Bool ParameterCurves::Read(BaseDocument *doc, const BaseTime &time, BaseContainer *data) const {
    for (const Animated &animated : animated_) {
        const Real value = ValueAt(animated.track, doc, time);
        switch (FindParameter(animated.id)->type) {
            case ParameterType::kReal:
                data->SetReal(animated.id, value);
                break;
            case ParameterType::kBool:
                data->SetBool(animated.id, engine::Truncate(value) != 0);
                break;
            case ParameterType::kTime:
                data->SetTime(animated.id, BaseTime(value));
                break;
            case ParameterType::kLink:
            case ParameterType::kButton:
            case ParameterType::kCycle:
            case ParameterType::kString:
                break;
        }
    }
    return !animated_.empty();
}

Matrix FrozenMatrix(BaseObject *object) {
    Matrix frozen = HPBToMatrix(object->GetFrozenRot(), ROTATIONORDER_HPB);
    frozen.off = object->GetFrozenPos();
    return frozen;
}

MovingObject::MovingObject(BaseObject *object) : object_(object), is_animated_(FALSE) {
    for (CTrack *track = object ? object->GetFirstCTrack() : NULL; track; track = track->GetNext()) {
        if (!HasKeys(track)) continue;
        const DescID id = track->GetDescriptionID();
        animated_.push_back({id[0].id, id.GetDepth() > 1 ? id[1].id : 0, track});
        if (id[0].id == ID_BASEOBJECT_REL_POSITION || id[0].id == ID_BASEOBJECT_REL_ROTATION) is_animated_ = TRUE;
    }
}

Vector MovingObject::ReadVector(LONG parameter, const Vector &present, BaseDocument *doc, const BaseTime &time) const {
    Vector value = present;
    for (const Animated &animated : animated_) {
        if (animated.parameter != parameter) continue;
        if (animated.component == VECTOR_X) value.x = ValueAt(animated.track, doc, time);
        if (animated.component == VECTOR_Y) value.y = ValueAt(animated.track, doc, time);
        if (animated.component == VECTOR_Z) value.z = ValueAt(animated.track, doc, time);
    }
    return value;
}

void MovingObject::Read(BaseDocument *doc, const BaseTime &time, engine::Vector3 *position,
                        engine::Vector3 *angles) const {
    if (!object_) return;
    Matrix global = object_->GetMg();
    if (is_animated_) {
        Matrix relative =
            HPBToMatrix(ReadVector(ID_BASEOBJECT_REL_ROTATION, object_->GetRelRot(), doc, time), ROTATIONORDER_HPB);
        relative.off = ReadVector(ID_BASEOBJECT_REL_POSITION, object_->GetRelPos(), doc, time);
        global = object_->GetUpMg() * FrozenMatrix(object_) * relative;
    }
    *position = FromHost(global.off);
    if (angles) *angles = FromHost(AnglesOf(global));
}

Real MovingObject::FocusDistance(BaseDocument *doc, const BaseTime &time) const {
    for (const Animated &animated : animated_)
        if (animated.parameter == CAMERAOBJECT_TARGETDISTANCE) return ValueAt(animated.track, doc, time);
    return ReadLens(object_, CAMERAOBJECT_TARGETDISTANCE);
}
