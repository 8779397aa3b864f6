// The clocks between the container and the engine.
#include <cmath>
#include <vector>

#include "tag/motionstate.h"
#include "tag/state.h"
#include "tests/source/glue.h"

namespace {

constexpr LONG kClockKeys[] = {20000, 10051, 10052, 10053, 10054, 10055, 10056};

class StoredClocks : public WithGlue {
  protected:
    static void WriteClocks(const engine::Clocks &clocks, BaseContainer *data) {
        MotionState state;
        state.Read(*data, FALSE);
        state.memory.clocks = clocks;
        state.Write(MotionPart::kClocks, data);
    }
    static engine::Clocks ReadClocks(const BaseContainer &data) {
        MotionState state;
        state.Read(data, FALSE);
        return state.memory.clocks;
    }
    static engine::ClockSettings ReadClockRates(const BaseContainer &data) {
        MotionState state;
        state.Read(data, FALSE);
        return engine::ClockSettingsOf(state.settings);
    }
    // In the order of the keys.
    static std::vector<double> Listed(const engine::Clocks &c) {
        return {c.step, c.shake, c.focus, c.zoom_drift, c.jolt, c.auxiliary, c.zoom};
    }
};

TEST_F(StoredClocks, LieUnderTheirKeys) {
    const engine::Clocks clocks{1, 2, 3, 4, 5, 6, 7};
    BaseContainer data;
    WriteClocks(clocks, &data);
    EXPECT_EQ(data.GetReal(20000), clocks.step);
    EXPECT_EQ(data.GetReal(10051), clocks.shake);
    EXPECT_EQ(data.GetReal(10052), clocks.focus);
    EXPECT_EQ(data.GetReal(10053), clocks.zoom_drift);
    EXPECT_EQ(data.GetReal(10054), clocks.jolt);
    EXPECT_EQ(data.GetReal(10055), clocks.auxiliary);
    EXPECT_EQ(data.GetReal(10056), clocks.zoom);
    for (const LONG key : kClockKeys) EXPECT_EQ(data.GetType(key), DA_REAL) << key;
}

TEST_F(StoredClocks, ComeBackAsTheyWereWritten) {
    const engine::Clocks clocks{1.5, 0.1, 3e9, -4, 5, 6, 1e-300};
    BaseContainer data;
    WriteClocks(clocks, &data);
    const engine::Clocks read = ReadClocks(data);
    EXPECT_EQ(read.step, clocks.step);
    EXPECT_EQ(read.shake, clocks.shake);
    EXPECT_EQ(read.focus, clocks.focus);
    EXPECT_EQ(read.zoom_drift, clocks.zoom_drift);
    EXPECT_EQ(read.jolt, clocks.jolt);
    EXPECT_EQ(read.auxiliary, clocks.auxiliary);
    EXPECT_EQ(read.zoom, clocks.zoom);
}

TEST_F(StoredClocks, StartAtZeroWhereNoneIsStored) {
    for (const double clock : Listed(ReadClocks(BaseContainer()))) EXPECT_EQ(clock, 0);
}

TEST_F(StoredClocks, RestartAtZeroWhenTheyAreNotFinite) {
    for (const Real broken : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
        for (const LONG key : kClockKeys) {
            BaseContainer data;
            data.SetReal(key, broken);
            for (const double clock : Listed(ReadClocks(data))) EXPECT_EQ(clock, 0) << key;
        }
    }
}

TEST_F(StoredClocks, AreDrivenBySpeedVariationAndTheTwoRates) {
    BaseContainer data;
    data.SetReal(6152, 1.5);
    data.SetReal(6149, 0.5);
    data.SetReal(6132, 2);
    data.SetReal(6138, 3);
    data.SetReal(6142, 4711.9);
    const engine::ClockSettings rates = ReadClockRates(data);
    EXPECT_EQ(rates.speed, 1.5);
    EXPECT_EQ(rates.variation, 0.5);
    EXPECT_EQ(rates.focus_rate, 2);
    EXPECT_EQ(rates.zoom_rate, 3);
    EXPECT_EQ(rates.seed, 4711);
}

}  // namespace
