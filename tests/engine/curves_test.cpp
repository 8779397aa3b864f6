#include "engine/curves.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <map>
#include <utility>
#include <vector>

#include "host/value/memory.h"
#include "tests/engine/glue.h"
#include "tests/engine/shake_model.h"

namespace {

class Curves : public WithGlue {};

void ExpectEase(const CurveShape &shape, double start, double end) {
    const Curve curve(shape);
    SplineData *spline = curve;
    ASSERT_NE(spline, nullptr);
    ASSERT_NE(spline->GetKnot(1), nullptr);
    ASSERT_EQ(spline->GetKnot(2), nullptr);
    for (int i = 0; i <= 64; ++i)
        EXPECT_NEAR(spline->GetPoint(i / 64.0).y, model::EaseCurve(start, end, i / 64.0), 1e-9) << i;
}

TEST_F(Curves, TheSpeedWarpIsLevelForHalfTheWayAtBothEnds) { ExpectEase(kSpeedWarpCurve, 0.5, 0.5); }
TEST_F(Curves, TheLayerEaseIsLevelForAQuarterAndAnEighth) { ExpectEase(kLayerEaseCurve, 0.25, 0.125); }
TEST_F(Curves, TheZoomDriftEaseIsLevelForAQuarterAtBothEnds) { ExpectEase(kZoomDriftCurve, 0.25, 0.25); }

TEST_F(Curves, ACurveAskedOutsideItsKnotsHoldsTheEndsHeight) {
    for (const CurveShape &shape : {kSpeedWarpCurve, kLayerEaseCurve, kZoomDriftCurve}) {
        const Curve curve(shape);
        SplineData *spline = curve;
        ASSERT_NE(spline, nullptr);
        for (const double below : {0.0, -1e-12, -0.5, -1e300}) EXPECT_EQ(spline->GetPoint(below).y, 0) << below;
        for (const double above : {1.0, 1 + 1e-12, 7.0, 1e300}) EXPECT_EQ(spline->GetPoint(above).y, 1) << above;
    }
}

TEST_F(Curves, ACurveIsEmptyWhenTheHostHasNoMemory) {
    host::RefuseCustomData(0, 1);
    const Curve refused(kSpeedWarpCurve);
    host::RefuseCustomData(0, 0);
    EXPECT_EQ(static_cast<SplineData *>(refused), nullptr);
}

// Many more amounts than there is room for: each is known with its own value, or not at all.
RC_GTEST_PROP(BentAmounts, KnowNoAmountByTheValueOfAnother, ()) {
    const CurveShape *shapes[] = {&kSmoothingAmountCurve, &kSmoothingCurve, &kShakeSmoothingCurve, &kOvershootCurve};
    BentAmounts known;
    std::map<std::pair<const CurveShape *, Real>, Real> told;
    for (const int step : *rc::gen::container<std::vector<int>>(600, rc::gen::inRange(0, 400))) {
        const auto asked = std::make_pair(shapes[step % 4], step / 400.0);
        Real bent = -1;
        if (known.Find(*asked.first, asked.second, &bent)) RC_ASSERT(bent == told.at(asked));
        known.Remember(*asked.first, asked.second, told.try_emplace(asked, step).first->second);
        RC_ASSERT(known.Find(*asked.first, asked.second, &bent) && bent == told.at(asked));
    }
}

}  // namespace
