// The parameters' facts, typed a second time: labels, units, limits, sliders, steps and defaults.
#pragma once

#include <cstdint>
#include <optional>

namespace parameter_rows {

constexpr std::int32_t kPercent = 0x66706374, kDegree = 0x66646772, kFrames = 0x6666726D;  // 'fpct', 'fdgr', 'ffrm'
constexpr double kRightAngle = 1.5707963267948966, kOneDegree = 0.017453292519943295;
constexpr std::nullopt_t kNone = std::nullopt;
using Number = std::optional<double>;

struct RealRow {
    std::int32_t id;
    const char *label;
    std::int32_t unit;
    Number minimum, maximum, slider_minimum, slider_maximum;
    double step;
    Number preset;
};

inline const RealRow kReals[] = {
    {6020, "Position Intensity", kPercent, kNone, kNone, 0, 2, 0.01, 1},
    {6021, "Rotation Intensity", kPercent, kNone, kNone, 0, 2, 0.01, 1},
    {6022, "Overall Scale", kPercent, kNone, kNone, 0, 10, 0.01, 1},

    {6155, "Initial Pos Smooth", kPercent, 0, 1, 0, 1, 0.01, 0.25},
    {6153, "Initial Pos Overshoot", kPercent, 0, 1, 0, 1, 0.01, 0.25},
    {6154, "Overshoot Fade", kPercent, 0, 1, 0, 1, 0.01, 0.5},
    {6156, "Initial Rot Smooth", kPercent, 0, 1, 0, 1, 0.01, 0.25},
    {6034, "Initial Rot Overshoot", kPercent, 0, 1, 0, 1, 0.01, 0.25},
    {6035, "Overshoot Fade", kPercent, 0, 1, 0, 1, 0.01, 0.5},

    {6024, "Position Slow", kPercent, kNone, kNone, 0, 2, 0.01, 0},
    {6025, "Position Medium", kPercent, kNone, kNone, 0, 2, 0.01, 0},
    {6026, "Position Fast", kPercent, kNone, kNone, 0, 2, 0.01, 0},
    {6028, "Rotation Slow", kDegree, kNone, kNone, 0, kRightAngle, kOneDegree, 0},
    {6029, "Rotation Medium", kDegree, kNone, kNone, 0, kRightAngle, kOneDegree, 0},
    {6030, "Rotation Fast", kDegree, kNone, kNone, 0, kRightAngle, kOneDegree, 0},
    {6158, "Shake Smooth", kPercent, 0, 1, 0, 1, 0.01, 0.25},

    {6037, "Jolt Pos Intensity", kPercent, 0, kNone, 0, 2, 0.01, 0.05},
    {6144, "Jolt Rot Intensity", kPercent, kNone, kNone, 0, 2, 0.01, 0.15},
    {6140, "Jolt Falloff", kPercent, 0, kNone, 0, 1, 0.01, 0.1},
    {6170, "Jolt Smooth", kPercent, 0, 1, 0, 1, 0.01, 0.25},

    {6161, "Target Smooth", kPercent, 0, 1, 0, 1, 0.01, 0.25},
    {6071, "Overshoot Target", kPercent, 0, 1, 0, 1, 0.01, 0.25},
    {6072, "Overshoot Target Fade", kPercent, 0, 1, 0, 1, 0.01, 0.5},

    {6162, "Zoom Smooth", kPercent, 0, 1, 0, 1, 0.01, 0.25},
    {6053, "Overshoot Zoom", kPercent, 0, 1, 0, 1, 0.01, 0.25},
    {6054, "Overshoot Zoom Fade", kPercent, 0, 1, 0, 1, 0.01, 0.5},
    {6134, "Zoom Drift Slow", kPercent, 0, kNone, 0, 1, 0.01, 0},
    {6135, "Zoom Drift Medium", kPercent, 0, kNone, 0, 1, 0.01, 0},
    {6136, "Zoom Drift Fast", kPercent, 0, kNone, 0, 1, 0.01, 0},
    {6138, "Zoom Speed", kPercent, 0, kNone, 0, 2, 0.01, 1},
    {6165, "Zoom Smooth", kPercent, 0, 1, 0, 1, 0.01, 0.25},

    {6064, "Focus Smoothing", kPercent, 0, 1, 0, 1, 0.01, 0.25},
    {6063, "Overshoot Focus", kPercent, 0, 1, 0, 1, 0.01, 0.25},
    {6163, "Overshoot Focus Fade", kPercent, 0, 1, 0, 1, 0.01, 0.5},
    {6128, "Focus Drift Slow", 0, 0, 1000, 0, 10, 0.25, 0},
    {6129, "Focus Drift Medium", 0, 0, 1000, 0, 10, 0.25, 0},
    {6130, "Focus Drift Fast", 0, 0, 1000, 0, 10, 0.25, 0},
    {6132, "Focus Speed", kPercent, 0, 1000, 0, 2, 0.01, 1},
    {6059, "Focus Smooth", kPercent, 0, 100, 0, 1, 0.01, 0.25},

    {6142, "Seed", 0, 0, 99999, kNone, kNone, 1, 12345},
    {6151, "Time Offset", kFrames, kNone, kNone, kNone, kNone, 1, 0},
    {6152, "Shake Speed", kPercent, 0, kNone, 0, 2, 0.01, 1},
    {6149, "Speed Variation", kPercent, 0, 1, 0, 1, 0.01, kNone},

    {6076, "X", kPercent, 0, 1000, 0, 2, 0.01, 1},
    {6077, "Y", kPercent, 0, 1000, 0, 2, 0.01, 1},
    {6078, "Z", kPercent, 0, 1000, 0, 2, 0.01, 1},
    {6100, "H", kPercent, 0, kNone, 0, 2, 0.01, 1},
    {6101, "P", kPercent, 0, kNone, 0, 2, 0.01, 1},
    {6102, "B", kPercent, 0, kNone, 0, 2, 0.01, 1},
};

struct LabelRow {
    std::int32_t id;
    const char *label;
};

inline const LabelRow kToggles[] = {{6010, "Pos X"},  {6011, "Pos Y"}, {6012, "Pos Z"}, {6013, "Rot H"},
                                    {6014, "Rot P "}, {6015, "Rot B"}, {6016, "Zoom "}, {6017, "Focus "},
                                    {6018, "Target"}, {6145, "Jolt"}};
inline const LabelRow kLinks[] = {{6001, "Input Camera"}, {6068, "Target Object"}, {6057, "Focus Object"}};
inline const LabelRow kCycles[] = {{5806, "Category"}, {10028, "Preset"}};
inline const LabelRow kButtons[] = {{6172, "?"},
                                    {6003, "Save"},
                                    {6005, "Delete"},
                                    {6184, "Coffee Cup"},
                                    {6185, "Human"},
                                    {6186, "Car"},
                                    {6187, "House"},
                                    {6188, "Skyscraper"},
                                    {6042, "Zero Pos"},
                                    {6043, "Zero Rot"},
                                    {6174, "Zero Initials"},
                                    {6004, "Randomize Seeds"},
                                    {6041, "I'm Feeling Lucky"},
                                    {6046, "Quick Bake"},
                                    {6175, "Brute Force Bake"},
                                    {6047, "Un-Bake"},
                                    {6069, "Create Target Object"},
                                    {6058, "Create Focus Object"},
                                    {6171, "Export Current"},
                                    {10033, "Export All"},
                                    {6176, "Preset Path"},
                                    {6182, "Reset Path"}};

}  // namespace parameter_rows
