// Ten thousand frames at every rate of film and television, through every format that has a place for a rate.
#include <gtest/gtest.h>

#include <cmath>
#include <nlohmann/json.hpp>
#include <tuple>

#include "library/formats/blender.h"
#include "library/formats/numbers.h"
#include "tests/program/formats_support.h"
#include "tests/program/run.h"

namespace tremolux {
namespace {

struct Rate {
    const char *typed;
    std::int64_t numerator, denominator;
};
constexpr Rate kRates[] = {
    {"23.976", 24000, 1001},  {"24", 24, 1},   {"25", 25, 1},  {"29.97", 30000, 1001}, {"30", 30, 1},
    {"47.952", 48000, 1001},  {"48", 48, 1},   {"50", 50, 1},  {"59.94", 60000, 1001}, {"60", 60, 1},
    {"119.88", 120000, 1001}, {"120", 120, 1}, {"12.5", 25, 2}};
constexpr std::int64_t kStarts[] = {-20, 0, 101};
constexpr int kFrames = 10000;

class EveryRate : public testing::TestWithParam<std::tuple<Rate, std::int64_t>> {
  protected:
    EveryRate() : rate_(std::get<0>(GetParam())), move_{std::get<1>(GetParam()), *ParseFrameRate(rate_.typed), {}} {
        move_.samples.assign(kFrames, ReferencePose());
        for (int i = 0; i < kFrames; ++i) move_.samples[static_cast<std::size_t>(i)].position.x = i;
    }
    void ExpectKept(const CameraMove &read) const {
        EXPECT_EQ(read.rate.numerator, rate_.numerator);
        EXPECT_EQ(read.rate.denominator, rate_.denominator);
        EXPECT_EQ(read.first_frame, move_.first_frame);
        ASSERT_EQ(read.samples.size(), move_.samples.size());
        for (std::size_t i = 0; i < kFrames; ++i) ASSERT_NEAR(read.samples[i].position.x, static_cast<double>(i), 1e-9);
    }
    const Rate rate_;
    CameraMove move_;
};

TEST_P(EveryRate, GoesThroughJson) { ExpectKept(ReadJson("m", WriteJson(move_, {}), {})); }

TEST_P(EveryRate, GoesThroughUsdTimeCodes) {
    const std::string text = WriteUsda(move_, {});
    ExpectKept(ReadUsda("m", text, {}));
    // Another program divides time codes by the number that stands there: the last frame's seconds are the exact ones.
    const std::string name = "timeCodesPerSecond = ";
    const std::size_t at = text.find(name) + name.size();
    const double per_second = *ParseNumber(text.substr(at, text.find('\n', at) - at));
    EXPECT_EQ(per_second, static_cast<double>(rate_.numerator) / static_cast<double>(rate_.denominator));
}

TEST_P(EveryRate, GoesThroughTheTablesWithFps) {
    FormatOptions options;
    options.rate = move_.rate;
    ExpectKept(MoveFromBytes("m.csv", WriteCsv(move_, {}), options));
    ExpectKept(MoveFromBytes("m.chan", WriteChan(move_, {}), options));
}

TEST_P(EveryRate, StandsInBlendersScriptAsWholeFramesAndTheirBase) {
    const std::string text = WriteBlender(move_, {});
    const auto number = [&text](const std::string &name) {
        const std::size_t at = text.find("\n" + name + " = ") + name.size() + 4;
        return *ParseNumber(text.substr(at, text.find('\n', at) - at));
    };
    const double fps = number("FRAMES_PER_SECOND"), base = number("FPS_BASE");
    EXPECT_EQ(fps, std::round(fps));
    // Frames come and go at fps / fps_base: less than a thousandth of a frame off after ten thousand.
    const double seconds = kFrames * base / fps;
    const double exact = kFrames * static_cast<double>(rate_.denominator) / static_cast<double>(rate_.numerator);
    EXPECT_NEAR(seconds, exact, exact * 1e-12);
    if (rate_.denominator == 1001) {
        EXPECT_EQ(base, 1.001);
    } else if (rate_.denominator == 1) {
        EXPECT_EQ(base, 1);
    }
}

// In the names of the tests, which are else bytes of memory.
void PrintTo(const Rate &rate, std::ostream *out) { *out << rate.typed; }

INSTANTIATE_TEST_SUITE_P(Rates, EveryRate, testing::Combine(testing::ValuesIn(kRates), testing::ValuesIn(kStarts)));

TEST(Rates, AreInTheTraceAsTheTrueTime) {
    const program_test::Workplace workplace;
    const CameraMove move{0, {24000, 1001}, std::vector<CameraSample>(25)};
    const std::string file = workplace.Write("m.json", WriteJson(move, {}));
    const program_test::Outcome outcome = workplace.Run({"trace", file, "--quiet"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    const std::string last = outcome.out.substr(outcome.out.find("{\"frame\":24"));
    EXPECT_NEAR(nlohmann::json::parse(last)["time"].get<double>(), 1.001, 1e-12);
}

}  // namespace
}  // namespace tremolux
