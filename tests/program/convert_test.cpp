// Camera files from one kind to another, by the program.
#include <gtest/gtest.h>

#include "tests/program/formats_support.h"
#include "tests/program/run.h"

namespace {

using namespace program_test;

class Convert : public testing::Test {
  protected:
    Convert()
        : csv_(workplace_.Write("move.csv",
                                "frame,x,y,z,h,p,b,focal_length,focus_distance\n1,10,150,-300,30,-10,5,36,500\n")) {}
    Outcome Run(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "convert");
        return workplace_.RunBare(arguments);
    }
    Workplace workplace_;
    const std::string csv_;
};

TEST_F(Convert, GoesFromEachKindThatIsReadToEachThatIsWritten) {
    for (const char *from : {"csv", "json", "chan", "usda"}) {
        const std::string source = workplace_.Path(std::string("move.") + from);
        if (source != csv_) {
            ASSERT_EQ(Run({csv_, source}).status, 0);
        }
        for (const char *to :
             {"csv", "json", "chan", "usda", "gltf", "py", "txt", "transforms.json", "camera_path.json"}) {
            const std::string goal = workplace_.Path(std::string(from) + "." + to);
            EXPECT_EQ(Run({source, goal}).status, 0) << goal;
        }
        EXPECT_NEAR(tremolux::ReadCsv("c", workplace_.Read(std::string(from) + ".csv"), {}).samples.at(0).angles.x,
                    30 * tremolux::kRadiansPerDegree, 1e-9);
    }
}

TEST_F(Convert, SaysWhatAFormatHasNoPlaceFor) {
    const std::string gltf = workplace_.Path("out.gltf");
    EXPECT_EQ(Run({csv_, gltf}).err,
              gltf +
                  ": .gltf files have no place for focal length, film back and focus distance but as extras, and "
                  "zoom but by KHR_animation_pointer\n");
    EXPECT_EQ(Run({csv_, workplace_.Path("out.usda")}).err, "");
}

TEST_F(Convert, WritesChanInAnotherOrderAndUnitThanItReads) {
    const std::string zxy = workplace_.Path("zxy.chan"), xyz = workplace_.Path("xyz.chan"),
                      back = workplace_.Path("back.csv");
    ASSERT_EQ(Run({csv_, zxy}).status, 0);
    ASSERT_EQ(Run({zxy, xyz, "--to-rotation-order", "xyz", "--to-unit", "m"}).status, 0);
    EXPECT_EQ(workplace_.Read("xyz.chan").rfind("1 0.1 1.5 3 ", 0), 0u) << workplace_.Read("xyz.chan");
    ASSERT_EQ(Run({xyz, back, "--rotation-order", "xyz", "--unit", "m"}).status, 0);
    const tremolux::CameraSample sample = tremolux::ReadCsv("c", workplace_.Read("back.csv"), {}).samples.at(0);
    EXPECT_NEAR(sample.position.z, -300, 1e-9);
    EXPECT_NEAR(sample.angles.z, 5 * tremolux::kRadiansPerDegree, 1e-9);
}

TEST_F(Convert, WritesToOutputsNamedEitherWay) {
    const std::string a = workplace_.Path("a.csv"), b = workplace_.Path("b.csv"), c = workplace_.Path("c.csv");
    ASSERT_EQ(Run({csv_, "-o", a, "--output", b}).status, 0);
    ASSERT_EQ(Run({csv_, c}).status, 0);
    EXPECT_EQ(workplace_.Read("a.csv"), workplace_.Read("c.csv"));
    EXPECT_EQ(workplace_.Read("b.csv"), workplace_.Read("c.csv"));
    const Outcome none = Run({csv_});
    EXPECT_EQ(none.status, 2);
    EXPECT_EQ(none.err, "convert: found no output, expected -o FILE\n");
}

TEST_F(Convert, RefusesWhatItCannotReadOrWrite) {
    const auto refused = [&](const std::vector<std::string> &arguments, const std::string &said) {
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.status, 2) << said;
        EXPECT_NE(outcome.err.find(said), std::string::npos) << outcome.err;
    };
    refused({workplace_.Write("a.py", "1"), workplace_.Path("b.csv")},
            "expected .csv, .json, .chan, .usda, .usd, .usdz, .gltf, .glb, .mp4, .mov, .gcsv or .raw");
    refused({csv_, workplace_.Path("b.fbx")},
            "expected .csv, .transforms.json, .camera_path.json, .json, .chan, .usda, .usd, .gltf, .glb, .py or .txt");
    refused({csv_, csv_}, "found the input itself");
    refused({csv_, workplace_.Path("b.chan"), "--rotation-order", "xxy"}, "--rotation-order: found 'xxy'");
    refused({csv_, workplace_.Path("b.chan"), "--aperture", "0"}, "--aperture: found '0'");
    EXPECT_EQ(workplace_.Names(), (std::vector<std::string>{"a.py", "move.csv"}));
}

}  // namespace
