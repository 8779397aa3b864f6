// What a trace tells of the layers.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "host/scene/angles.h"
#include "tests/program/trace_support.h"

namespace {

using namespace program_test;
using host::operator+;
using host::operator-;

constexpr double kNear = 1e-9;
const json kNothing = {0.0, 0.0, 0.0};

// Sways, pans and zooms in bursts.
std::string LivelyCamera() {
    std::string text = "frame,x,y,z,h,p,b,focal_length,focus_distance\n";
    for (int frame = 0; frame < 120; ++frame) {
        const double x = 150 * std::sin(frame / 9.0), h = 80 * std::sin(frame / 7.0), f = 40 + frame % 30;
        text += std::to_string(frame) + "," + std::to_string(x) + ",100,0," + std::to_string(h) + ",5,1," +
                std::to_string(f) + "," + std::to_string(500 - 4 * (frame % 40)) + "\n";
    }
    return text;
}

double Sum(const json &lens) {
    double sum = lens.at("smoothed").get<double>();
    for (const char *part : {"overshoot", "drift"}) sum += lens.at(part).get<double>();
    return sum;
}

host::Vector VectorSum(const json &layer) {
    host::Vector sum = VectorOf(layer.at("smoothed"));
    for (const char *part : {"overshoot", "shake", "jolt"}) sum = sum + VectorOf(layer.at(part));
    return sum;
}

void ExpectNear(const json &a, const json &b) {
    EXPECT_LT(host::Length(VectorOf(a) - VectorOf(b)), kNear) << a << " and " << b;
}

// Whatever the angles: they may differ by whole turns, or be the other ones of the same rotation.
void ExpectSameRotation(const host::Vector &degrees_a, const host::Vector &degrees_b) {
    const auto matrix = [](const host::Vector &degrees) {
        return host::HpbToMatrix({degrees.x * kDegree, degrees.y * kDegree, degrees.z * kDegree});
    };
    const host::Matrix a = matrix(degrees_a), b = matrix(degrees_b);
    for (const auto axis : {&host::Matrix::v1, &host::Matrix::v2, &host::Matrix::v3})
        EXPECT_LT(host::Length(a.*axis - b.*axis), kNear);
}

// They lead from the input camera (the focus may follow an object instead) to the output camera.
void ExpectTheLayersToAddUp(const std::vector<json> &records) {
    for (const json &record : records) {
        SCOPED_TRACE(record.at("frame"));
        const json &layers = record.at("layers"), &in = record.at("input"), &out = record.at("output");
        const json &position = layers.at("position"), &rotation = layers.at("rotation"), &zoom = layers.at("zoom");
        EXPECT_EQ(position.at("input"), in.at("position"));
        EXPECT_EQ(rotation.at("input"), in.at("hpb"));
        EXPECT_EQ(zoom.at("input"), in.at("focal_length"));

        EXPECT_LT(host::Length(VectorSum(position) - VectorOf(position.at("result"))), kNear);
        ExpectSameRotation(VectorSum(rotation), VectorOf(rotation.at("result")));
        for (const char *lens : {"zoom", "focus"})
            EXPECT_NEAR(Sum(layers.at(lens)), layers.at(lens).at("result").get<double>(), kNear) << lens;

        EXPECT_EQ(position.at("result"), out.at("position"));
        ExpectSameRotation(VectorOf(rotation.at("result")), VectorOf(out.at("hpb")));
        EXPECT_EQ(zoom.at("result"), out.at("focal_length"));
        EXPECT_EQ(layers.at("focus").at("result"), out.at("focus_distance"));
    }
}

class Layers : public TracedMove {
  protected:
    Layers() : TracedMove(LivelyCamera()) {}
    const std::vector<std::string> all_ = Settings({"Position Slow=2%", "Rotation Slow=5", "Zoom Drift Slow=5%",
                                                    "Focus Drift Slow=0.1", "Custom Trigger=20,50", "Interval=25f"});
    const std::vector<std::string> aimed_ = {"--target", "0,80,300", "--focus-object", "30,80,200"};
};

TEST_F(Layers, OfEveryFrameAddUpToTheResult) {
    const auto records = Trace(all_);
    ExpectTheLayersToAddUp(records);
    for (const json &record : records) {
        EXPECT_FALSE(record.at("layers").at("rotation").at("target"));
        EXPECT_EQ(record.at("layers").at("focus").at("input"), record.at("input").at("focus_distance"));
    }
}

TEST_F(Layers, AddUpWithATargetAndAFocusObjectToo) {
    const auto records = Trace(Joined(all_, aimed_));
    ExpectTheLayersToAddUp(records);
    for (const json &record : records) EXPECT_TRUE(record.at("layers").at("rotation").at("target"));
}

TEST_F(Layers, ShowNoTargetWhereItIsSwitchedOff) {
    const auto records = Trace(Joined(Joined(all_, aimed_), Settings({"Target=off"})));
    ExpectTheLayersToAddUp(records);
    for (const json &record : records) EXPECT_FALSE(record.at("layers").at("rotation").at("target"));
}

TEST_F(Layers, MeasureTheFocusFromWhereTheCameraStandsBeforeTheJolt) {
    double pushed = 0;
    for (const json &record : Trace(Joined(all_, aimed_))) {
        const host::Vector output = VectorOf(record.at("output").at("position"));
        const host::Vector jolt = VectorOf(record.at("layers").at("position").at("jolt"));
        const double distance = host::Length(host::Vector{30, 80, 200} - (output - jolt));
        EXPECT_NEAR(record.at("layers").at("focus").at("input").get<double>(), distance, kNear);
        pushed = std::max(pushed, host::Length(jolt));
    }
    EXPECT_GT(pushed, 0.01);
}

TEST_F(Layers, ShowNoOvershootWhereItIsZeroAndNoShakeOrDriftWhereItIsSwitchedOff) {
    const auto records =
        Trace(Joined(all_, Settings({"6153=0%", "6034=0%", "6053=0%", "6063=0%", "6010=off", "6011=off", "6012=off",
                                     "6013=off", "6014=off", "6015=off", "6016=off", "6017=off"})));
    ExpectTheLayersToAddUp(records);
    for (const json &record : records) {
        SCOPED_TRACE(record.at("frame"));
        for (const char *block : {"position", "rotation"})
            for (const char *part : {"overshoot", "shake"}) EXPECT_EQ(record.at("layers").at(block).at(part), kNothing);
        for (const char *block : {"zoom", "focus"})
            for (const char *part : {"overshoot", "drift"}) EXPECT_EQ(record.at("layers").at(block).at(part), 0.0);
    }
}

TEST_F(Layers, ShowNoDriftWhereOnlyThatIsSwitchedOff) {
    for (const json &record : Trace(Joined(all_, Settings({"6016=off", "6017=off"}))))
        for (const char *lens : {"zoom", "focus"}) EXPECT_EQ(record.at("layers").at(lens).at("drift"), 0.0) << lens;
}

// Without smoothing each filter reaches its goal at once; what is left of the way to the output is the spring's.
TEST_F(Layers, ShowTheInputAsTheSmoothedValueWhereNothingIsSmoothed) {
    double swung = 0;
    for (const json &record : Trace(Joined(all_, Settings({"6155=0%", "6156=0%", "6162=0%", "6064=0%"})))) {
        SCOPED_TRACE(record.at("frame"));
        const json &layers = record.at("layers");
        ExpectNear(layers.at("position").at("smoothed"), layers.at("position").at("input"));
        ExpectSameRotation(VectorOf(layers.at("rotation").at("smoothed")), VectorOf(layers.at("rotation").at("input")));
        for (const char *lens : {"zoom", "focus"}) {
            const json &layer = layers.at(lens);
            EXPECT_NEAR(layer.at("smoothed").get<double>(), layer.at("input").get<double>(), kNear) << lens;
        }
        swung = std::max(swung, std::fabs(layers.at("zoom").at("overshoot").get<double>()));
    }
    EXPECT_GT(swung, 0.1);
}

// One switch alone lets its own shake through, and no other.
TEST_F(Layers, ShowTheShakeOfEachAxisAndAngleThatIsSwitchedOn) {
    for (int on = 6010; on <= 6015; ++on) {
        SCOPED_TRACE(on);
        std::vector<std::string> switches;
        for (int id = 6010; id <= 6015; ++id) switches.push_back(std::to_string(id) + (id == on ? "=on" : "=off"));
        const auto records = Trace(Joined(all_, Settings(switches)));
        ExpectTheLayersToAddUp(records);
        const json &layers = records.back().at("layers");
        for (int id = 6010; id <= 6015; ++id) {
            const json &shake = layers.at(id < 6013 ? "position" : "rotation").at("shake");
            EXPECT_EQ(shake.at(static_cast<std::size_t>(id - 6010) % 3) != 0.0, id == on) << id;
        }
    }
}

TEST_F(Layers, NameAJoltOnTheFrameThatTheUserListed) {
    const auto records = Trace(Settings({"Custom Trigger=20"}));
    for (const char *block : {"position", "rotation"}) {
        EXPECT_EQ(records[19].at("layers").at(block).at("jolt"), kNothing) << block;
        EXPECT_NE(records[20].at("layers").at(block).at("jolt"), kNothing) << block;
    }
}

}  // namespace
