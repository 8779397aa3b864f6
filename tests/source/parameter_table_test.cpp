// The module's table of parameters against its rows typed a second time.
#include <cmath>
#include <cstring>
#include <limits>
#include <map>
#include <optional>
#include <set>

#include "lib_description.h"
#include "tag/parameters.h"
#include "tests/source/plain_tag.h"
#include "tests/support/parameter_rows.h"

namespace {

using namespace parameter_rows;

// What the reset operation writes; all but the toggles as reals.
const std::map<LONG, double> kResets = {
    {6020, 1},    {6021, 1}, {6022, 1},    {6028, 0},    {6029, 0},    {6030, 0},   {6034, 0.55},
    {6035, 0.2},  {6049, 0}, {6071, 0.65}, {6072, 0.25}, {6076, 1},    {6077, 1},   {6078, 1},
    {6100, 1},    {6101, 1}, {6102, 1},    {6119, 0.15}, {6132, 1},    {6140, 0.1}, {6142, 12345},
    {6149, 0.25}, {6151, 0}, {6152, 1},    {6158, 0.25}, {6165, 0.25}, {6170, 0.5}};

bool IsToggle(LONG id) {
    for (const LabelRow &row : kToggles)
        if (row.id == id) return true;
    return false;
}

void ExpectNumber(const OptionalReal &got, const Number &wanted, const char *what, LONG id) {
    EXPECT_EQ(static_cast<bool>(got.given), wanted.has_value()) << what << " of " << id;
    if (wanted && got.given) {
        EXPECT_DOUBLE_EQ(got.value, *wanted) << what << " of " << id;
    }
}

void ExpectLabel(const LabelRow &row, ParameterType type) {
    const ParameterInfo *info = FindParameter(row.id);
    ASSERT_NE(info, nullptr) << row.id;
    ASSERT_NE(info->label, nullptr) << row.id;
    EXPECT_STREQ(info->label, row.label) << row.id;
    EXPECT_EQ(info->type, type) << row.id;
}

TEST(ParameterTable, EveryRealHasItsLabelUnitLimitsSliderStepAndDefault) {
    for (const RealRow &row : kReals) {
        ExpectLabel({row.id, row.label}, ParameterType::kReal);
        const ParameterInfo *info = FindParameter(row.id);
        ASSERT_NE(info, nullptr);
        // A plain number may be said by no unit or by the plain unit.
        EXPECT_TRUE(info->unit == row.unit || (row.unit == 0 && info->unit == DESC_UNIT_REAL)) << row.id;
        ExpectNumber(info->minimum, row.minimum, "minimum", row.id);
        ExpectNumber(info->maximum, row.maximum, "maximum", row.id);
        ExpectNumber(info->slider_minimum, row.slider_minimum, "slider minimum", row.id);
        ExpectNumber(info->slider_maximum, row.slider_maximum, "slider maximum", row.id);
        ExpectNumber(info->step, row.step, "step", row.id);
        ExpectNumber(info->declared, row.preset, "default", row.id);
    }
}

TEST(ParameterTable, OnlyTheOverallScaleDeclaresItsDefaultAsAWholeNumber) {
    for (const RealRow &row : kReals) {
        const ParameterInfo *info = FindParameter(row.id);
        ASSERT_NE(info, nullptr) << row.id;
        EXPECT_EQ(static_cast<bool>(info->whole_default), row.id == 6022) << row.id;
    }
}

TEST(ParameterTable, EveryToggleIsOnByDefault) {
    for (const LabelRow &row : kToggles) {
        ExpectLabel(row, ParameterType::kBool);
        ExpectNumber(FindParameter(row.id)->declared, 1, "default", row.id);
    }
}

TEST(ParameterTable, LinksCyclesAndButtonsHaveTheirLabels) {
    for (const LabelRow &row : kLinks) ExpectLabel(row, ParameterType::kLink);
    for (const LabelRow &row : kCycles) {
        ExpectLabel(row, ParameterType::kCycle);
        ExpectNumber(FindParameter(row.id)->declared, 0, "default", row.id);
    }
    for (const LabelRow &row : kButtons) ExpectLabel(row, ParameterType::kButton);
}

TEST(ParameterTable, TheJoltIntervalIsATimeThatIsNotNegative) {
    ExpectLabel({6038, "Interval"}, ParameterType::kTime);
    ExpectNumber(FindParameter(6038)->minimum, 0, "minimum", 6038);
    ExpectNumber(FindParameter(6038)->maximum, kNone, "maximum", 6038);
}

TEST(ParameterTable, TheTriggerAndTheFolderAreTexts) {
    ExpectLabel({6181, "Custom Trigger"}, ParameterType::kString);
    const ParameterInfo *folder = FindParameter(6178);
    ASSERT_NE(folder, nullptr);
    EXPECT_EQ(folder->type, ParameterType::kString);
    EXPECT_TRUE(folder->label == NULL || std::strlen(folder->label) == 0);
}

TEST(ParameterTable, HasEveryIdOnceAndNoOtherLabel) {
    std::set<LONG> known = {6038, 6181, 6178};
    for (const RealRow &row : kReals) known.insert(row.id);
    for (const LabelRow &row : kToggles) known.insert(row.id);
    for (const LabelRow &row : kLinks) known.insert(row.id);
    for (const LabelRow &row : kCycles) known.insert(row.id);
    for (const LabelRow &row : kButtons) known.insert(row.id);
    LONG count = 0;
    const ParameterInfo *rows = Parameters(&count);
    std::set<LONG> seen;
    for (LONG i = 0; i < count; ++i) {
        EXPECT_TRUE(seen.insert(rows[i].id).second) << rows[i].id << " stands twice";
        EXPECT_EQ(FindParameter(rows[i].id), &rows[i]);
        if (rows[i].label && *rows[i].label) {
            EXPECT_EQ(known.count(rows[i].id), 1u) << rows[i].id << " is not known";
        }
    }
    for (const LONG id : known) EXPECT_EQ(seen.count(id), 1u) << id << " is missing";
}

TEST(ParameterTable, AnUnknownIdHasNoRow) {
    EXPECT_EQ(FindParameter(0), nullptr);
    EXPECT_EQ(FindParameter(-6020), nullptr);
    EXPECT_EQ(FindParameter(10044), nullptr);
}

TEST(ParameterTable, APresetTouchesSixThousandToSixThousandTwoHundredAndTenButTheScenesOwn) {
    for (LONG id = 5990; id <= 6220; ++id) {
        const bool own = id == 6001 || id == 6022 || id == 6057 || id == 6068 || id == 6178;
        EXPECT_EQ(static_cast<bool>(IsPresetParameter(id)), id >= 6000 && id <= 6210 && !own) << id;
    }
    EXPECT_FALSE(IsPresetParameter(10028));
}

class ParameterValues : public WithPlainTag {};

TEST_F(ParameterValues, ResetWritesTheFixedValueOfEveryIdInItsTable) {
    for (const auto &[id, value] : kResets) {
        BaseContainer data;
        data.SetReal(id, -77);
        EXPECT_TRUE(tag_->ResetParameter(id, &data)) << id;
        EXPECT_EQ(data.GetType(id), DA_REAL) << id;
        EXPECT_DOUBLE_EQ(data.GetReal(id), value) << id;
    }
    for (const LabelRow &row : kToggles) {
        BaseContainer data;
        EXPECT_TRUE(tag_->ResetParameter(row.id, &data)) << row.id;
        EXPECT_EQ(data.GetType(row.id), DA_LONG) << row.id;
        EXPECT_EQ(data.GetLong(row.id), 1) << row.id;
    }
}

TEST_F(ParameterValues, ResetLeavesEveryOtherIdAlone) {
    for (LONG id = 5990; id <= 6220; ++id) {
        if (kResets.count(id) || IsToggle(id)) continue;
        BaseContainer data, before;
        data.SetReal(id, -77);
        before = data;
        EXPECT_TRUE(tag_->ResetParameter(id, &data)) << id;
        EXPECT_TRUE(data == before) << id;
    }
}

TEST_F(ParameterValues, ResetWritesOnlyTheOneId) {
    BaseContainer data;
    tag_->ResetParameter(6152, &data);
    EXPECT_EQ(data.GetIndexId(0), 6152);
    EXPECT_EQ(data.GetIndexId(1), NOTOK);
}

TEST_F(ParameterValues, AStoredNumberIsReadAsItIs) {
    BaseContainer data;
    data.SetReal(6152, 2.5);
    EXPECT_EQ(ReadReal(data, 6152), 2.5);
    data.SetReal(6155, -4);
    EXPECT_EQ(ReadReal(data, 6155), -4) << "limits are the panel's";
    data.SetLong(6022, 3);
    EXPECT_EQ(ReadReal(data, 6022), 3);
}

TEST_F(ParameterValues, AnAbsentNumberIsZero) { EXPECT_EQ(ReadReal(BaseContainer(), 6152), 0); }

TEST_F(ParameterValues, AValueOfAnotherTypeIsZero) {
    BaseContainer data;
    data.SetString(6152, "fast");
    EXPECT_EQ(ReadReal(data, 6152), 0);
}

TEST_F(ParameterValues, ANumberThatIsNotFiniteIsReadAsTheDefault) {
    for (const Real broken : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
        BaseContainer data;
        for (const RealRow &row : kReals) {
            data.SetReal(row.id, broken);
            EXPECT_EQ(ReadReal(data, row.id), row.preset.value_or(0)) << row.id;
        }
    }
}

TEST_F(ParameterValues, ASeedIsCutToAWholeNumber) {
    BaseContainer data;
    data.SetReal(6142, 12345.9);
    EXPECT_EQ(engine::Truncate(ReadReal(data, 6142)), 12345);
    data.SetReal(6142, 1e300);
    EXPECT_EQ(engine::Truncate(ReadReal(data, 6142)), 2147483647);
    data.SetReal(6142, std::nan(""));
    EXPECT_EQ(engine::Truncate(ReadReal(data, 6142)), 12345);
}

}  // namespace
