#include "engine/runup.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "tests/engine/plain_host.h"

namespace {

using namespace engine;
using namespace engine_test;

// The same on every frame, or faster by a tenth each frame; counts how often it is asked.
class Rates : public ClockSettingsOverTime {
  public:
    explicit Rates(const ClockSettings &settings, bool is_animated = false)
        : settings_(settings), is_animated_(is_animated) {}
    bool AreAnimated() const override { return is_animated_; }
    const ClockSettings &At(std::int32_t frame) override {
        if (asked++ == 0) first_asked = frame;
        last_asked = frame;
        now_ = settings_;
        if (is_animated_) now_.speed += 0.1 * frame;
        return now_;
    }
    int asked = 0;
    std::int32_t first_asked = 0, last_asked = 0;

  private:
    ClockSettings settings_, now_;
    bool is_animated_;
};

class RunUpTest : public testing::Test {
  protected:
    Clocks Jump(std::int32_t start, std::int32_t end, Rates *rates) {
        return RunUp(start, end, curve_.Get(), rates, &operations_, &memory_);
    }
    // Frame by frame, with nothing remembered.
    Clocks Played(std::int32_t start, std::int32_t end, Rates *rates) {
        Clocks clocks;
        for (std::int32_t frame = start; frame < end; ++frame)
            AdvanceClocks(rates->At(frame), frame, curve_.Get(), &operations_, &clocks);
        return clocks;
    }
    static bool AreSame(const Clocks &a, const Clocks &b) {
        return a.step == b.step && a.shake == b.shake && a.focus == b.focus && a.zoom_drift == b.zoom_drift &&
               a.jolt == b.jolt && a.auxiliary == b.auxiliary && a.zoom == b.zoom;
    }
    Operations operations_{PlainHost()};
    OwnedCurve curve_{PlainHost(), kSpeedWarpCurve};
    RunUpMemory memory_;
    ClockSettings settings_ = {1.2, 0.4, 2, 3, 11};
};

RC_GTEST_FIXTURE_PROP(RunUpTest, AnyRowOfJumpsMeetsPlayback, ()) {
    for (int jump = 0; jump < 6; ++jump) {
        settings_.speed = *rc::gen::element(1.2, 1.2, 1.2, 0.5);
        const std::int32_t start = *rc::gen::element(0, 0, 0, 7, -1), end = *rc::gen::inRange(-2, 600);
        const bool is_animated = *rc::gen::weightedElement<bool>({{5, false}, {1, true}});
        Rates rates(settings_, is_animated), plain(settings_, is_animated);
        RC_ASSERT(AreSame(Jump(start, end, &rates), Played(start, end, &plain)));
    }
}

TEST_F(RunUpTest, CountsFromTheLastFrameBeforeZeroAndFromNoneBefore) {
    Rates early(settings_), last(settings_);
    EXPECT_TRUE(AreSame(Jump(-90, 20, &early), Played(-1, 20, &last)));
    EXPECT_TRUE(AreSame(Jump(-90, -40, &early), Clocks()));
}

TEST_F(RunUpTest, LeavesOutWhatIsMoreThanTenMillionFramesBack) {
    settings_.variation = 0;
    Rates rates(settings_);
    Jump(0, 10000100, &rates);
    EXPECT_EQ(rates.first_asked, 100);
    EXPECT_EQ(rates.last_asked, 10000099);
}

// A later jump counts on from a frame shortly before it.
TEST_F(RunUpTest, ASecondJumpCountsFewFrames) {
    Rates first(settings_), again(settings_), earlier(settings_);
    Jump(0, 1000, &first);
    EXPECT_GE(first.asked, 1000);
    Jump(0, 1001, &again);
    EXPECT_LT(again.asked, 140);
    EXPECT_EQ(again.last_asked, 1000);
    Jump(0, 300, &earlier);
    EXPECT_LT(earlier.asked, 140);
}

TEST_F(RunUpTest, AJumpToARememberedFrameCountsNone) {
    Rates first(settings_), again(settings_), plain(settings_);
    Jump(0, 257, &first);
    EXPECT_TRUE(AreSame(Jump(0, 256, &again), Played(0, 256, &plain)));
    EXPECT_EQ(again.asked, 1);  // for the settings that must be the same
}

// Keys may change between two jumps without the settings that a jump begins with.
TEST_F(RunUpTest, OfAnimatedRatesRemembersNothing) {
    Rates before(settings_), animated(settings_, true), again(settings_, true);
    Jump(0, 100, &before);
    Jump(0, 500, &animated);
    Jump(0, 500, &again);
    EXPECT_EQ(again.asked, 500);
    Rates steady(settings_), plain(settings_);
    EXPECT_TRUE(AreSame(Jump(0, 500, &steady), Played(0, 500, &plain)));
}

TEST(RunUpMemory, ForgetsWhatWasCountedOtherwise) {
    const ClockSettings settings = {1, 0, 1, 1, 5}, others = {2, 0, 1, 1, 5};
    std::int32_t frame;
    Clocks clocks;
    clocks.shake = 42;
    RunUpMemory memory;
    const auto remember = [&] {
        memory.Expect(settings, 10);
        memory.Remember(10, Clocks());
        memory.Remember(138, clocks);
        ASSERT_EQ(memory.Before(200, &frame).shake, 42);
        ASSERT_EQ(frame, 138);
    };
    remember();
    memory.Expect(settings, 10);
    EXPECT_EQ(memory.Before(138, &frame).shake, 42);
    EXPECT_EQ(memory.Before(137, &frame).shake, 0);
    EXPECT_EQ(frame, 10);
    EXPECT_EQ(memory.Before(9, &frame).shake, 0);
    EXPECT_EQ(frame, 10);
    memory.Expect(others, 10);
    EXPECT_EQ(memory.Before(200, &frame).shake, 0);
    EXPECT_EQ(frame, 10);
    remember();
    memory.Expect(settings, 11);
    EXPECT_EQ(memory.Before(200, &frame).shake, 0);
    EXPECT_EQ(frame, 11);
}

TEST(RunUpMemory, KeepsEveryHundredAndTwentyEighthFrameWithoutAGap) {
    const ClockSettings settings = {1, 0, 1, 1, 5};
    std::int32_t frame;
    RunUpMemory memory;
    memory.Expect(settings, 0);
    for (const std::int32_t at : {128, 0, 1, 127, 256, 128, 128}) {
        Clocks clocks;
        clocks.shake = at;
        memory.Remember(at, clocks);
    }
    EXPECT_EQ(memory.Before(1000, &frame).shake, 128);
    EXPECT_EQ(frame, 128);
    EXPECT_EQ(memory.Before(127, &frame).shake, 0);
    EXPECT_EQ(frame, 0);
}

}  // namespace
