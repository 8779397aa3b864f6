#include "library/measures/motion.h"

#include <algorithm>
#include <cmath>

#include "host/scene/angles.h"
#include "library/measures/strayed.h"

namespace tremolux {
namespace {

constexpr std::size_t kLines = 3;
constexpr double kNearest = 1;  // scene units in front of the camera: what is closer has no place in the picture

void Measure(std::int64_t first_frame, double rate, Channel *channel) {
    double squares = 0, speed_squares = 0;
    const std::vector<double> &samples = channel->samples;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        squares += samples[i] * samples[i];
        if (i == 0 || std::abs(samples[i]) > channel->peak) {
            channel->peak = std::abs(samples[i]);
            channel->peak_frame = first_frame + static_cast<std::int64_t>(i);
        }
        if (i == 0) continue;
        const double speed = std::abs(samples[i] - samples[i - 1]) * rate;
        speed_squares += speed * speed;
        channel->speed_peak = std::max(channel->speed_peak, speed);
    }
    const double count = static_cast<double>(samples.size());
    channel->rms = std::sqrt(squares / count);
    channel->speed_rms = samples.size() > 1 ? std::sqrt(speed_squares / (count - 1)) : 0;
    channel->spectrum = MeasureSpectrum(samples, rate);
    for (std::size_t band = 0; band < kBands.size(); ++band)
        channel->band_rms[band] = BandRms(channel->spectrum, kBands[band].low, kBands[band].high);
    channel->lines = StrongestPeaks(channel->spectrum, kLines);
}

// Where the output camera sees what the input camera has in focus in the middle of its picture; pixels to the right and
// up. What has gone behind the camera stays where it was seen last.
void SeeTheFocus(const CameraSample &input, const CameraSample &output, double pixels_per_tangent, double *x,
                 double *y) {
    const host::Matrix from = host::HpbToMatrix(input.angles), to = host::HpbToMatrix(output.angles);
    const host::Vector point = input.position + from.v3 * std::max(input.focus_distance, kNearest);
    const host::Vector seen = point - output.position;
    const double depth = host::Dot(seen, to.v3);
    if (depth < kNearest) return;
    *x = host::Dot(seen, to.v1) / depth * pixels_per_tangent;
    *y = host::Dot(seen, to.v2) / depth * pixels_per_tangent;
}

}  // namespace

AddedMotion MeasureAddedMotion(const CameraMove &input, const CameraMove &output, int width) {
    AddedMotion motion;
    constexpr const char *kNames[] = {"X", "Y", "Z", "heading", "pitch", "bank"};
    for (std::size_t i = 0; i < 6; ++i) {
        motion.camera[i].name = kNames[i];
        motion.camera[i].unit = i < 3 ? "cm" : "deg";
    }
    motion.picture[0].name = "sideways";
    motion.picture[1].name = "up and down";
    for (Channel &channel : motion.picture) channel.unit = "px";

    double x = 0, y = 0, turn_squares = 0;
    const double rate = output.rate.PerSecond();
    for (std::size_t i = 0; i < output.samples.size(); ++i) {
        const CameraSample &from = input.samples[i], &to = output.samples[i];
        const host::Vector moved = to.position - from.position;
        const host::Vector turned =
            (host::OptimalAngle(from.angles, to.angles) - from.angles) * (1 / kRadiansPerDegree);
        const double values[] = {moved.x, moved.y, moved.z, turned.x, turned.y, turned.z};
        for (std::size_t c = 0; c < 6; ++c) motion.camera[c].samples.push_back(values[c]);
        SeeTheFocus(from, to, to.focal_length / output.aperture_width * width, &x, &y);
        motion.picture[0].samples.push_back(x);
        motion.picture[1].samples.push_back(y);
        if (i == 0) continue;
        const double speed = TurnBetween(output.samples[i - 1].angles, to.angles) * rate;
        turn_squares += speed * speed;
        motion.turn_peak = std::max(motion.turn_peak, speed);
    }
    if (output.samples.size() > 1)
        motion.turn_rms = std::sqrt(turn_squares / static_cast<double>(output.samples.size() - 1));
    for (Channel &channel : motion.camera) Measure(output.first_frame, rate, &channel);
    for (Channel &channel : motion.picture) Measure(output.first_frame, rate, &channel);
    const auto swaying = [](const Channel &channel) {
        return BandRms(channel.spectrum, kSickness.low, kSickness.high);
    };
    motion.sway = std::hypot(swaying(motion.picture[0]), swaying(motion.picture[1])) / width;
    motion.roll = swaying(motion.camera[5]);
    return motion;
}

}  // namespace tremolux
