// What the user sets, as it is stored: fractions for percentages, radians for angles, scene units, frames. A field for
// each parameter that moves a frame; the table of parameters says which is whose. What a layer makes of them stands in
// the layer's file.
#pragma once

#include "engine/frames.h"
#include "engine/numbers.h"

namespace engine {

struct Settings {
    double position_intensity = 0.0, rotation_intensity = 0.0, overall_scale = 0.0;
    bool use_x = false, use_y = false, use_z = false, use_h = false, use_p = false, use_b = false, use_zoom = false,
         use_focus = false, use_target = false, use_jolt = false;

    double position_smooth = 0.0, position_overshoot = 0.0, position_overshoot_fade = 0.0;
    double rotation_smooth = 0.0, rotation_overshoot = 0.0, rotation_overshoot_fade = 0.0;
    double target_smooth = 0.0, target_overshoot = 0.0, target_overshoot_fade = 0.0;

    double position_slow = 0.0, position_medium = 0.0, position_fast = 0.0;
    double rotation_slow = 0.0, rotation_medium = 0.0, rotation_fast = 0.0;
    double shake_smooth = 0.0;

    double jolt_position_intensity = 0.0, jolt_rotation_intensity = 0.0, jolt_falloff = 0.0, jolt_smooth = 0.0;
    Time jolt_interval;

    double zoom_smooth = 0.0, zoom_overshoot = 0.0, zoom_overshoot_fade = 0.0;
    double zoom_drift_slow = 0.0, zoom_drift_medium = 0.0, zoom_drift_fast = 0.0, zoom_drift_smooth = 0.0;
    double zoom_rate = 0.0;

    double focus_smooth = 0.0, focus_overshoot = 0.0, focus_overshoot_fade = 0.0;
    double focus_drift_slow = 0.0, focus_drift_medium = 0.0, focus_drift_fast = 0.0, focus_drift_smooth = 0.0;
    double focus_rate = 0.0;

    double seed = 0.0, time_offset = 0.0, speed = 0.0, speed_variation = 0.0;
    double ratio_x = 0.0, ratio_y = 0.0, ratio_z = 0.0, ratio_h = 0.0, ratio_p = 0.0, ratio_b = 0.0;
};

// Of a seed, its whole part counts.
inline double SeedOf(const Settings &settings) { return Truncate(settings.seed); }

inline constexpr double kSceneUnitsAtScaleOne = 1000.0;
// The scene's size against the slider: 15 % of it.
inline double SceneScale(const Settings &settings) { return 0.15 * settings.overall_scale; }

}  // namespace engine
