// What parameters and objects are at a time, by their curves: the scene is not asked.
#pragma once

#include <vector>

#include "c4d.h"
#include "engine/vector.h"

// A tag's animated parameters.
class ParameterCurves {
  public:
    explicit ParameterCurves(BaseTag *tag);
    // Writes their values at that time over those in the container; FALSE when there are none. Links and texts stay.
    Bool Read(BaseDocument *doc, const BaseTime &time, BaseContainer *data) const;

  private:
    struct Animated {
        LONG id;
        CTrack *track;
    };
    std::vector<Animated> animated_;
};

// What an object's position and rotation are on top of: its frozen ones, in the parent.
Matrix FrozenMatrix(BaseObject *object);

// An object's place, under parents that stand still; NULL: none.
class MovingObject {
  public:
    explicit MovingObject(BaseObject *object);
    // Global; `angles` (HPB, radians) may be NULL. Nothing is written without an object.
    void Read(BaseDocument *doc, const BaseTime &time, engine::Vector3 *position, engine::Vector3 *angles) const;
    // Of a camera.
    Real FocusDistance(BaseDocument *doc, const BaseTime &time) const;

  private:
    Vector ReadVector(LONG parameter, const Vector &present, BaseDocument *doc, const BaseTime &time) const;

    struct Animated {
        LONG parameter, component;
        CTrack *track;
    };
    BaseObject *object_;
    std::vector<Animated> animated_;
    Bool is_animated_;  // in position or rotation
};
