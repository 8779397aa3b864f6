// What a camera file is said to hold.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/program/formats_support.h"
#include "tests/program/run.h"
#include "tremolux/words/inspect_text.h"

namespace tremolux {
namespace {

using program_test::Outcome;
using program_test::Workplace;

// Two frames, from the reference pose 10 cm to the right and from 36 mm to 50.
CameraMove Zoom() {
    CameraMove move{101, {24000, 1001}, {ReferencePose(), ReferencePose()}};
    move.samples[1].position.x = 20;
    move.samples[1].focal_length = 50;
    return move;
}

std::vector<std::string> Lines(const std::string &text) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    for (std::size_t end; (end = text.find('\n', start)) != std::string::npos; start = end + 1)
        lines.push_back(text.substr(start, end - start));
    return lines;
}

testing::AssertionResult Has(const std::string &text, const std::string &line) {
    for (const std::string &candidate : Lines(text)) {
        if (candidate == line) return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << "no line '" << line << "' in\n" << text;
}

TEST(Inspect, TellsFramesRateLensAndRanges) {
    const Workplace workplace;
    const std::string file = workplace.Write("zoom.json", WriteJson(Zoom(), {}));
    const Outcome outcome = workplace.RunBare({"inspect", file});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_TRUE(Has(outcome.out, "file          " + file));
    EXPECT_TRUE(Has(outcome.out, "format        .json"));
    EXPECT_TRUE(Has(outcome.out, "frames        101 to 102, 2 in 0.083 s"));  // 2 * 1001 / 24000
    EXPECT_TRUE(Has(outcome.out, "rate          24000/1001 (23.976) frames a second"));
    EXPECT_TRUE(Has(outcome.out, "position      x 10 to 20 cm"));
    EXPECT_TRUE(Has(outcome.out, "              z -300 cm"));
    EXPECT_TRUE(Has(outcome.out, "rotation      heading 30 degrees"));
    EXPECT_TRUE(Has(outcome.out, "lens          focal length 36 to 50 mm"));
    // 2 atan(36 / 100) and 2 atan(1 / 2).
    EXPECT_TRUE(Has(outcome.out, "              horizontal angle of view 39.598 to 53.13 degrees"));
    EXPECT_TRUE(Has(outcome.out, "film back     36 mm wide"));
    EXPECT_TRUE(Has(outcome.out, "lost in .chan focus distance, film back and frame rate"));
    EXPECT_EQ(outcome.out.find(".usdz"), std::string::npos);  // is read alone
}

TEST(Inspect, TellsWhatIsCarriedBesideTheMotionAndWhereItIsLost) {
    InspectedFile file{"a.csv", ".csv", Zoom()};
    file.move.traits.path = "/World/Shot/Cam";
    file.move.traits.channels[kFStop] = {2.8, 4};
    file.move.aperture_height = 20.25;
    file.move.notes = {"the lens is in millimetres"};
    const std::string text = InspectText(file);
    EXPECT_TRUE(Has(text, "camera        /World/Shot/Cam"));
    EXPECT_TRUE(Has(text, "carried       f-stop 2.8 to 4"));
    EXPECT_TRUE(Has(text, "film back     36 x 20.25 mm"));
    EXPECT_TRUE(Has(text, "note          the lens is in millimetres"));
    EXPECT_TRUE(Has(text, "lost in .csv  the frame rate; the height of the film back; f-stop; the camera's name"));
}

TEST(Inspect, SaysTheSameAsJson) {
    const Workplace workplace;
    const std::string file = workplace.Write("zoom.json", WriteJson(Zoom(), {}));
    const Outcome outcome = workplace.RunBare({"inspect", file, "--json"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    const nlohmann::json facts = nlohmann::json::parse(outcome.out);
    EXPECT_EQ(facts["frames_per_second"], nlohmann::json::array({24000, 1001}));
    EXPECT_EQ(facts["first_frame"], 101);
    EXPECT_EQ(facts["frames"], 2);
    EXPECT_EQ(facts["ranges"]["x_cm"], nlohmann::json::array({10, 20}));
    EXPECT_EQ(facts["ranges"]["focal_length_mm"], nlohmann::json::array({36, 50}));
    EXPECT_EQ(facts["film_back_width_mm"], 36);
    EXPECT_EQ(facts["lost"][".json"], "");
    EXPECT_FALSE(facts["lost"].contains(".usdz"));
    EXPECT_EQ(facts["lost"][".chan"], "focus distance, film back and frame rate");
}

TEST(Inspect, RefusesWhatCannotBeRead) {
    const Workplace workplace;
    const Outcome outcome = workplace.RunBare({"inspect", workplace.Write("a.json", "{\n")});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
}

}  // namespace
}  // namespace tremolux
