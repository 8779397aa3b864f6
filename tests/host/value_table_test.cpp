// The entries that a module calls for values: what they answer for null handles and for handles of the wrong kind.
#include <gtest/gtest.h>

#include "host/services/noise.h"
#include "host/table/internal.h"
#include "host/value/container.h"
#include "host/value/custom.h"
#include "host/value/text.h"

namespace host {
namespace {

TEST(ValueEntries, AnswerNullHandlesWithNothing) {
    const ContainerTable &c = *ContainerEntries();
    Data value(5);
    c.copy(nullptr, nullptr, nullptr);
    c.flush(nullptr);
    c.release(nullptr);
    c.sort(nullptr);
    EXPECT_EQ(c.count(nullptr), 0);
    EXPECT_EQ(c.find(nullptr, 1), nullptr);
    EXPECT_EQ(c.index_of(nullptr, 1), -1);
    EXPECT_EQ(c.id_at(nullptr, 0), -1);
    EXPECT_EQ(c.set(nullptr, 1, &value), 0);
    EXPECT_EQ(c.live(nullptr, 1), nullptr);
    EXPECT_EQ(c.live_at(nullptr, 0), nullptr);
    EXPECT_EQ(c.remove(nullptr, 1), 0);
    EXPECT_EQ(c.equal(nullptr, nullptr), 1);
    EXPECT_EQ(c.get_parameter(nullptr, nullptr, nullptr), 0);

    DataEntries()->copy(&value, nullptr, nullptr);  // raw memory: the whole number owned nothing
    EXPECT_EQ(value.type, kDataNil);
    DataEntries()->release(nullptr);
    EXPECT_EQ(DataEntries()->equal(&value, nullptr), 0);

    EXPECT_EQ(LinkEntries()->resolve(nullptr, nullptr, 0), nullptr);
    EXPECT_EQ(LinkEntries()->clone(nullptr, nullptr), nullptr);
    EXPECT_EQ(LinkEntries()->init_translation(nullptr, nullptr), 0);
    LinkEntries()->set(nullptr, nullptr);
    LinkEntries()->translate(nullptr, 1);

    EXPECT_EQ(MathEntries()->noise4(nullptr, 1), 0);
    EXPECT_EQ(MathEntries()->parse(nullptr, nullptr), 0);
    EXPECT_EQ(DescriptionEntries()->count(nullptr), 0);
    EXPECT_EQ(DescriptionEntries()->find(nullptr, nullptr), nullptr);
    EXPECT_EQ(DescriptionEntries()->single_id(nullptr), nullptr);
    EXPECT_EQ(CustomDataEntries()->spline_knot_count(nullptr), 0);
}

TEST(ValueEntries, TakeASplineForNothingElse) {
    const CustomDataTable &c = *CustomDataEntries();
    HostCustomData *spline = c.create(kDataSpline), *priority = c.create(kDataPriority);
    TableVector point{};
    EXPECT_EQ(c.spline_insert_knot(priority, 0, 0, 0), -1);
    EXPECT_EQ(c.spline_knot(priority, 0), nullptr);
    EXPECT_EQ(c.priority_set(spline, 0, nullptr), 0);
    EXPECT_EQ(c.spline_linear(spline, 5), 1);
    EXPECT_EQ(c.spline_knot_count(spline), 5);
    EXPECT_EQ(c.spline_knot(spline, 2)->position.y, 0.5);
    EXPECT_EQ(c.spline_knot(spline, 5), nullptr);
    EXPECT_EQ(c.spline_linear(spline, 1), 0);
    EXPECT_EQ(c.spline_linear(spline, 2000000000), 0);
    EXPECT_EQ(c.spline_linear(spline, -1), 1);
    EXPECT_EQ(c.spline_knot_count(spline), 2);
    c.spline_point(spline, 0.25, &point);
    EXPECT_EQ(point.x, 0.25);
    EXPECT_EQ(point.y, 0.25);
    Data value;
    c.priority_get(priority, Priority::kMode, &value);
    EXPECT_EQ(value.Whole(), Priority::kModeExpression);
    c.priority_get(priority, 9, &value);
    EXPECT_EQ(value.type, kDataNil);
    c.release(spline);
    c.release(priority);
    c.release(nullptr);
}

TEST(ValueEntries, AContainerIsFreedByReleaseAndUsableAgain) {
    TableContainer raw{nullptr, 3, 0};
    const ContainerTable &c = *ContainerEntries();
    c.set_real(&raw, 1, 2.5);
    ASSERT_NE(c.find(&raw, 1), nullptr);
    EXPECT_EQ(c.find(&raw, 1)->value.real, 2.5);
    c.release(&raw);
    EXPECT_EQ(raw.body, nullptr);
    const TableVector vector = {1, 2, 3};
    c.set_vector(&raw, 1, &vector);
    EXPECT_EQ(c.count(&raw), 1);
    EXPECT_EQ(raw.id, 3);
    c.release(&raw);
}

TEST(ValueEntries, PassOnNoiseAndArithmetic) {
    const TableVector point = {5, 6, 7};
    EXPECT_EQ(MathEntries()->noise4(&point, 1.5), SignedNoise(5, 6, 7, 1.5));
    EXPECT_EQ(MathEntries()->noise3(&point), SignedNoise(5, 6, 7));
    TableString text{};
    double value = 0;
    Assign(&text, "1+2");
    EXPECT_EQ(MathEntries()->parse(&text, &value), 1);
    EXPECT_EQ(value, 3);
    Assign(&text, "one");
    EXPECT_EQ(MathEntries()->parse(&text, &value), 0);
    EXPECT_EQ(value, 3);
    ReleaseText(&text);
}

}  // namespace
}  // namespace host
