// Moves on the frames of another rate.
#include "library/moves/retime.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/program/formats_support.h"
#include "tests/program/run.h"

namespace tremolux {
namespace {

// A tenth of a turn a second and a parabola: x = 100 t^2, which a cubic through the samples follows exactly but in the
// first and the last gap.
CameraMove Parabola(std::int64_t first, FrameRate rate, int frames) {
    CameraMove move{first, rate, {}};
    for (int i = 0; i < frames; ++i) {
        const double seconds = static_cast<double>(first + i) / rate.PerSecond();
        CameraSample sample;
        sample.position = {100 * seconds * seconds, 5, -3 * seconds};
        sample.angles = {0.6 * seconds, 0, 0};
        sample.focal_length = 35 + seconds;
        sample.focus_distance = 400 + 10 * seconds;
        move.samples.push_back(sample);
    }
    return move;
}

bool SameBits(const CameraSample &a, const CameraSample &b) {
    return a.position.x == b.position.x && a.position.y == b.position.y && a.position.z == b.position.z &&
           a.angles.x == b.angles.x && a.angles.y == b.angles.y && a.angles.z == b.angles.z &&
           a.focal_length == b.focal_length && a.focus_distance == b.focus_distance;
}

TEST(Retiming, KeepsTimesAndChangesFrames) {
    // Frames 24 to 48 at 24 are seconds 1 to 2: frames 30 to 60 at 30.
    const CameraMove move = Retimed(Parabola(24, {24, 1}, 25), {30, 1});
    EXPECT_EQ(move.rate, (FrameRate{30, 1}));
    EXPECT_EQ(move.first_frame, 30);
    ASSERT_EQ(move.samples.size(), 31u);
    for (int i = 2; i < 29; ++i) {
        const double seconds = (30 + i) / 30.0;
        const CameraSample &sample = move.samples[static_cast<std::size_t>(i)];
        EXPECT_NEAR(sample.position.x, 100 * seconds * seconds, 1e-9);
        EXPECT_NEAR(sample.position.z, -3 * seconds, 1e-12);
        EXPECT_NEAR(sample.angles.x, 0.6 * seconds, 1e-12);
        EXPECT_NEAR(sample.focal_length, 35 + seconds, 1e-12);
        EXPECT_NEAR(sample.focus_distance, 400 + 10 * seconds, 1e-10);
    }
}

TEST(Retiming, KeepsFramesThatFallOnSamplesBitByBit) {
    const CameraMove move = Parabola(-20, {24, 1}, 101);
    const CameraMove twice = Retimed(move, {48, 1});
    ASSERT_EQ(twice.samples.size(), 201u);
    EXPECT_EQ(twice.first_frame, -40);
    for (std::size_t i = 0; i < move.samples.size(); ++i)
        EXPECT_TRUE(SameBits(twice.samples[2 * i], move.samples[i])) << i;
    const CameraMove back = Retimed(twice, {24, 1});
    ASSERT_EQ(back.samples.size(), move.samples.size());
    EXPECT_EQ(back.first_frame, -20);
    for (std::size_t i = 0; i < move.samples.size(); ++i) EXPECT_TRUE(SameBits(back.samples[i], move.samples[i])) << i;
    // Between 24 and 30 every fourth frame meets every fifth.
    const CameraMove at_30 = Retimed(move, {30, 1});
    EXPECT_EQ(at_30.first_frame, -25);
    for (std::size_t i = 0; 4 * i < move.samples.size(); ++i)
        EXPECT_TRUE(SameBits(at_30.samples[5 * i], move.samples[4 * i])) << i;
}

TEST(Retiming, BeginsAtTheFirstFrameThatIsNotBeforeTheMove) {
    // Second 101/24 is frame 126.25 at 30; second -20/24 is -25 at 30 and -19.98 at 24000/1001.
    EXPECT_EQ(FramesAt(Parabola(101, {24, 1}, 50), {30, 1}).first, 127);
    EXPECT_EQ(FramesAt(Parabola(-20, {24, 1}, 50), {30, 1}).first, -25);
    EXPECT_EQ(FramesAt(Parabola(-20, {24, 1}, 50), {24000, 1001}).first, -19);
    EXPECT_EQ(FramesAt(Parabola(-20, {24000, 1001}, 50), {24, 1}).first, -20);
}

TEST(Retiming, DoesNotDriftOverTenThousandFrames) {
    // 10,010 frames at 24 are 10,000 at 24000/1001, and the last is the last.
    const CameraMove move = Parabola(0, {24, 1}, 10011);
    const CameraMove slower = Retimed(move, {24000, 1001});
    ASSERT_EQ(slower.samples.size(), 10001u);
    for (std::size_t i = 0; i <= 10; ++i) EXPECT_TRUE(SameBits(slower.samples[1000 * i], move.samples[1001 * i])) << i;
}

TEST(Retiming, KeepsOneFrameWhereNoneFallsIntoTheMove) {
    CameraMove move = Parabola(1, {30, 1}, 1);
    const CameraMove retimed = Retimed(move, {24, 1});
    ASSERT_EQ(retimed.samples.size(), 1u);
    EXPECT_EQ(retimed.first_frame, 1);
    EXPECT_TRUE(SameBits(retimed.samples[0], move.samples[0]));
}

TEST(Retiming, IsExactWithTheLargestTerms) {
    // Frame 10,000,000 at 999999937/400001 is exactly itself again on the way back and forth.
    const FrameRate rate{999999937, 400001};
    const CameraMove move{10000000, rate, std::vector<CameraSample>(1)};
    EXPECT_EQ(FramesAt(move, rate).first, 10000000);
    EXPECT_EQ(FramesAt(move, {1, 1}).first, 4001);  // 10,000,000 * 400001 / 999999937 = 4000.01025
    EXPECT_EQ(FramesAt({-10000000, rate, std::vector<CameraSample>(1)}, {1, 1}).first, -4000);
}

TEST(Retiming, RunsStraightBetweenWhatIsCarriedOfEachFrame) {
    CameraMove move = Parabola(0, {24, 1}, 3);
    move.traits.channels[kFStop] = {2, 4, 8};
    move.traits.channels[kNearClip] = {10};
    const CameraMove retimed = Retimed(move, {48, 1});
    EXPECT_EQ(retimed.traits.channels[kFStop], (std::vector<double>{2, 3, 4, 6, 8}));
    EXPECT_EQ(retimed.traits.channels[kNearClip], std::vector<double>{10});
}

TEST(Retiming, StaysWithinWhatALensCanBe) {
    CameraMove move{0, {24, 1}, std::vector<CameraSample>(4)};
    move.samples[0].focal_length = move.samples[3].focal_length = 10000;
    move.samples[1].focal_length = move.samples[2].focal_length = kMinFocalLength;
    move.samples[1].focus_distance = move.samples[2].focus_distance = 0;
    for (const CameraSample &sample : Retimed(move, {240, 1}).samples) {
        EXPECT_GE(sample.focal_length, kMinFocalLength);
        EXPECT_GE(sample.focus_distance, 0);
    }
}

FormatOptions Rates(std::optional<FrameRate> rate, std::optional<FrameRate> retime) {
    FormatOptions options;
    options.rate = rate;
    options.retime = retime;
    return options;
}

TEST(ReadingAMove, RelabelsByFpsAndSaysSo) {
    const std::string text = WriteJson(Parabola(10, {24, 1}, 5), {});
    const CameraMove move = MoveFromBytes("m.json", text, Rates(FrameRate{30000, 1001}, {}));
    EXPECT_EQ(move.rate, (FrameRate{30000, 1001}));
    EXPECT_EQ(move.first_frame, 10);
    EXPECT_EQ(move.samples.size(), 5u);
    ASSERT_EQ(move.notes.size(), 1u);
    EXPECT_EQ(move.notes[0],
              "the file says 24 frames a second, --fps 30000/1001: its frames stay and their times change (--retime "
              "30000/1001 keeps the times)");
    const CameraMove usd =
        MoveFromBytes("m.usda", WriteUsda(Parabola(0, {24000, 1001}, 2), {}), Rates(FrameRate{24, 1}, {}));
    ASSERT_EQ(usd.notes.size(), 1u);
    EXPECT_EQ(usd.notes[0].rfind("the file says 24000/1001 (23.976) frames a second, --fps 24: ", 0), 0u)
        << usd.notes[0];
}

TEST(ReadingAMove, SaysNothingOfAFileThatSaysNoRateOrTheSame) {
    const CameraMove move = Parabola(0, {24, 1}, 5);
    const FormatOptions at_24 = Rates(FrameRate{24, 1}, {});
    EXPECT_TRUE(MoveFromBytes("m.csv", WriteCsv(move, {}), at_24).notes.empty());
    EXPECT_TRUE(MoveFromBytes("m.chan", WriteChan(move, {}), at_24).notes.empty());
    EXPECT_TRUE(MoveFromBytes("m.json", WriteJson(move, {}), at_24).notes.empty());
    EXPECT_EQ(MoveFromBytes("m.csv", WriteCsv(move, {}), at_24).rate, (FrameRate{24, 1}));
}

TEST(ReadingAMove, RetimesWhatFpsHasRelabelled) {
    const CameraMove move =
        MoveFromBytes("m.csv", WriteCsv(Parabola(0, {24, 1}, 25), {}), Rates(FrameRate{24, 1}, FrameRate{60, 1}));
    EXPECT_EQ(move.rate, (FrameRate{60, 1}));
    EXPECT_EQ(move.samples.size(), 61u);
}

TEST(ReadingAMove, RefusesMoreFramesThanAMoveHas) {
    // 1,000 frames at 1 a second are 999 * 2500 + 1 at 2500.
    const std::string text = WriteCsv(CameraMove{0, {1, 1}, std::vector<CameraSample>(1000)}, {});
    try {
        MoveFromBytes("m.csv", text, Rates(FrameRate{1, 1}, FrameRate{2500, 1}));
        FAIL() << "accepted";
    } catch (const Failure &failure) {
        EXPECT_EQ(failure.Status(), kExitInput);
        EXPECT_STREQ(failure.what(),
                     "m.csv: found frames 0 to 2497500 at --retime 2500, expected at most 1000000 frames between "
                     "-10000000 and 10000000");
    }
}

TEST(ConvertRetime, WritesTheFramesOfTheOtherRate) {
    const program_test::Workplace workplace;
    const std::string in = workplace.Write("in.csv", WriteCsv(Parabola(0, {24, 1}, 25), {}));
    const program_test::Outcome outcome =
        workplace.RunBare({"convert", in, workplace.Path("out.json"), "--fps", "24", "--retime", "29.97"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    const CameraMove move = ReadJson("out", workplace.Read("out.json"), {});
    EXPECT_EQ(move.rate, (FrameRate{30000, 1001}));
    EXPECT_EQ(move.samples.size(), 30u);  // the last at 29 * 1001 / 30000 = 0.9676 seconds
    const program_test::Outcome refused = workplace.RunBare({"convert", in, workplace.Path("o.csv"), "--retime", "0"});
    EXPECT_EQ(refused.status, 2);
    EXPECT_EQ(refused.err.rfind("--retime: found '0', expected a rate", 0), 0u) << refused.err;
}

}  // namespace
}  // namespace tremolux
