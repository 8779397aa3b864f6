// What a shake added to a camera on one frame, apart from where the camera is.
#pragma once

#include <Eigen/Geometry>

#include "library/moves/camera_move.h"

namespace tremolux {

// output position = input position + position
// output rotation = input rotation * turn, so that the turn is about the input camera's own axes
struct AddedMotionSample {
    host::Vector position{0, 0, 0};  // scene units, along the axes of the camera's parent
    Eigen::Quaterniond turn = Eigen::Quaterniond::Identity();
    double focal_length = 0;    // millimetres
    double focus_distance = 0;  // scene units
};

AddedMotionSample AddedTo(const CameraSample &input, const CameraSample &output);
// The angles are those nearest to the input's.
CameraSample PutOn(const CameraSample &input, const AddedMotionSample &added);

}  // namespace tremolux
