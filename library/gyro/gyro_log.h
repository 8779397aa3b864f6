// What a rate sensor beside a camera recorded, whatever the file. Axes are the picture's: x right, y up, z backwards,
// right-handed; times are seconds of the film, or of the recording.
#pragma once

#include <Eigen/Geometry>
#include <optional>
#include <string>
#include <vector>

#include "library/moves/frame_rate.h"

namespace tremolux {

struct GyroSample {
    double time;
    Eigen::Vector3d value;
};

struct GyroOrientation {
    double time;
    Eigen::Quaterniond rotation;  // from the camera's axes to those of a world
};

// Times rise within each list; every list may be empty.
struct GyroLog {
    std::string camera;                         // its name; empty: not said
    std::vector<GyroSample> rates;              // radians a second
    std::vector<GyroSample> accelerations;      // metres a second squared; at rest they point up
    std::vector<GyroSample> gravity;            // the direction down, as the camera worked it out
    std::vector<GyroOrientation> orientations;  // as the camera worked them out
    bool is_upright = false;                    // the orientations' world has its y up
    std::optional<FrameRate> frame_rate;        // the film's
    std::optional<double> readout_ms;           // from the first line of a picture to the last
    std::vector<std::string> notes;             // what was assumed or left out, a line each
};

constexpr double kStandardGravity = 9.80665;  // metres a second squared

// Leaves out samples whose times do not rise, and says so in a note.
void KeepRising(GyroLog *log);

// No sensor measures more; what does is another unit, or no recording.
constexpr double kMaxAngularRate = 1e4, kMaxAcceleration = 1e6;

}  // namespace tremolux
