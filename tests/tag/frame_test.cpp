// What one evaluated frame makes of the input camera.
#include <cmath>

#include "host/scene/angles.h"
#include "host/value/memory.h"
#include "tests/support/shake_model.h"
#include "tests/tag/scene.h"
#include "tests/tag/tracks.h"

namespace {

using namespace tag_test;

class Frame : public WithScene {
  protected:
    // The angles that the camera was left with.
    host::Vector Angles() { return scene().State().GetVector(kPreviousRotation); }
    // The input camera as it is: no shake, nothing that smooths.
    void NoShake() {
        for (const std::int32_t id : {6024, 6025, 6026, 6028, 6029, 6030}) scene().Set(id, 0);
        scene().StopFilters();
    }
    // The raw shake of the settings in the container, at the clock in the container.
    host::Vector PositionShake(double offset) {
        double shake[3];
        for (int axis = 0; axis < 3; ++axis)
            shake[axis] = model::PositionShake(axis, std::trunc(scene().Real(kSeed)), offset,
                                               {2 * scene().Real(6024), scene().Real(6025), scene().Real(6026)},
                                               scene().Real(6076 + axis), scene().Real(6020), 0.15 * scene().Real(6022),
                                               scene().Real(kSpeed), scene().Real(10051));
        return {shake[0], shake[1], shake[2]};
    }
    host::Vector RotationShake(std::int32_t offset) {
        double shake[3];
        for (int angle = 0; angle < 3; ++angle)
            shake[angle] = model::RotationShake(angle, std::trunc(scene().Real(kSeed)), offset,
                                                {scene().Real(6028), scene().Real(6029), scene().Real(6030)},
                                                scene().Real(6100 + angle), scene().Real(6021), scene().Real(kSpeed),
                                                scene().Real(10051));
        return {shake[0], shake[1], shake[2]};
    }
    static void ExpectNear(const host::Vector &got, const host::Vector &wanted, double tolerance = 1e-9) {
        EXPECT_NEAR(got.x, wanted.x, tolerance);
        EXPECT_NEAR(got.y, wanted.y, tolerance);
        EXPECT_NEAR(got.z, wanted.z, tolerance);
    }
};

TEST_F(Frame, WithEveryAmountAtZeroShowsTheInputCamera) {
    NoShake();
    scene().PlaceInput({1, 2, 3}, {0.3, 0.2, 0.1});
    for (int frame = 0; frame <= 5; ++frame) {
        scene().Show(frame);
        EXPECT_EQ(scene().Position().x, 1);
        EXPECT_EQ(scene().Position().y, 2);
        EXPECT_EQ(scene().Position().z, 3);
        EXPECT_LT(Difference(scene().Camera(), ShotOf(scene().input)), 1e-12);
    }
}

TEST_F(Frame, WithEveryAmountAtZeroPassesFocalLengthAndFocusDistanceOn) {
    NoShake();
    for (int frame = 0; frame <= 3; ++frame) {
        scene().input->Data().SetReal(host::kCameraFocalLength, 30 + frame);
        scene().input->Data().SetReal(host::kCameraFocusDistance, 400 + 7 * frame);
        scene().Show(frame);
        EXPECT_NEAR(scene().Camera().focal_length, 30 + frame, 1e-12);
        EXPECT_NEAR(scene().Camera().focus_distance, 400 + 7 * frame, 1e-12);
    }
}

TEST_F(Frame, AddsTheRawShakeOfItsClock) {
    scene().Shake();
    scene().PlaceInput({100, 50, -200}, {0.4, -0.3, 0.1});
    for (int frame = 0; frame <= 40; ++frame) {
        scene().Show(frame);
        ExpectNear(scene().Position(), host::Vector{100, 50, -200} + PositionShake(0));
        ExpectNear(Angles(), host::Vector{0.4, -0.3, 0.1} + RotationShake(0));
    }
}

TEST_F(Frame, BuildsItsMatrixFromTheAnglesThatItKeeps) {
    scene().Shake();
    scene().PlaceInput({0, 0, 0}, {0.4, -0.3, 0.1});
    scene().Play(0, 9);
    const host::Matrix wanted = host::HpbToMatrix(Angles()), got = scene().Camera().matrix;
    ExpectNear(got.v1, wanted.v1, 1e-12);
    ExpectNear(got.v2, wanted.v2, 1e-12);
    ExpectNear(got.v3, wanted.v3, 1e-12);
}

TEST_F(Frame, ShakesOnlyTheAxesAndAnglesThatAreSwitchedOn) {
    scene().Shake();
    scene().PlaceInput({0, 0, 0}, {0.4, -0.3, 0.1});
    for (const std::int32_t off : {6010, 6011, 6012, 6013, 6014, 6015}) {
        for (std::int32_t id = 6010; id <= 6015; ++id) scene().State().Set(id, id == off ? 0 : 1);
        scene().Show(0);
        scene().Show(30);
        const host::Vector position = PositionShake(0), angles = RotationShake(0);
        ExpectNear(scene().Position(),
                   {off == 6010 ? 0 : position.x, off == 6011 ? 0 : position.y, off == 6012 ? 0 : position.z});
        ExpectNear(Angles(), {0.4 + (off == 6013 ? 0 : angles.x), -0.3 + (off == 6014 ? 0 : angles.y),
                              0.1 + (off == 6015 ? 0 : angles.z)});
    }
}

TEST_F(Frame, MovesThePositionByTheWholeTimeOffsetAndTheRotationByItsWholePart) {
    scene().Shake();
    scene().Set(kTimeOffset, 2.7);
    scene().Play(0, 12);
    ExpectNear(scene().Position(), PositionShake(2.7));
    ExpectNear(Angles(), RotationShake(2));
    scene().Set(kTimeOffset, -2.7);
    scene().Show(13);
    ExpectNear(scene().Position(), PositionShake(-2.7));
    ExpectNear(Angles(), RotationShake(-2));
}

TEST_F(Frame, ScalesThePositionShakeAloneByTheOverallScale) {
    scene().Shake();
    scene().Set(6022, 1);
    scene().Show(17);
    const host::Vector position = scene().Position(), angles = Angles();
    scene().Set(6022, 3);
    scene().Show(0);
    scene().Show(17);
    ExpectNear(scene().Position(), position * 3);
    ExpectNear(Angles(), angles);
}

TEST_F(Frame, WithAllPositionRatiosAtZeroHasNoPositionShakeWhateverTheIntensity) {
    scene().Shake();
    for (const std::int32_t id : {6076, 6077, 6078}) scene().Set(id, 0);
    scene().Set(6020, 1e6);
    scene().Play(0, 10);
    EXPECT_TRUE(scene().Position() == (host::Vector{0, 0, 0}));
}

TEST_F(Frame, AtSpeedZeroStandsStill) {
    scene().Shake();
    scene().Set(kSpeed, 0);
    scene().Show(0);
    const Shot shot = scene().Camera();
    for (int frame = 1; frame <= 5; ++frame) {
        scene().Show(frame);
        EXPECT_TRUE(scene().Camera() == shot);
        EXPECT_EQ(scene().Real(10051), 0);
    }
}

TEST_F(Frame, StopsTheClocksWhereTheSpeedBecomesZero) {
    scene().Play(0, 10);
    scene().Set(kSpeed, 0);
    scene().Show(11);  // goes on by the step of frame 10
    EXPECT_EQ(scene().Real(kStep), 0);
    const double clock = scene().Real(10051);
    scene().Play(12, 15);
    EXPECT_EQ(scene().Real(10051), clock);
}

TEST_F(Frame, WithoutVariationStepsByExactlyTheSpeed) {
    scene().Set(kVariation, 0);
    scene().Set(kSpeed, 1.375);
    for (int frame = 0; frame <= 20; ++frame) {
        scene().Show(frame);
        EXPECT_EQ(scene().Real(kStep), 1.375);
        EXPECT_EQ(scene().Real(10051), 1.375 * frame);
    }
}

TEST_F(Frame, ScalesTheFocusAndZoomClocksByTheirSpeeds) {
    scene().Set(kVariation, 0);
    scene().Set(kFocusSpeed, 3);
    scene().Set(kZoomSpeed, 0.5);
    scene().Play(0, 8);
    EXPECT_EQ(scene().Real(10052), 24);
    EXPECT_EQ(scene().Real(10053), 4);
    for (const std::int32_t key : {10051, 10054, 10055, 10056}) EXPECT_EQ(scene().Real(key), 8) << key;
}

TEST_F(Frame, KeepsAHeadingThatPassesHalfATurnGoingOn) {
    NoShake();
    scene().PlaceInput({0, 0, 0}, {179 * kDegree, 0, 0});
    scene().Play(0, 1);
    scene().PlaceInput({0, 0, 0}, {-179 * kDegree, 0, 0});
    scene().Show(2);
    EXPECT_NEAR(Angles().x, 181 * kDegree, 1e-9);
    scene().PlaceInput({0, 0, 0}, {-170 * kDegree, 0, 0});
    scene().Show(3);
    EXPECT_NEAR(Angles().x, 190 * kDegree, 1e-9);
}

TEST_F(Frame, ZeroTakesTheRotationAsItIsComputed) {
    NoShake();
    scene().document->SetRange(-10, 100);
    scene().PlaceInput({0, 0, 0}, {179 * kDegree, 0, 0});
    scene().Show(-1);
    ASSERT_NEAR(Angles().x, 179 * kDegree, 1e-9);
    scene().PlaceInput({0, 0, 0}, {-179 * kDegree, 0, 0});
    scene().Show(0);
    EXPECT_NEAR(Angles().x, -179 * kDegree, 1e-9) << "closest to 0, not to the frame before";
}

TEST_F(Frame, TakesTheOtherAnglesOfTheSameRotationWhereTheyAreCloser) {
    NoShake();
    scene().PlaceInput({0, 0, 0}, {0, 80 * kDegree, 0});
    scene().Play(0, 1);
    // Over the top: pitch 100, which the matrix gives back as pitch 80 with heading and bank turned round.
    scene().PlaceInput({0, 0, 0}, {0, 100 * kDegree, 0});
    scene().Show(2);
    ExpectNear(Angles(), {0, 100 * kDegree, 0});
}

TEST_F(Frame, NormalisesTheAxesOfAScaledInput) {
    NoShake();
    host::Transform transform;
    transform.rotation = {0.3, 0.2, 0.1};
    transform.scale = {2, 3, 0.5};
    scene().input->SetTransform(transform);
    scene().Show(0);
    scene().Show(1);
    ExpectNear(Angles(), {0.3, 0.2, 0.1});
    const host::Matrix matrix = scene().Camera().matrix;
    for (const host::Vector &axis : {matrix.v1, matrix.v2, matrix.v3}) EXPECT_NEAR(host::Length(axis), 1, 1e-12);
}

TEST_F(Frame, IsGlobalForBothCameras) {
    NoShake();
    host::Object *rig = scene().AddObject(host::kTypeNull, {100, 0, 0});
    host::Object *crane = scene().AddObject(host::kTypeNull, {0, 0, 77});
    scene().input->InsertUnder(rig);
    scene().camera->InsertUnder(crane);
    scene().PlaceInput({1, 2, 3}, {0, 0, 0});
    scene().Play(0, 1);
    ExpectNear(scene().Position(), {101, 2, 3});
}

TEST_F(Frame, FollowsAnInputCameraThatTracksMove) {
    NoShake();
    Animate(scene().input, host::MakeId(host::kParamRelPosition, host::kVectorX), 30, {{0, 0}, {30, 300}});
    for (const std::int64_t frame : {0, 1, 2, 20, 7}) {
        scene().Show(frame);
        EXPECT_NEAR(scene().Position().x, 10.0 * static_cast<double>(frame), 1e-9) << frame;
    }
}

TEST_F(Frame, WithoutMemoryForTheSpeedsCurveLeavesClocksAndCamera) {
    scene().Shake();
    scene().Play(0, 5);
    const Shot shot = scene().Camera();
    const double clock = scene().Real(10051), step = scene().Real(kStep);
    scene().document->SetFrame(6);
    host::RefuseCustomData(0, 1);
    EXPECT_EQ(scene().Execute(), 0);
    host::RefuseCustomData(0, 0);
    EXPECT_EQ(scene().Real(10051), clock);
    EXPECT_EQ(scene().Real(kStep), step);
    EXPECT_TRUE(scene().Camera() == shot);
}

TEST_F(Frame, WithoutMemoryForTheSecondCurveAdvancesTheClocksAndLeavesTheCamera) {
    scene().Shake();
    scene().Play(0, 5);
    const Shot shot = scene().Camera();
    const double clock = scene().Real(10051), step = scene().Real(kStep);
    scene().document->SetFrame(6);
    host::RefuseCustomData(1, 1);
    EXPECT_EQ(scene().Execute(), 0);
    host::RefuseCustomData(0, 0);
    EXPECT_EQ(scene().Real(10051), clock + step);
    EXPECT_TRUE(scene().Camera() == shot);
}

TEST_F(Frame, WithoutAnyMemoryForCurvesIsHarmlessInRestartsAndJumps) {
    scene().Shake();
    scene().Play(0, 5);
    host::RefuseCustomData(0, 1000000);
    for (const std::int64_t frame : {0, 40, 6}) {
        scene().document->SetFrame(frame);
        EXPECT_EQ(scene().Execute(), 0);
        EXPECT_TRUE(host::IsFinite(scene().Camera().matrix));
    }
    host::RefuseCustomData(0, 0);
}

TEST_F(Frame, ReadsAParameterThatIsNotFiniteAsItsDefault) {
    const std::pair<std::int32_t, double> defaults[] = {
        {6020, 1}, {6021, 1},      {6022, 1}, {6024, 0},        {6028, 0}, {6152, 1}, {6132, 1},
        {6138, 1}, {kSeed, 12345}, {6149, 0}, {kTimeOffset, 0}, {6076, 1}, {6100, 1}};
    for (const auto &[id, value] : defaults) {
        scene().Shake();
        scene().Set(id, value);
        scene().Play(0, 7);
        const Shot wanted = scene().Camera();
        for (const double broken : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
            scene().Set(id, broken);
            scene().Play(0, 7);
            EXPECT_TRUE(scene().Camera() == wanted) << id << " is " << broken;
            scene().Show(100);
            scene().Show(7);
            EXPECT_LT(Difference(scene().Camera(), wanted), 1e-9) << id << " is " << broken << " in a jump";
        }
        scene().Set(id, value);
    }
}

TEST_F(Frame, RestartsAClockThatIsNotFiniteAtZero) {
    for (const double broken : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
        scene().Play(0, 10);
        const double step = scene().Real(kStep);
        for (const std::int32_t key : kClocks) {
            if (key == kStep) continue;
            scene().Set(key, broken);
        }
        scene().Show(11);
        EXPECT_EQ(scene().Real(10051), step);
        scene().Set(kStep, broken);
        const double clock = scene().Real(10051);
        scene().Show(12);
        EXPECT_EQ(scene().Real(10051), clock) << "a step that is no number counts as 0";
        EXPECT_TRUE(std::isfinite(scene().Real(kStep)));
    }
}

TEST_F(Frame, IsWithoutAShakeThatIsNotFinite) {
    NoShake();
    scene().PlaceInput({1, 2, 3}, {0.3, 0.2, 0.1});
    scene().Play(0, 5);
    scene().Set(6024, 1e308);
    scene().Set(6020, 1e308);
    scene().Play(6, 9);
    EXPECT_TRUE(scene().Position() == (host::Vector{1, 2, 3}));
    scene().Set(6020, 1);
    scene().Set(6024, 0.5);
    scene().Play(10, 11);
    ExpectNear(scene().Position(), host::Vector{1, 2, 3} + PositionShake(0));
}

TEST_F(Frame, OfAnInputCameraThatIsNowhereLeavesTheCamera) {
    scene().Shake();
    scene().Play(0, 5);
    const Shot shot = scene().Camera();
    scene().PlaceInput({HUGE_VAL, 0, 0}, {0, 0, 0});
    scene().Play(6, 8);
    EXPECT_TRUE(scene().Camera() == shot);
    scene().PlaceInput({7, 0, 0}, {0, 0, 0});
    scene().Set(6020, 0);
    scene().Play(9, 10);
    EXPECT_NEAR(scene().Position().x, 7, 1e-9);
}

TEST_F(Frame, SurvivesSettingsFarBeyondThePanelsLimits) {
    const std::int32_t numbers[] = {6020, 6021, 6022, 6024, 6025, 6026, 6028, 6029, 6030, 6132, 6134, 6138, 6142,
                                    6149, 6151, 6152, 6153, 6155, 6156, 6158, 6037, 6140, 6170, 6059, 6064, 6076};
    for (const double absurd : {1e300, -1e300, 1e15, -4e9, -1.0}) {
        for (const std::int32_t id : numbers) {
            const double before = scene().Real(id);
            scene().Set(id, absurd);
            scene().Play(0, 3);
            scene().Show(60);
            EXPECT_TRUE(host::IsFinite(scene().Camera().matrix)) << id << " is " << absurd;
            EXPECT_TRUE(std::isfinite(scene().Camera().focal_length)) << id;
            EXPECT_TRUE(std::isfinite(scene().Camera().focus_distance)) << id;
            scene().Set(id, before);
        }
    }
}

TEST_F(Frame, CutsASeedToAWholeNumber) {
    scene().Shake();
    scene().Set(kSeed, 777);
    scene().Play(0, 9);
    const Shot whole = scene().Camera();
    scene().Set(kSeed, 777.9);
    scene().Play(0, 9);
    EXPECT_TRUE(scene().Camera() == whole);
    scene().Set(kSeed, 778);
    scene().Play(0, 9);
    EXPECT_FALSE(scene().Camera() == whole);
}

TEST_F(Frame, ReadsNumbersOfAnyKindAndOtherValuesAsZero) {
    scene().Shake();
    scene().Set(6022, 2);
    scene().Play(0, 9);
    const Shot real = scene().Camera();
    scene().State().Set(6022, 2);
    scene().Play(0, 9);
    EXPECT_TRUE(scene().Camera() == real);
    scene().State().Set(6022, host::Data("large"));
    scene().Play(0, 9);
    EXPECT_TRUE(scene().Position() == (host::Vector{0, 0, 0}));
}

TEST_F(Frame, LeavesThePlaceholderOfTheTriggerAlone) {
    scene().Show(0);
    EXPECT_EQ(scene().State().Text(6181), "Numbers seperated by commas");
    scene().Play(1, 3);
    EXPECT_EQ(scene().State().Text(6181), "Numbers seperated by commas");
}

TEST_F(Frame, AcceptsAnyTextAsATrigger) {
    for (const char *text : {"", "3,4", "99999999999999999999", "-5, x,,7;", "\xF0\x9F\x8E\xA5", ",,,,"}) {
        scene().State().Set(6181, host::Data(text));
        scene().State().Set(6209, host::Data(text));
        scene().Play(0, 5);
        EXPECT_TRUE(host::IsFinite(scene().Camera().matrix)) << text;
    }
}

}  // namespace
