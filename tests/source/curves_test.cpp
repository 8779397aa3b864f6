#include <gtest/gtest.h>

#include "engine/host.h"
#include "host/value/memory.h"
#include "tag/hostmaths.h"
#include "tests/source/glue.h"
#include "tests/support/shake_model.h"

namespace {

class Curves : public WithGlue {};

void ExpectEase(const engine::CurveShape &shape, double start, double end) {
    const engine::OwnedCurve curve(HostMaths(), shape);
    ASSERT_NE(curve.Get(), nullptr);
    for (int i = 0; i <= 64; ++i)
        EXPECT_NEAR(HostMaths().curve_height(curve.Get(), i / 64.0), model::EaseCurve(start, end, i / 64.0), 1e-9) << i;
}

TEST_F(Curves, TheSpeedWarpIsLevelForHalfTheWayAtBothEnds) { ExpectEase(engine::kSpeedWarpCurve, 0.5, 0.5); }
TEST_F(Curves, TheCurveThatNoLayerReadsIsLevelForAQuarterAndAnEighth) { ExpectEase(engine::kProbeCurve, 0.25, 0.125); }
TEST_F(Curves, TheZoomDriftEaseIsLevelForAQuarterAtBothEnds) { ExpectEase(engine::kZoomDriftCurve, 0.25, 0.25); }

TEST_F(Curves, ACurveAskedOutsideItsKnotsHoldsTheEndsHeight) {
    for (const engine::CurveShape &shape : {engine::kSpeedWarpCurve, engine::kProbeCurve, engine::kZoomDriftCurve}) {
        const engine::OwnedCurve curve(HostMaths(), shape);
        ASSERT_NE(curve.Get(), nullptr);
        const auto height = [&](double x) { return HostMaths().curve_height(curve.Get(), x); };
        for (const double below : {0.0, -1e-12, -0.5, -1e300}) EXPECT_EQ(height(below), 0) << below;
        for (const double above : {1.0, 1 + 1e-12, 7.0, 1e300}) EXPECT_EQ(height(above), 1) << above;
    }
}

TEST_F(Curves, ACurveIsEmptyWhenTheHostHasNoMemory) {
    host::RefuseCustomData(0, 1);
    const engine::OwnedCurve refused(HostMaths(), engine::kSpeedWarpCurve);
    host::RefuseCustomData(0, 0);
    EXPECT_EQ(refused.Get(), nullptr);
}

}  // namespace
