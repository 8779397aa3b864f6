#include "library/direction/added.h"

#include "host/scene/angles.h"
#include "library/moves/turns.h"

namespace tremolux {

AddedMotionSample AddedTo(const CameraSample &input, const CameraSample &output) {
    AddedMotionSample added;
    added.position = output.position - input.position;
    added.turn = RotationOf(input.angles).conjugate() * RotationOf(output.angles);
    if (added.turn.w() < 0) added.turn.coeffs() = -added.turn.coeffs();
    added.focal_length = output.focal_length - input.focal_length;
    added.focus_distance = output.focus_distance - input.focus_distance;
    return added;
}

CameraSample PutOn(const CameraSample &input, const AddedMotionSample &added) {
    CameraSample output;
    output.position = input.position + added.position;
    output.angles = host::OptimalAngle(input.angles, AnglesOf(RotationOf(input.angles) * added.turn));
    output.focal_length = input.focal_length + added.focal_length;
    output.focus_distance = input.focus_distance + added.focus_distance;
    return output;
}

}  // namespace tremolux
