#include "host/description/description.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "host/scene/document.h"
#include "host/scene/object.h"
#include "host/value/custom.h"

namespace host {
namespace {

constexpr std::int32_t kRealType = 19, kUnitPercent = 1718641524;

const Container *SettingsOf(Description *description, std::int32_t id) {
    Description::Entry *entry = description->Find(MakeId(id));
    return entry == nullptr ? nullptr : &entry->settings;
}

TEST(Description, KeepsTheOrderInWhichEntriesWereSet) {
    Description description;
    Container settings;
    settings.Set(kDescName, Data("first name"));
    EXPECT_TRUE(description.Set(MakeId(5), settings, MakeId(1)));
    EXPECT_TRUE(description.Set(MakeId(-3), Container(), MakeId(1)));
    settings.Set(kDescName, Data("second name"));
    EXPECT_TRUE(description.Set(MakeId(5), settings, MakeId(2)));
    ASSERT_EQ(description.entries.size(), 2u);
    EXPECT_EQ(description.entries[0].id.level[0].id, 5);
    EXPECT_EQ(description.entries[0].settings.Text(kDescName), "second name");
    EXPECT_EQ(description.entries[0].group.level[0].id, 1);
    EXPECT_EQ(description.Find(MakeId(6)), nullptr);
}

TEST(Description, RefusesAnEntryWithoutAnId) {
    Description description;
    TableDescID deep = MakeId(1);
    deep.depth = 9;
    EXPECT_FALSE(description.Set(TableDescID{}, Container(), MakeId(1)));
    EXPECT_FALSE(description.Set(deep, Container(), MakeId(1)));
    EXPECT_FALSE(description.Set(MakeId(1), Container(), deep));
    EXPECT_TRUE(description.entries.empty());
}

TEST(Description, SettingsStayInPlaceWhileEntriesAreAdded) {
    Description description;
    description.Set(MakeId(1), Container(), MakeId(0));
    Container *live = &description.Find(MakeId(1))->settings;
    for (std::int32_t id = 2; id < 300; ++id) description.Set(MakeId(id), Container(), MakeId(0));
    live->Set(kDescName, Data("live"));
    EXPECT_EQ(SettingsOf(&description, 1)->Text(kDescName), "live");
    description.Set(MakeId(1), *live, MakeId(0));  // with its own settings
    EXPECT_EQ(live->Text(kDescName), "live");
}

TEST(Description, OfACameraHoldsItsLensWithLimitsAndDefaults) {
    Description description;
    ASSERT_TRUE(description.Load(kTypeCamera));
    const Container *focal = SettingsOf(&description, kCameraFocalLength);
    ASSERT_NE(focal, nullptr);
    EXPECT_EQ(focal->Real(kDescDefault), 36);
    EXPECT_EQ(focal->Real(kDescMin), 1);
    EXPECT_EQ(focal->Real(kDescMax), 10000);
    EXPECT_EQ(SettingsOf(&description, kCameraAperture)->Real(kDescMax), 2000);
    EXPECT_EQ(SettingsOf(&description, kCameraFocusDistance)->Real(kDescDefault), 2000);
    EXPECT_EQ(SettingsOf(&description, kCameraFocusDistance)->Whole(kDescUnit), 1718445428);  // lengths
    EXPECT_NEAR(SettingsOf(&description, kCameraFov)->Real(kDescDefault), 2 * std::atan(36 / (2 * 36.0)), 1e-15);
    EXPECT_NE(SettingsOf(&description, kCameraFocusObject), nullptr);
    EXPECT_EQ(description.Find(MakeId(kCameraFocusObject))->id.level[0].dtype, kDataLink);
    const Container *projection = SettingsOf(&description, kCameraProjection);
    EXPECT_EQ(projection->Find(kDescCycle)->GetContainer()->Count(), 14);
}

TEST(Description, OfAnyObjectHoldsItsTransform) {
    for (std::int32_t type : {kTypeObject, kTypeNull, kTypeCamera}) {
        Description description;
        ASSERT_TRUE(description.Load(type));
        EXPECT_TRUE(SettingsOf(&description, kParamRelScale)->GetVector(kDescDefault) == (Vector{1, 1, 1}));
        EXPECT_EQ(SettingsOf(&description, kParamRelRotation)->Whole(kDescUnit), 1717856114);  // degrees
        EXPECT_EQ(description.Find(MakeId(kParamRelPosition))->id.level[0].dtype, kDataVector);
        EXPECT_EQ(SettingsOf(&description, kParamRotationOrder)->Whole(kDescDefault), 6);
        EXPECT_EQ(SettingsOf(&description, kParamUseColor)->Find(kDescCycle)->GetContainer()->Text(3), "Layer");
    }
}

TEST(Description, LoadingReplacesWhatIsThereAndAnUnknownOneLeavesIt) {
    Description description;
    description.Set(MakeId(42), Container(), MakeId(0));
    EXPECT_FALSE(description.Load(987654));
    EXPECT_NE(description.Find(MakeId(42)), nullptr);
    EXPECT_TRUE(description.Load(kTypeCamera));
    EXPECT_EQ(description.Find(MakeId(42)), nullptr);
    EXPECT_NE(description.Find(MakeId(kCameraFocalLength)), nullptr);
    EXPECT_TRUE(description.Load(kTypeDocument));
    EXPECT_EQ(SettingsOf(&description, kDocumentFps)->Whole(kDescDefault), 30);
}

TEST(Description, EveryEntryLiesInAGroupThatComesBeforeIt) {
    for (std::int32_t type : {kTypeObject, kTypeCamera, kTypeDocument}) {
        Description description;
        ASSERT_TRUE(description.Load(type));
        std::vector<std::int32_t> groups = {type};
        for (const auto &entry : description.entries) {
            EXPECT_NE(std::find(groups.begin(), groups.end(), entry.group.level[0].id), groups.end());
            EXPECT_NE(entry.settings.Text(kDescName), "");
            if (entry.id.level[0].dtype == 1) groups.push_back(entry.id.level[0].id);
        }
    }
}

TEST(BuiltDescription, OfAnObjectIsTheLoadedOneAndCarriesTheSingleId) {
    const auto object = Object::Create(kTypeCamera);
    const TableDescID wanted = MakeId(kCameraFocalLength);
    Description description;
    EXPECT_TRUE(BuildDescription(object.get(), &wanted, 0, &description));
    EXPECT_TRUE(description.has_single_id);
    EXPECT_TRUE(SameId(description.single_id, wanted));
    EXPECT_NE(description.Find(wanted), nullptr);
    EXPECT_FALSE(BuildDescription(nullptr, nullptr, 0, &description));
    EXPECT_TRUE(description.entries.empty());
    EXPECT_FALSE(description.has_single_id);
}

TEST(DefaultSettings, CarryTheTypeAndItsGadget) {
    const Container real = DefaultSettings(kRealType);
    EXPECT_EQ(real.id, kRealType);
    EXPECT_EQ(real.Whole(kDescCustomGui), 19);
    EXPECT_EQ(real.Whole(kDescAnimate), 1);
    EXPECT_EQ(real.Find(kDescDefault)->type, kDataReal);
    EXPECT_EQ(real.Real(kDescStep), 1);
    EXPECT_NE(real.Whole(kDescUnit), kUnitPercent);
    EXPECT_EQ(DefaultSettings(133).Whole(kDescCustomGui), 1009415);
    EXPECT_EQ(DefaultSettings(8).Whole(kDescAnimate, -1), 0);
    EXPECT_EQ(DefaultSettings(1).Whole(kDescColumns), 1);
    EXPECT_EQ(DefaultSettings(4711).Count(), 0);
    EXPECT_EQ(DefaultSettings(4711).id, 4711);
}

}  // namespace
}  // namespace host
