#include "engine/curves.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <map>
#include <utility>
#include <vector>

#include "tests/engine/plain_host.h"

namespace {

using namespace engine;

// Many more amounts than there is room for: each is known with its own value, or not at all.
RC_GTEST_PROP(BentAmounts, KnowNoAmountByTheValueOfAnother, ()) {
    const CurveShape *shapes[] = {&kSmoothingAmountCurve, &kSmoothingCurve, &kShakeSmoothingCurve, &kOvershootCurve};
    BentAmounts known;
    std::map<std::pair<const CurveShape *, double>, double> told;
    for (const int step : *rc::gen::container<std::vector<int>>(600, rc::gen::inRange(0, 400))) {
        const auto asked = std::make_pair(shapes[step % 4], step / 400.0);
        double bent = -1;
        if (known.Find(*asked.first, asked.second, &bent)) RC_ASSERT(bent == told.at(asked));
        known.Remember(*asked.first, asked.second, told.try_emplace(asked, step).first->second);
        RC_ASSERT(known.Find(*asked.first, asked.second, &bent) && bent == told.at(asked));
    }
}

void ExpectTangents(const CurveShape &shape, const double (&numbers)[8]) {
    const auto &[start_left, start_right, end_left, end_right] = shape;
    const double tangents[] = {start_left.x, start_left.y, start_right.x, start_right.y,
                               end_left.x,   end_left.y,   end_right.x,   end_right.y};
    for (int i = 0; i < 8; ++i) EXPECT_EQ(tangents[i], numbers[i]) << i;
}

TEST(Curves, ThatAreOwnedAreFreed) {
    const int before = engine_test::LivingCurves();
    {
        const OwnedCurve curve(engine_test::PlainHost(), kSmoothingCurve);
        ASSERT_NE(curve.Get(), nullptr);
        EXPECT_EQ(engine_test::LivingCurves(), before + 1);
    }
    EXPECT_EQ(engine_test::LivingCurves(), before);
}

TEST(Curves, HaveTheirTangents) {
    ExpectTangents(kSpeedWarpCurve, {0, 0, 0.5, 0, -0.5, 0, 0.5, 0});
    ExpectTangents(kProbeCurve, {0, 0, 0.25, 0, -0.125, 0, 0.125, 0});
    ExpectTangents(kSmoothingAmountCurve, {0, 0, 0.019, 0.063, -0.531, -0.109, 0.531, 0.109});
    ExpectTangents(kSmoothingCurve, {0, 0, 0, 0.711, -0.238, -0.078, 0.238, 0.078});
    ExpectTangents(kShakeSmoothingCurve, {0, 0, 0, 0.352, -0.125, 0, 0.125, 0});
    ExpectTangents(kOvershootCurve, {0, 0, 0, 0.45, -0.25, -0.01, 0.25, 0.01});
    ExpectTangents(kZoomDriftCurve, {0, 0, 0.25, 0, -0.25, 0, 0.25, 0});
}

// A room for 256: amounts that fall anywhere leave 84 of 101 their own place, those that pile up far fewer.
TEST(BentAmounts, RoundOnesAreSpreadOverTheWholeRoom) {
    for (const double step : {0.01, 0.5, 1.0}) {
        BentAmounts known;
        int found = 0;
        for (int i = 0; i <= 100; ++i) known.Remember(kOvershootCurve, i * step, i);
        for (int i = 0; i <= 100; ++i) {
            double bent;
            found += known.Find(kOvershootCurve, i * step, &bent) ? 1 : 0;
        }
        EXPECT_GE(found, 65) << step;
    }
}

}  // namespace
