#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>

#include "host/value/container.h"
#include "host/value/custom.h"
#include "host/value/data.h"
#include "host/value/descid.h"
#include "host/value/memory.h"

namespace host {
namespace {

constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min(),
                       kMost = std::numeric_limits<std::int32_t>::max();

TEST(Data, ARealIsCutOffTowardZeroAndSaturates) {
    EXPECT_EQ(Data(2.99).Whole(), 2);
    EXPECT_EQ(Data(-2.99).Whole(), -2);
    EXPECT_EQ(Data(1e300).Whole(), kMost);
    EXPECT_EQ(Data(-1e300).Whole(), kLeast);
    EXPECT_EQ(Data(HUGE_VAL).Whole(), kMost);
    EXPECT_EQ(Data(-HUGE_VAL).Whole(), kLeast);
    EXPECT_EQ(Data(std::nan("")).Whole(), 0);
    // One whole number inside the range on either side.
    EXPECT_EQ(Data(2147483646.9).Whole(), 2147483646);
    EXPECT_EQ(Data(-2147483647.9).Whole(), -2147483647);
    EXPECT_EQ(Data(2147483648.0).Whole(), kMost);
    EXPECT_EQ(Data(-2147483648.0).Whole(), kLeast);
}

TEST(Data, WholeNumbersOfBothWidthsConvert) {
    Data wide = Data::OfType(kDataWhole64);
    wide.value.whole64 = std::int64_t{1} << 40;
    EXPECT_EQ(wide.Real(), 1099511627776.0);  // 2^40
    EXPECT_EQ(wide.Whole(), kMost);
    wide.value.whole64 = -5;
    EXPECT_EQ(wide.Whole(), -5);
    EXPECT_EQ(Data(7).Real(), 7.0);
}

TEST(Data, AnyOtherTypeReadsAsEmpty) {
    const Data text("12");
    EXPECT_EQ(text.Whole(), 0);
    EXPECT_EQ(text.Real(), 0.0);
    EXPECT_EQ(text.GetContainer(), nullptr);
    EXPECT_EQ(text.Link(nullptr), nullptr);
    EXPECT_EQ(Data(5).Text(), "");
    EXPECT_TRUE(Data(5).GetVector() == (Vector{0, 0, 0}));
    EXPECT_EQ(Data().type, kDataNil);
    EXPECT_EQ(Data().Whole(), 0);
}

TEST(Data, EveryTypeCopiesDeeplyAndEqualsItsCopy) {
    Container container;
    container.Set(4, Data("inside"));
    Data values[] = {Data(),
                     Data(5),
                     Data(2.5),
                     Data(std::nan("")),
                     Data(Vector{1, 2, 3}),
                     Data(kIdentity),
                     Data(Time{1, 30}),
                     Data("t\xC3\xA4xt"),
                     Data::Filename("folder/file"),
                     Data(container),
                     Data::LinkTo(nullptr),
                     Data::OfType(kDataSpline),
                     Data::OfType(kDataPriority),
                     Data::OfType(kDataWhole64),
                     Data::OfType(kDataVoid)};
    for (Data &value : values) {
        const Data copy(value);
        EXPECT_EQ(copy.type, value.type);
        EXPECT_TRUE(EqualData(copy, value)) << value.type;
        const bool inside = value.type == kDataNil || value.type == kDataWhole || value.type == kDataReal ||
                            value.type == kDataWhole64 || value.type == kDataVoid;
        EXPECT_TRUE(inside || copy.value.pointer != value.value.pointer) << value.type;
        for (const Data &other : values)
            EXPECT_EQ(EqualData(copy, other), &other == &value) << value.type << " " << other.type;
    }
}

TEST(Data, DefaultsExistForKnownTypesOnly) {
    Data data("kept");
    EXPECT_FALSE(SetDefaultData(&data, 128));
    EXPECT_FALSE(SetDefaultData(&data, kDataCustom + 1));
    EXPECT_EQ(data.Text(), "kept");
    EXPECT_TRUE(SetDefaultData(&data, kDataMatrix));
    EXPECT_TRUE(*data.value.matrix == kIdentity);
    EXPECT_TRUE(SetDefaultData(&data, kDataReal));
    EXPECT_EQ(data.Real(), 0.0);
}

TEST(Data, MovingLeavesAnEmptyValueAndSelfAssignmentChangesNothing) {
    Data a("text");
    Data b(std::move(a));
    EXPECT_EQ(b.Text(), "text");
    EXPECT_EQ(a.type, kDataNil);
    const Data &same = b;
    b = same;
    EXPECT_EQ(b.Text(), "text");
}

TEST(Data, AValueMayBeReplacedByAPartOfItself) {
    Container container;
    container.Set(1, Data("part"));
    Data data(container);
    data = *data.GetContainer()->Find(1);
    EXPECT_EQ(data.Text(), "part");
}

TEST(CustomData, IsRefusedExactlyAsOftenAsATestAsks) {
    RefuseCustomData(1, 2);
    const auto made = [] { return std::unique_ptr<HostCustomData>(CreateCustomData(kDataSpline)) != nullptr; };
    EXPECT_TRUE(made());
    EXPECT_FALSE(made());
    EXPECT_EQ(Data::OfType(kDataPriority).type, kDataNil);
    EXPECT_TRUE(made());
    RefuseCustomData(0, 5);
    RefuseCustomData(0, 0);
    EXPECT_TRUE(made());
    EXPECT_EQ(CreateCustomData(4711), nullptr);
}

TEST(Priority, StartsAsAnExpressionOfPriorityZero) {
    const Priority priority;
    EXPECT_EQ(priority.Get(Priority::kMode), Priority::kModeExpression);
    EXPECT_EQ(priority.Get(Priority::kPriority), 0);
    EXPECT_EQ(priority.Get(Priority::kCameraDependent), 0);
    EXPECT_EQ(priority.Get(3), 0);
    EXPECT_EQ(priority.Get(-1), 0);
}

TEST(Priority, StaysInsideItsStage) {
    Priority priority;
    EXPECT_TRUE(priority.Set(Priority::kPriority, Data(5000)));
    EXPECT_EQ(priority.Get(Priority::kPriority), 499);
    EXPECT_TRUE(priority.Set(Priority::kPriority, Data(-500.7)));
    EXPECT_EQ(priority.Get(Priority::kPriority), -499);
    EXPECT_FALSE(priority.Set(Priority::kMode, Data(5)));
    EXPECT_FALSE(priority.Set(Priority::kMode, Data(-1)));
    EXPECT_FALSE(priority.Set(Priority::kMode, Data("4")));
    EXPECT_FALSE(priority.Set(7, Data(1)));
    EXPECT_EQ(priority.Get(Priority::kMode), Priority::kModeExpression);
    EXPECT_TRUE(priority.Set(Priority::kMode, Data(4)));
    EXPECT_TRUE(priority.Set(Priority::kCameraDependent, Data(17)));
    EXPECT_EQ(priority.Get(Priority::kMode), 4);
    EXPECT_EQ(priority.Get(Priority::kCameraDependent), 1);
    EXPECT_FALSE(priority.Equals(Priority()));
    EXPECT_FALSE(priority.Equals(Spline()));
}

TEST(ParameterId, IsComparedByItsNumbersAlone) {
    TableDescID a = MakeId(903, 1000), b = MakeId(903, 1000);
    b.level[0].dtype = kDataVector;
    b.level[1].creator = 5;
    EXPECT_TRUE(SameId(a, b));
    EXPECT_FALSE(SameId(a, MakeId(903)));
    EXPECT_FALSE(SameId(a, MakeId(903, 1001)));
    EXPECT_EQ(LevelId(a, 1), 1000);
    EXPECT_EQ(LevelId(a, 2), 0);
    EXPECT_EQ(LevelId(a, -1), 0);
}

}  // namespace
}  // namespace host
