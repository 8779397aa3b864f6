#include "library/gyro/gyro_move.h"

#include <cmath>
#include <memory>

#include "library/failure.h"
#include "library/formats/numbers.h"
#include "library/formats/right_handed.h"
#include "library/gyro/orientation.h"

namespace tremolux {
namespace {

CameraSample SampleOf(const Eigen::Quaterniond &rotation) {
    const Eigen::Matrix3d axes = rotation.toRotationMatrix();
    const auto column = [&axes](int i) { return host::Vector{axes(0, i), axes(1, i), axes(2, i)}; };
    CameraSample sample;
    SetFromRightHanded({{0, 0, 0}, column(0), column(1), column(2)}, &sample);
    return sample;
}

// Where north is nothing says.
void StartAhead(std::vector<CameraSample> *samples) {
    const double heading = samples->front().angles.x;
    for (CameraSample &sample : *samples) sample.angles.x -= heading;
}

}  // namespace

CameraMove MoveOfGyro(const std::string &file, GyroLog log, const FormatOptions &options) {
    const auto recording = std::make_shared<GyroRecording>(GyroRecording{std::move(log), {}});
    recording->motion = MotionOf(recording->log);
    const std::vector<GyroOrientation> &orientations = recording->motion.orientations;
    CameraMove move;
    move.aperture_width = options.aperture_width;
    move.rate = recording->log.frame_rate.value_or(options.rate.value_or(FrameRate()));
    // A film's times are its frames' own.
    const double start = recording->log.frame_rate ? 0 : orientations.front().time, rate = move.rate.PerSecond();
    // The last orientation may be a rounding before its frame.
    constexpr double kRounding = 1e-6;
    const double frames = std::floor((orientations.back().time - start) * rate + kRounding) + 1;
    if (!(frames >= 1 && frames <= static_cast<double>(kMaxFrames)))
        throw Failure(kExitInput, file + ": found motion from " + ShortNumber(start) + " to " +
                                      ShortNumber(orientations.back().time) + " s, expected at most " +
                                      std::to_string(kMaxFrames) + " frames");
    const auto count = static_cast<std::size_t>(frames);
    for (std::size_t frame = 0; frame < count; ++frame)
        move.samples.push_back(SampleOf(OrientationAt(orientations, start + static_cast<double>(frame) / rate)));
    if (!recording->log.is_upright) StartAhead(&move.samples);
    MakeContinuous(&move.samples);
    move.notes = recording->log.notes;
    move.notes.insert(move.notes.end(), recording->motion.notes.begin(), recording->motion.notes.end());
    move.notes.emplace_back("a rate sensor knows no position and no lens: the camera turns in its place");
    move.recorded = recording;
    return move;
}

}  // namespace tremolux
