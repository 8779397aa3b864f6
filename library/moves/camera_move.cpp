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

std::string BeyondLimits(const CameraMove &move) {
    std::size_t count = 0, first = 0;
    for (std::size_t i = move.samples.size(); i-- > 0;) {
        const CameraSample &sample = move.samples[i], held = WithinLimits(sample);
        if (held.position == sample.position && held.focal_length == sample.focal_length &&
            held.focus_distance == sample.focus_distance)
            continue;
        first = i;
        ++count;
    }
    if (count == 0) return {};
    const std::string frame = "frame " + std::to_string(move.first_frame + static_cast<std::int64_t>(first));
    return (count == 1 ? frame + " is" : std::to_string(count) + " frames, from " + frame + " on, are") +
           " beyond what a camera can have (a focal length from 1 to 10000 mm, a focus in front of it) and held within";
}

void MakeContinuous(std::vector<CameraSample> *samples) {
    for (std::size_t i = 1; i < samples->size(); ++i) {
        (*samples)[i].angles = host::OptimalAngle((*samples)[i - 1].angles, (*samples)[i].angles);
    }
}

}  // namespace tremolux
