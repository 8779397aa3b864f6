#include "engine/settings.h"

#include <gtest/gtest.h>

#include "tests/engine/plain_host.h"

namespace {

using namespace engine;
using namespace engine_test;

TEST(Settings, AreNothingUntilTheyAreSet) {
    const Settings s;
    EXPECT_TRUE(IsNothing(s.position_intensity, s.rotation_intensity, s.overall_scale));
    EXPECT_TRUE(IsNothing(s.use_x, s.use_y, s.use_z, s.use_h, s.use_p, s.use_b, s.use_zoom, s.use_focus, s.use_target,
                          s.use_jolt));
    EXPECT_TRUE(IsNothing(s.position_smooth, s.position_overshoot, s.position_overshoot_fade));
    EXPECT_TRUE(IsNothing(s.rotation_smooth, s.rotation_overshoot, s.rotation_overshoot_fade));
    EXPECT_TRUE(IsNothing(s.target_smooth, s.target_overshoot, s.target_overshoot_fade));
    EXPECT_TRUE(IsNothing(s.position_slow, s.position_medium, s.position_fast));
    EXPECT_TRUE(IsNothing(s.rotation_slow, s.rotation_medium, s.rotation_fast, s.shake_smooth));
    EXPECT_TRUE(IsNothing(s.jolt_position_intensity, s.jolt_rotation_intensity, s.jolt_falloff, s.jolt_smooth));
    EXPECT_TRUE(IsNothing(s.zoom_smooth, s.zoom_overshoot, s.zoom_overshoot_fade));
    EXPECT_TRUE(IsNothing(s.zoom_drift_slow, s.zoom_drift_medium, s.zoom_drift_fast, s.zoom_drift_smooth, s.zoom_rate));
    EXPECT_TRUE(IsNothing(s.focus_smooth, s.focus_overshoot, s.focus_overshoot_fade));
    EXPECT_TRUE(
        IsNothing(s.focus_drift_slow, s.focus_drift_medium, s.focus_drift_fast, s.focus_drift_smooth, s.focus_rate));
    EXPECT_TRUE(IsNothing(s.seed, s.time_offset, s.speed, s.speed_variation));
    EXPECT_TRUE(IsNothing(s.ratio_x, s.ratio_y, s.ratio_z, s.ratio_h, s.ratio_p, s.ratio_b));
}

TEST(Settings, CountTheWholePartOfASeed) {
    Settings s;
    s.seed = 4711.9;
    EXPECT_EQ(SeedOf(s), 4711);
}

TEST(Settings, MeasureTheSceneByFifteenHundredthsOfItsScale) {
    Settings s;
    s.overall_scale = 20;
    EXPECT_EQ(SceneScale(s), 3);
    EXPECT_EQ(kSceneUnitsAtScaleOne, 1000);
}

}  // namespace
