// A camera move: what every format is read into and written from.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/value/radians.h"
#include "host/value/vector.h"
#include "library/moves/camera_traits.h"
#include "library/moves/frame_rate.h"

namespace tremolux {

// The scene's vectors are plain structs: their operators are found here.
using host::operator*;
using host::operator+;
using host::operator-;
using host::operator==;

// One frame of a camera in the scene: left-handed, Y up, looking along +Z.
struct CameraSample {
    host::Vector position{0, 0, 0};  // scene units (centimetres)
    host::Vector angles{0, 0, 0};    // heading, pitch, bank; radians
    double focal_length = 36;        // millimetres
    double focus_distance = 2000;    // scene units
};

// Width of the film back where nothing says another, millimetres.
constexpr double kApertureWidth = 36;

struct GyroRecording;

struct CameraMove {
    std::int64_t first_frame = 0;
    FrameRate rate;
    std::vector<CameraSample> samples;  // one for each frame from the first on
    double aperture_width = kApertureWidth;
    std::optional<double> aperture_height = std::nullopt;  // millimetres; else as the picture's shape makes it
    CameraTraits traits = {};
    // What the reader had to decide, or passed over: a line each, for the user.
    std::vector<std::string> notes = {};
    std::shared_ptr<const GyroRecording> recorded = nullptr;  // by a rate sensor: what the move was made of
    std::int64_t LastFrame() const { return first_frame + static_cast<std::int64_t>(samples.size()) - 1; }
};

// What a file may hold.
constexpr std::size_t kMaxFrames = 1000000;
constexpr std::int64_t kMaxFrameNumber = 10000000;  // either side of 0: as far as a run-up to a frame goes
constexpr double kMaxNumber = 1e12;
constexpr double kMinFocalLength = 1, kMaxFocalLength = 10000;  // millimetres

// A film back's sides, in millimetres. What an orthographic camera sees is as large as its film back: a coin, or a country.
struct ApertureLimits {
    double least, most;
};
constexpr double kMinAperture = 1, kMaxAperture = 2000;
constexpr ApertureLimits LimitsOfAperture(bool is_orthographic) {
    return is_orthographic ? ApertureLimits{1e-6, kMaxNumber} : ApertureLimits{kMinAperture, kMaxAperture};
}

// A sample that was made between others, or that a shake sent far, may lie beyond what a camera can have.
CameraSample WithinLimits(CameraSample sample);

// A line about the frames that lie beyond what a camera can have, and are held within it where they are written; empty:
// there are none.
std::string BeyondLimits(const CameraMove &move);

using host::kRadiansPerDegree;

// Replaces angles by those of the same rotation that lie closest to the frame before, so that no channel leaps by a
// turn. The first frame keeps its own.
void MakeContinuous(std::vector<CameraSample> *samples);

}  // namespace tremolux
