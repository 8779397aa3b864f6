#include "library/direction/direct.h"

#include "host/scene/angles.h"
#include "library/direction/added.h"
#include "library/moves/turns.h"

namespace tremolux {
namespace {

double Between(double from, double to, double share) { return from + (to - from) * share; }

CameraSample Blended(const CameraSample &input, const CameraSample &output, double share) {
    if (share == 0) return input;
    if (share == 1) return output;
    CameraSample blended;
    blended.position = input.position + (output.position - input.position) * share;
    blended.angles = host::OptimalAngle(
        output.angles, AnglesOf(RotationBetween(RotationOf(input.angles), RotationOf(output.angles), share)));
    blended.focal_length = Between(input.focal_length, output.focal_length, share);
    blended.focus_distance = Between(input.focus_distance, output.focus_distance, share);
    return blended;
}

CameraSample OnlyWanted(const CameraSample &input, CameraSample output, const Direction &direction) {
    if (!direction.position) output.position = input.position;
    if (!direction.rotation) output.angles = input.angles;
    if (!direction.lens) {
        output.focal_length = input.focal_length;
        output.focus_distance = input.focus_distance;
    }
    return output;
}

host::Vector AnglesThroughLens(const CameraSample &input, const CameraSample &output, const LensAware &lens) {
    const Eigen::Quaterniond turn = TurnThroughLens(AddedTo(input, output).turn, output.focal_length, lens);
    return host::OptimalAngle(output.angles, AnglesOf(RotationOf(input.angles) * turn));
}

}  // namespace

CameraMove Directed(const CameraMove &input, const CameraMove &output, const Direction &direction) {
    CameraMove directed = output;
    for (std::size_t i = 0; i < directed.samples.size(); ++i) {
        const CameraSample &from = input.samples[i];
        CameraSample to = OnlyWanted(from, output.samples[i], direction);
        if (direction.lens_aware && direction.rotation)
            to.angles = AnglesThroughLens(from, to, *direction.lens_aware);
        directed.samples[i] =
            Blended(from, to, ShareAt(direction.fade, output.first_frame + static_cast<std::int64_t>(i)));
    }
    return directed;
}

}  // namespace tremolux
