#include "library/formats/gltf_rate.h"

#include <algorithm>
#include <cmath>

#include "library/formats/gltf_track.h"

namespace tremolux {
namespace {

constexpr FrameRate kGltfRates[] = {{30, 1},       {24, 1},       {25, 1},       {60, 1},       {50, 1},       {48, 1},
                                     {24000, 1001}, {30000, 1001}, {60000, 1001}, {48000, 1001}, {100, 1},      {120, 1},
                                     {120000, 1001}, {240, 1}};
// In frames. The finer one first: two keys of 24 a second are frames of 23.976 by the coarser.
constexpr double kTolerances[] = {1e-5, 1e-3};

bool AreWholeFrames(const std::vector<double> &seconds, double rate, double tolerance) {
    return std::all_of(seconds.begin(), seconds.end(), [&](double time) {
        const double frame = time * rate;
        return std::abs(frame - std::round(frame)) <= tolerance + RoundingOfTime(time) * rate;
    });
}

}  // namespace

std::optional<FrameRate> FrameRateOfTimes(const std::vector<double> &seconds) {
    for (const double tolerance : kTolerances) {
        for (const FrameRate &rate : kGltfRates) {
            if (AreWholeFrames(seconds, rate.PerSecond(), tolerance)) return rate;
        }
    }
    return std::nullopt;
}

}  // namespace tremolux
