#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "host/value/custom.h"

namespace host {
namespace {

struct Knot {
    double x, y, left_x, left_y, right_x, right_y;
};

Spline MakeSpline(const std::vector<Knot> &knots) {
    Spline spline;
    for (const Knot &k : knots) {
        auto &knot = spline.knots[static_cast<std::size_t>(spline.Insert(k.x, k.y, 0))];
        knot.tangent_left = {k.left_x, k.left_y, 0};
        knot.tangent_right = {k.right_x, k.right_y, 0};
    }
    return spline;
}

// The curve's y at x, found without solving: dense samples of the parametric curve by de Casteljau's construction, and
// a straight line between the two samples on either side of x.
double Sampled(const Knot &a, const Knot &b, double x) {
    const double xs[] = {a.x, a.x + a.right_x, b.x + b.left_x, b.x}, ys[] = {a.y, a.y + a.right_y, b.y + b.left_y, b.y};
    const auto point = [](const double(&p)[4], double s) {
        const double ab = p[0] + (p[1] - p[0]) * s, bc = p[1] + (p[2] - p[1]) * s, cd = p[2] + (p[3] - p[2]) * s;
        const double abc = ab + (bc - ab) * s, bcd = bc + (cd - bc) * s;
        return abc + (bcd - abc) * s;
    };
    constexpr int kSamples = 20000;
    int low = 0, high = kSamples;
    while (high - low > 1) {
        const int middle = (low + high) / 2;
        (point(xs, static_cast<double>(middle) / kSamples) <= x ? low : high) = middle;
    }
    const double s0 = static_cast<double>(low) / kSamples, s1 = static_cast<double>(high) / kSamples;
    const double x0 = point(xs, s0), x1 = point(xs, s1), y0 = point(ys, s0), y1 = point(ys, s1);
    return x1 > x0 ? y0 + (y1 - y0) * ((x - x0) / (x1 - x0)) : y0;
}

TEST(Spline, KeepsItsKnotsInTheOrderOfX) {
    Spline spline;
    EXPECT_EQ(spline.Insert(1, 10, 0), 0);
    EXPECT_EQ(spline.Insert(0, 20, 0), 0);
    EXPECT_EQ(spline.Insert(0.5, 30, 0), 1);
    EXPECT_EQ(spline.Insert(0.5, 40, 0), 2);  // behind the one that is there
    const double ys[] = {20, 30, 40, 10};
    for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(spline.knots[i].position.y, ys[i]);
}

TEST(Spline, RefusesAKnotThatLiesNowhere) {
    Spline spline;
    EXPECT_EQ(spline.Insert(std::nan(""), 0, 0), -1);
    EXPECT_EQ(spline.Insert(0, HUGE_VAL, 0), -1);
    EXPECT_TRUE(spline.knots.empty());
    EXPECT_EQ(spline.ValueAt(0.5), 0);
}

TEST(Spline, HoldsTheEndKnotsOutside) {
    const Spline spline = MakeSpline({{0, 3, 0, 0, 0.5, 1}, {1, 7, -0.5, 1, 0.5, 0}});
    EXPECT_EQ(spline.ValueAt(-1e300), 3);
    EXPECT_EQ(spline.ValueAt(-1e-9), 3);
    EXPECT_EQ(spline.ValueAt(1 + 1e-9), 7);
    EXPECT_EQ(spline.ValueAt(HUGE_VAL), 7);
    EXPECT_EQ(spline.ValueAt(-HUGE_VAL), 3);
    EXPECT_EQ(spline.ValueAt(std::nan("")), 3);
}

TEST(Spline, IsExactAtItsKnots) {
    const Spline spline =
        MakeSpline({{0.1, 0.3, 0, 0, 0.2, 1}, {0.7, -0.9, -0.1, 0.4, 0.1, 3}, {1.9, 11.7, -0.3, 1, 0, 0}});
    EXPECT_EQ(spline.ValueAt(0.1), 0.3);
    EXPECT_EQ(spline.ValueAt(0.7), -0.9);
    EXPECT_EQ(spline.ValueAt(1.9), 11.7);
}

TEST(Spline, WithoutTangentsIsAStraightLine) {
    const Spline spline = MakeSpline({{0, 0, 0, 0, 0, 0}, {2, 1, 0, 0, 0, 0}});
    for (double x : {0.0, 0.25, 0.5, 1.0, 1.5, 2.0}) EXPECT_DOUBLE_EQ(spline.ValueAt(x), x / 2);
}

TEST(Spline, ALinearPieceIgnoresTangents) {
    Spline spline = MakeSpline({{0, 0, 0, 0, 0.3, 5}, {1, 4, -0.3, 5, 0, 0}});
    spline.knots[0].interpolation = 1;
    EXPECT_DOUBLE_EQ(spline.ValueAt(0.25), 1);
    spline.knots[0].interpolation = 0;
    EXPECT_GT(spline.ValueAt(0.25), 2);
}

TEST(Spline, TheEaseCurveIsSymmetricAboutItsMiddle) {
    const Spline spline = MakeSpline({{0, 0, 0, 0, 0.5, 0}, {1, 1, -0.5, 0, 0.5, 0}});
    EXPECT_NEAR(spline.ValueAt(0.5), 0.5, 1e-15);
    for (int i = 1; i < 100; ++i) {
        const double x = i / 100.0;
        EXPECT_NEAR(spline.ValueAt(x) + spline.ValueAt(1 - x), 1, 1e-14);
    }
    // Both control points at x = 0.5: x = 1.5 s - 1.5 s^2 + s^3, y = 3 s^2 - 2 s^3. At s = 1/4: x = 19/64, y = 10/64.
    EXPECT_NEAR(spline.ValueAt(19.0 / 64), 10.0 / 64, 1e-15);
}

TEST(Spline, TangentsThatOvershootAreCutToThePiece) {
    const Spline wild = MakeSpline({{0, 0, 0, 0, 4, 2}, {1, 1, -3, 0, 0, 0}});
    const Spline cut = MakeSpline({{0, 0, 0, 0, 1, 0.5}, {1, 1, -1, 0, 0, 0}});
    for (double x : {0.1, 0.4, 0.6, 0.9}) EXPECT_NEAR(wild.ValueAt(x), cut.ValueAt(x), 1e-12);
    // Tangents that point out of the piece have no part in it.
    const Spline backward = MakeSpline({{0, 0, 0, 0, -0.5, 3}, {1, 1, 0.5, 3, 0, 0}});
    EXPECT_NEAR(backward.ValueAt(0.5), 0.5, 1e-15);
}

TEST(Spline, AnUprightTangentKeepsItsHeight) {
    // At s = 1/2 the control values weigh 1, 3, 3, 1 eighths: x = (3 * 0 + 3 * 0.75 + 1) / 8 = 0.40625 and
    // y = (3 * 0.45 + 3 * 0.99 + 1) / 8 = 0.665.
    const Knot a = {0, 0, 0, 0, 0, 0.45}, b = {1, 1, -0.25, -0.01, 0.25, 0.01};
    const Spline spline = MakeSpline({a, b});
    EXPECT_NEAR(spline.ValueAt(0.40625), 0.665, 1e-14);
    for (double x : {0.001, 0.05, 0.3, 0.8, 0.999}) EXPECT_NEAR(spline.ValueAt(x), Sampled(a, b, x), 1e-6) << x;
}

TEST(Spline, AVerticalMiddleIsSolvedToo) {
    // Full tangents: x = 3 s - 6 s^2 + 4 s^3 stands still at s = 1/2, where x = y = 1/2.
    const Spline spline = MakeSpline({{0, 0, 0, 0, 1, 0}, {1, 1, -1, 0, 0, 0}});
    EXPECT_NEAR(spline.ValueAt(0.5), 0.5, 1e-4);
    EXPECT_LT(spline.ValueAt(0.49), 0.5);
    EXPECT_GT(spline.ValueAt(0.51), 0.5);
}

TEST(Spline, SurvivesKnotsThatWereWrittenOutOfOrder) {
    Spline spline =
        MakeSpline({{0, 0, 0, 0, 0.1, 0}, {0.3, 1, -0.1, 0, 0.1, 0}, {0.6, 2, -0.1, 0, 0.1, 0}, {1, 3, 0, 0, 0, 0}});
    for (double written : {-5.0, 0.9, 7.0, std::nan(""), HUGE_VAL}) {
        spline.knots[1].position.x = written;
        spline.knots[2].position.x = -written;
        for (double x = -0.5; x < 1.5; x += 0.01) {
            const double y = spline.ValueAt(x);
            EXPECT_TRUE(y >= 0 && y <= 3) << written << " " << x << " " << y;
        }
    }
}

TEST(Spline, EqualsACopyUntilAKnotChanges) {
    const Spline spline = MakeSpline({{0, 0, 0, 0, 0.5, 0}, {1, 1, -0.5, 0, 0.5, 0}});
    Spline copy(spline);
    EXPECT_TRUE(copy.Equals(spline));
    copy.knots[1].tangent_left.y = 0.1;
    EXPECT_FALSE(copy.Equals(spline));
}

RC_GTEST_PROP(SplineProperty, AgreesWithTheParametricCurve, ()) {
    const auto part = [](int low, int high) { return *rc::gen::inRange(low, high) / 1000.0; };
    const double x0 = part(-3000, 3000), width = part(1, 5000);
    const Knot a = {x0, part(-2000, 2000), 0, 0, part(0, 900) * width, part(-2000, 2000)};
    const Knot b = {x0 + width, part(-2000, 2000), part(-900, 0) * width, part(-2000, 2000), 0, 0};
    const Spline spline = MakeSpline({a, b});
    for (int i = 0; i <= 16; ++i) {
        const double x = a.x + (b.x - a.x) * (i / 16.0);
        RC_ASSERT(std::fabs(spline.ValueAt(x) - Sampled(a, b, x)) < 1e-3);
    }
}

RC_GTEST_PROP(SplineProperty, WithFlatTangentsRisesFromEndToEnd, ()) {
    const double right = *rc::gen::inRange(0, 2001) / 1000.0, left = *rc::gen::inRange(0, 2001) / -1000.0;
    const Spline spline = MakeSpline({{0, 0, 0, 0, right, 0}, {1, 1, left, 0, 0, 0}});
    double last = 0;
    for (int i = 1; i <= 200; ++i) {
        const double y = spline.ValueAt(i / 200.0);
        RC_ASSERT(y >= last - 1e-12 && y <= 1 + 1e-15);
        last = y;
    }
}

}  // namespace
}  // namespace host
