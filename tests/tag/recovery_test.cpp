// Settings and memories that nobody would write on purpose: the camera stays finite and finds back.
#include <cmath>
#include <functional>

#include "tests/tag/scene.h"

namespace {

using namespace tag_test;

// Every number that the motion reads from its settings.
constexpr std::int32_t kSettings[] = {6020, 6021, 6022, 6024, 6025, 6026, 6028, 6029, 6030, 6034, 6035, 6037, 6053,
                                      6054, 6059, 6063, 6064, 6071, 6072, 6076, 6077, 6078, 6100, 6101, 6102, 6128,
                                      6129, 6130, 6132, 6134, 6135, 6136, 6138, 6140, 6142, 6144, 6149, 6151, 6152,
                                      6153, 6154, 6155, 6156, 6158, 6161, 6162, 6163, 6165, 6170, 6204};
// Every number and vector that it remembers.
constexpr std::int32_t kNumbers[] = {5008,  5009,  5013,  5014,  5015,  5016,  10025, 10026, 10042, 10043, 10045,
                                     10046, 10047, 10048, 10051, 10052, 10053, 10054, 10059, 11004, 20000, 30005,
                                     30006, 30007, 30008, 30009, 30011, 30012, 30025, 30027, 30028, 30031, 30032,
                                     30045, 30047, 30051, 30065, 30071, 30072, 30105, 30111};
constexpr std::int32_t kVectors[] = {5000,  5001,  5002,  5003,  5004,  5005,  5006,  5007,  10060, 10061,
                                     11000, 11001, 20002, 20003, 30003, 30004, 30010, 30023, 30024, 30030,
                                     30043, 30044, 30050, 30063, 30064, 30070, 30103, 30104, 30110, 87651};

class Recovery : public WithScene {
  protected:
    void SetUp() override {
        WithScene::SetUp();
        for (const std::int32_t id : {6024, 6025, 6026, 6134, 6135, 6136, 6128, 6129, 6130}) scene().Set(id, 0.01);
        for (const std::int32_t id : {6028, 6029, 6030}) scene().Set(id, 5 * kDegree);
        scene().Set(6149, 0.5);
        scene().State().Set(6038, host::Data(host::MakeTime(10, 30)));
        scene().Link(kTarget, scene().AddObject(host::kTypeNull, {50, 100, 400}));
        scene().Link(kFocusObject, scene().AddObject(host::kTypeNull, {-50, 100, 300}));
        scene().PlaceInput({10, 150, -400}, {0.4, -0.2, 0.1});
    }
    void ExpectFinite() {
        EXPECT_TRUE(host::IsFinite(scene().Camera().matrix));
        EXPECT_TRUE(std::isfinite(scene().Camera().focal_length));
        EXPECT_TRUE(std::isfinite(scene().Camera().focus_distance));
    }
    void PlayFinite(std::int64_t first, std::int64_t last) {
        for (std::int64_t frame = first; frame <= last; ++frame) {
            const auto passed = static_cast<double>(frame);
            scene().PlaceInput({10 + 5 * passed, 150, -400}, {0.4 + 0.05 * passed, -0.2, 0.1});
            scene().Show(frame);
            ExpectFinite();
        }
    }
    static constexpr double kAbsurd[] = {-0.5,   1.5,   -3,     1e4,    1e15,     -1e15,    1e300,
                                         -1e300, 1e308, -1e308, 4e-320, HUGE_VAL, -HUGE_VAL};
};

TEST_F(Recovery, FromAnySettingIsCompleteAtTheNextRestart) {
    PlayFinite(0, 12);
    const Shot wanted = scene().Camera();
    for (const std::int32_t id : kSettings) {
        const bool was_there = scene().State().Has(id);
        const double sound = scene().Real(id);
        for (const double absurd : kAbsurd) {
            SCOPED_TRACE(testing::Message() << id << " is " << absurd);
            scene().Set(id, absurd);
            PlayFinite(0, 8);
            scene().Show(100);
            ExpectFinite();
            if (was_there)
                scene().Set(id, sound);
            else
                scene().State().Remove(id);
            scene().PlaceInput({10, 150, -400}, {0.4, -0.2, 0.1});
            PlayFinite(0, 12);
            EXPECT_TRUE(scene().Camera() == wanted);
        }
        scene().Set(id, std::nan(""));
        PlayFinite(0, 8);
        scene().Set(id, sound);
    }
}

// With shake, jolts and targets off the camera ends where the input camera stands.
class QuietRecovery : public Recovery {
  protected:
    void SetUp() override {
        Recovery::SetUp();
        for (const std::int32_t id : {6024, 6025, 6026, 6134, 6135, 6136, 6128, 6129, 6130, 6028, 6029, 6030})
            scene().Set(id, 0);
        scene().State().Set(6145, 0);
        scene().Link(kTarget, nullptr);
        scene().Link(kFocusObject, nullptr);
    }
    // Plays ten frames, breaks something, and plays until all springs have come to rest.
    void PlayOn(std::int64_t last, const std::function<void()> &break_something) {
        scene().Play(0, 10);
        break_something();
        for (std::int64_t frame = 11; frame <= last; ++frame) {
            scene().Show(frame);
            ExpectFinite();
        }
    }
    void ExpectAtRest() { EXPECT_LT(Difference(scene().Camera(), ShotOf(scene().input)), 1e-6); }
};

TEST_F(QuietRecovery, FromMemoryThatIsNotFiniteEndsOnTheInputCamera) {
    for (const double broken : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
        for (const std::int32_t key : kNumbers) {
            SCOPED_TRACE(key);
            PlayOn(300, [&] { scene().Set(key, broken); });
            ExpectAtRest();
        }
        for (const std::int32_t key : kVectors) {
            SCOPED_TRACE(key);
            PlayOn(300, [&] { scene().State().SetVector(key, {broken, 1, broken}); });
            ExpectAtRest();
        }
    }
}

TEST_F(QuietRecovery, FromMemoryOfAnotherTypeEndsOnTheInputCamera) {
    std::vector<std::int32_t> keys(std::begin(kNumbers), std::end(kNumbers));
    keys.insert(keys.end(), std::begin(kVectors), std::end(kVectors));
    for (const std::int32_t key : keys) {
        SCOPED_TRACE(key);
        PlayOn(300, [&] { scene().State().Set(key, host::Data("no number")); });
        ExpectAtRest();
    }
}

// A filter needs many frames to come back from there; a restart needs none.
TEST_F(QuietRecovery, FromMemoryBeyondAllMeasureIsCompleteAtARestart) {
    for (const double absurd : {1e308, -1e308, 1e200, -1e15}) {
        for (const std::int32_t key : kNumbers) {
            SCOPED_TRACE(key);
            PlayOn(30, [&] { scene().Set(key, absurd); });
            scene().Show(0);
            ExpectAtRest();
        }
        for (const std::int32_t key : kVectors) {
            SCOPED_TRACE(key);
            PlayOn(30, [&] { scene().State().SetVector(key, {absurd, 1, -absurd}); });
            scene().Show(0);
            ExpectAtRest();
        }
    }
}

TEST_F(Recovery, FromALensOfZeroAndBelowIsImmediate) {
    for (const double focal_length : {0.0, -36.0}) {
        scene().input->Data().SetReal(host::kCameraFocalLength, focal_length);
        scene().input->Data().SetReal(host::kCameraFocusDistance, -5);
        PlayFinite(0, 20);
    }
}

TEST_F(Recovery, FromAnyJoltIntervalAndTextIsSafe) {
    const TableTime intervals[] = {host::MakeTime(1, 30),    host::MakeTime(0, 30), host::MakeTime(-20, 30),
                                   host::MakeTime(1e18, 30), TableTime{1, 0},       TableTime{1e300, 1e-300}};
    for (const TableTime &interval : intervals) {
        scene().State().Set(6038, host::Data(interval));
        PlayFinite(0, 20);
    }
    for (const char *text :
         {",,,,", "-1,-2", "99999999999999999999,1", "2147483647", "9999999", "1e9,nan,inf", "\xff\xfe,3", "0x10"}) {
        scene().State().Set(6181, host::Data(text));
        PlayFinite(0, 20);
    }
}

TEST_F(Recovery, FromATargetAnywhereIsSafe) {
    host::Object *target = scene().AddObject(host::kTypeNull, {0, 0, 0});
    scene().Link(kTarget, target);
    scene().Link(kFocusObject, target);
    for (const host::Vector &place : {host::Vector{10, 150, -400},
                                      {10, 1e9, -400},
                                      {10, -1e9, -400},
                                      {1e200, 1e200, 1e200},
                                      {1e-300, 0, 0},
                                      {1e308, -1e308, 1e308},
                                      {HUGE_VAL, 0, 0},
                                      {std::nan(""), 0, 0}}) {
        host::Transform transform = target->GetTransform();
        transform.position = place;
        target->SetTransform(transform);
        PlayFinite(0, 20);
    }
}

}  // namespace
