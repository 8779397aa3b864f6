// How uneven a recording is, on the shake of a preset.
#include "library/fit/envelope.h"

#include <gtest/gtest.h>

#include <cmath>

#include "host/value/radians.h"
#include "library/failure.h"
#include "tests/program/formats_support.h"
#include "tests/program/run.h"

namespace tremolux {
namespace {

using namespace program_test;

constexpr std::size_t kUnevenFrames = 501;  // twenty seconds

// Three hertz of bank, four times as strong in the second half; nothing else moves.
CameraMove Uneven() {
    CameraMove move;
    move.rate = {25, 1};
    for (std::size_t i = 0; i < kUnevenFrames; ++i) {
        CameraSample sample;
        const double size = i < kUnevenFrames / 2 ? 0.01 : 0.04;
        sample.angles.z = size * std::sin(6 * host::kPi * static_cast<double>(i) / 25);
        move.samples.push_back(sample);
    }
    return move;
}

TEST(Envelopes, FollowTheStrengthOfTheShake) {
    const Envelope envelope = MeasureEnvelope(Uneven());
    ASSERT_EQ(envelope.size(), 81U);
    double squares = 0;
    for (const EnvelopePoint &point : envelope) {
        squares += point.rotation * point.rotation;
        EXPECT_EQ(point.position, 1) << "it stands still";
    }
    EXPECT_NEAR(squares / 81, 1, 1e-12);
    // Halves of 1 and 4: their mean square is 8.5.
    EXPECT_NEAR(envelope[20].rotation, 1 / std::sqrt(8.5), 0.05);
    EXPECT_NEAR(envelope[60].rotation, 4 / std::sqrt(8.5), 0.2);
}

TEST(Envelopes, AreReadAsTheyAreWritten) {
    const Envelope written = {{0, 1, 0.5}, {0.25, 0.75, 2}};
    const Envelope read = ReadEnvelope("e.csv", WriteEnvelope(written));
    ASSERT_EQ(read.size(), 2U);
    EXPECT_EQ(read[1].seconds, 0.25);
    EXPECT_EQ(read[1].position, 0.75);
    EXPECT_EQ(read[0].rotation, 0.5);
}

TEST(Envelopes, ThatAreNoneAreRefusedWithThePlace) {
    const auto refused = [](const std::string &text) {
        try {
            ReadEnvelope("e.csv", text);
        } catch (const Failure &failure) {
            return std::string(failure.what());
        }
        return std::string("nothing");
    };
    EXPECT_EQ(refused("time,position,rotation\n").rfind("e.csv:2:1: ", 0), 0U);
    EXPECT_EQ(refused("time,position\n0,1\n").rfind("e.csv:1", 0), 0U);
    EXPECT_EQ(refused("time,position,rotation\n0,1,1\n0,1,1\n").rfind("e.csv:3", 0), 0U) << "time goes on";
    EXPECT_EQ(refused("time,position,rotation\n0,-1,1\n").rfind("e.csv:2", 0), 0U);
    EXPECT_EQ(refused("time,position,rotation\n0,nan,1\n").rfind("e.csv:2", 0), 0U);
}

class EnvelopeOptions : public testing::Test {
  protected:
    CameraMove Shaken(const std::string &envelope, int frames) {
        std::string still = "frame,x,y,z,h,p,b\n";
        for (int i = 0; i < frames; ++i) still += std::to_string(i) + ",0,0,0,0,0,0\n";
        std::vector<std::string> arguments = {"shake",  workplace_.Write("still.csv", still), "--set", "Jolt=off",
                                              "-o",     workplace_.Path("out.csv"),           "--fps", "25",
                                              "--quiet"};
        if (!envelope.empty())
            arguments.insert(arguments.end(), {"--envelope", workplace_.Write("envelope.csv", envelope)});
        const Outcome outcome = workplace_.Run(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        return ReadCsv("out.csv", workplace_.Read("out.csv"), {});
    }
    Workplace workplace_;
};

TEST_F(EnvelopeOptions, ScaleTheShakeOverTime) {
    const CameraMove plain = Shaken("", 250), enveloped = Shaken("time,position,rotation\n0,0,1\n4,2,1\n", 250);
    for (const auto &[frame, share] : {std::pair(0, 0.0), std::pair(25, 0.5), std::pair(100, 2.0), std::pair(150, 1.0),
                                       std::pair(200, 0.0), std::pair(225, 0.5)}) {
        const CameraSample &a = enveloped.samples[static_cast<std::size_t>(frame)],
                           &b = plain.samples[static_cast<std::size_t>(frame)];
        EXPECT_NEAR(host::Length(a.position - b.position * share), 0, 1e-6) << "back and forth, frame " << frame;
        EXPECT_NEAR(host::Length(a.angles - b.angles), 0, 1e-9) << frame;
    }
}

TEST_F(EnvelopeOptions, OfAFitArePlayed) {
    const std::string recording = workplace_.Write("recording.csv", WriteCsv(Uneven(), {}));
    const Outcome outcome = workplace_.Run({"fit", recording, "-o", workplace_.Path("Mine"), "--envelope",
                                            workplace_.Path("mine.csv"), "--fps", "25", "--quiet"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(ReadEnvelope("mine.csv", workplace_.Read("mine.csv")).size(), 81U);
    EXPECT_EQ(Shaken(workplace_.Read("mine.csv"), 100).samples.size(), 100U);
}

}  // namespace
}  // namespace tremolux
