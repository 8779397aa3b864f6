// The entries that a module calls for values: what they answer for null handles and for handles of the wrong kind.
#include <gtest/gtest.h>

#include "host/services/noise.h"
#include "host/table/entries.h"
#include "host/value/container.h"
#include "host/value/custom.h"
#include "host/value/text.h"

namespace host {
namespace {

TEST(ValueEntries, AnswerNullHandlesWithNothing) {
    using C = ContainerEntries;
    Data value(5);
    C::copy(nullptr, nullptr, nullptr);
    C::flush(nullptr);
    C::release(nullptr);
    EXPECT_EQ(C::count(nullptr), 0);
    EXPECT_EQ(C::find(nullptr, 1), nullptr);
    EXPECT_EQ(C::id_at(nullptr, 0), -1);
    EXPECT_EQ(C::set(nullptr, 1, &value), 0);
    EXPECT_EQ(C::live(nullptr, 1), nullptr);
    EXPECT_EQ(C::live_at(nullptr, 0), nullptr);
    EXPECT_EQ(C::remove(nullptr, 1), 0);
    EXPECT_EQ(C::equal(nullptr, nullptr), 1);

    DataEntries::copy(&value, nullptr, nullptr);  // raw memory: the whole number owned nothing
    EXPECT_EQ(value.type, kDataNil);
    DataEntries::release(nullptr);
    EXPECT_EQ(DataEntries::equal(&value, nullptr), 0);

    EXPECT_EQ(LinkEntries::resolve(nullptr, nullptr, 0), nullptr);

    EXPECT_EQ(MathEntries::noise4(nullptr, 1), 0);
    EXPECT_EQ(DescriptionEntries::entry(nullptr, 0, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(DescriptionEntries::single_id(nullptr), nullptr);
    EXPECT_EQ(CustomDataEntries::spline_knot(nullptr, 0), nullptr);
}

TEST(ValueEntries, TakeASplineForNothingElse) {
    using C = CustomDataEntries;
    HostCustomData *spline = C::create(kDataSpline), *priority = C::create(kDataPriority);
    TableVector point{};
    EXPECT_EQ(C::spline_insert_knot(priority, 0, 0, 0), -1);
    EXPECT_EQ(C::spline_knot(priority, 0), nullptr);
    EXPECT_EQ(C::priority_set(spline, 0, nullptr), 0);
    EXPECT_EQ(C::spline_insert_knot(spline, 1, 1, 0), 0);
    EXPECT_EQ(C::spline_insert_knot(spline, 0, 0, 0), 0);
    EXPECT_EQ(C::spline_knot(spline, 1)->position.y, 1);
    EXPECT_EQ(C::spline_knot(spline, 2), nullptr);
    C::spline_point(spline, 0.25, &point);
    EXPECT_EQ(point.x, 0.25);
    EXPECT_EQ(point.y, 0.25);
    C::release(spline);
    C::release(priority);
    C::release(nullptr);
}

TEST(ValueEntries, AContainerIsFreedByReleaseAndUsableAgain) {
    TableContainer raw{nullptr, 3, 0};
    using C = ContainerEntries;
    C::set_real(&raw, 1, 2.5);
    ASSERT_NE(C::find(&raw, 1), nullptr);
    EXPECT_EQ(C::find(&raw, 1)->value.real, 2.5);
    C::release(&raw);
    EXPECT_EQ(raw.body, nullptr);
    const TableVector vector = {1, 2, 3};
    C::set_vector(&raw, 1, &vector);
    EXPECT_EQ(C::count(&raw), 1);
    EXPECT_EQ(raw.id, 3);
    C::release(&raw);
}

TEST(ValueEntries, PassOnNoise) {
    const TableVector point = {5, 6, 7};
    EXPECT_EQ(MathEntries::noise4(&point, 1.5), SignedNoise(5, 6, 7, 1.5));
}

}  // namespace
}  // namespace host
