// The camera's motion written down a second time, in plain numbers: nothing of the module, of the host only its noise.
// Every formula stands for itself, one component at a time; curves are solved by bisection.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <vector>

#include "tests/support/shake_model.h"

namespace model {

using Triple = std::array<double, 3>;

// Parameters by id; switches are 0 or 1.
struct MotionSettings {
    std::map<int, double> values;
    std::int64_t interval = 0;           // of the jolts, whole frames; 0 = none
    std::vector<std::int64_t> triggers;  // frames
    double operator()(int id) const {
        const auto found = values.find(id);
        return found == values.end() ? 0 : found->second;
    }
};

// Position and distance in scene units, angles (heading, pitch, bank) in radians, focal length in millimetres.
struct Pose {
    Triple position, angles;
    double focal_length, focus_distance;
};

struct MotionInput {
    Pose camera;
    std::optional<Triple> target, focus_object;  // where they are
};

// A value that a filter moves to its goal, and what it carries over.
struct FilterState {
    double value = 0, carry = 0;
};

struct SpringState {
    bool has_output = false;
    Triple output{}, input{}, velocity{};
    double distance = 0, stiffness_fade = 0, damping_fade = 0;
    bool moving = false;
};

struct JoltState {
    double target = 0, envelope = 0, carry = 0, previous = 0;
    std::array<FilterState, 3> filter;
    Triple offset{};
};

class Motion {
  public:
    Motion(const MotionSettings &settings, std::int64_t start_frame) : set_(settings), start_frame_(start_frame) {}
    MotionSettings &Settings() { return set_; }

    // The start frame, the frame after the last one, and any other frame.
    Pose Restart(const MotionInput &input);
    Pose Next(std::int64_t frame, const MotionInput &input) { return Evaluate(frame, input, false); }
    Pose Jump(std::int64_t frame, const MotionInput &input);

  private:
    enum SpringName { kPositionSpring, kRotationSpring, kTargetSpring, kZoomSpring, kFocusSpring, kSprings };

    void Reset(const MotionInput &input);
    Pose Evaluate(std::int64_t frame, const MotionInput &input, bool catching_up);
    double Zoom(bool first, double focal_length);
    Triple Position(bool without_past, const Triple &input);
    Triple Rotation(bool without_past, const MotionInput &input, const Triple &position);
    double Focus(bool first, const MotionInput &input, const Triple &position);
    void Jolts(std::int64_t frame);
    bool JoltHits(std::int64_t frame) const;
    void Jolt(JoltState *jolt, bool hit, double intensity, const Triple &noise, const Triple &sizes);

    bool Aims(const MotionInput &input) const { return set_(6018) == 1 && input.target.has_value(); }
    std::int32_t WholeOffset() const { return static_cast<std::int32_t>(set_(6151)); }
    double Seed() const { return static_cast<double>(static_cast<std::int64_t>(set_(6142))); }
    ClockInput Rates() const { return {Seed(), set_(6152), set_(6149), set_(6132), set_(6138)}; }

    Triple PlainSpring(SpringName name, const Triple &input, double amount, double fade);
    Triple AngleSpring(SpringName name, const Triple &input, double amount, double fade);
    Triple MoveSpring(SpringState *spring, Triple input, double amount, double fade, bool angles);

    MotionSettings set_;
    std::int64_t start_frame_;
    Clocks clocks_;
    std::array<FilterState, 3> position_, rotation_, position_shake_, rotation_shake_;
    FilterState zoom_, focus_, zoom_drift_, focus_drift_;
    std::array<SpringState, kSprings> springs_;
    JoltState position_jolt_, rotation_jolt_;
    Triple previous_angles_{};
};

// Axes (x, y, z) of the camera with these angles.
std::array<Triple, 3> AxesOf(const Triple &hpb);

}  // namespace model
