#include "library/fit/against.h"

#include "host/scene/angles.h"
#include "library/fit/fit.h"

namespace tremolux {
namespace {

CameraMove AddedAlone(const PlayedMotion &motion) {
    CameraMove added = motion.output;
    for (std::size_t i = 0; i < added.samples.size(); ++i) {
        const CameraSample &from = motion.input.samples[i];
        CameraSample &to = added.samples[i];
        to.position = to.position - from.position;
        to.angles = host::OptimalAngle(from.angles, to.angles) - from.angles;
    }
    return added;
}

}  // namespace

double DistanceFromRecording(const PlayedMotion &motion, const CameraMove &recording, const std::string &name) {
    const RecordedShake wanted = CutIntoParts(recording, name), found = CutIntoParts(AddedAlone(motion), "what was added");
    return DistanceOf(found.Levels(), wanted.Levels());
}

}  // namespace tremolux
