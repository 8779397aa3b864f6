#include "library/moves/camera_move.h"

#include <algorithm>

#include "host/scene/angles.h"

namespace tremolux {

CameraSample WithinLimits(CameraSample sample) {
    for (double *place : {&sample.position.x, &sample.position.y, &sample.position.z})
        *place = std::clamp(*place, -kMaxNumber, kMaxNumber);
    sample.focal_length = std::clamp(sample.focal_length, kMinFocalLength, kMaxFocalLength);
    sample.focus_distance = std::clamp(sample.focus_distance, 0.0, kMaxNumber);
    return sample;
}

void MakeContinuous(std::vector<CameraSample> *samples) {
    for (std::size_t i = 1; i < samples->size(); ++i) {
        (*samples)[i].angles = host::OptimalAngle((*samples)[i - 1].angles, (*samples)[i].angles);
    }
}

}  // namespace tremolux
