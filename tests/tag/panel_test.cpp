// The panel: its tree, its numbers, and which controls answer.
#include "host/ui/panel.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <sstream>

#include "host/description/description.h"
#include "host/scene/parameters.h"
#include "host/ui/attribute_manager.h"
#include "tests/support/parameter_rows.h"
#include "tests/tag/scene.h"

namespace {

using namespace tag_test;

// Groups with their columns; "closed" and "unscaled" where they are. "line" and "heading" are separators.
constexpr const char *kTree = R"(
group 6000 "TremoluxCam" 1
  group 6173 2
    6001 "Input Camera"
    6172 "?"
  line 6194
  group 6002 4
    5806 "Category"
    10028 "Preset"
    6003 "Save"
    6005 "Delete"
  group 6019 "Overall Parameters" 1
    6020 "Position Intensity"
    6021 "Rotation Intensity"
    line 6192
    6022 "Overall Scale"
    group 6189 5
      6184 "Coffee Cup"
      6185 "Human"
      6186 "Car"
      6187 "House"
      6188 "Skyscraper"
  group 6009 "On/Off Toggles" 1 closed
    group 5800 4 closed
      6010 "Pos X"
      6013 "Rot H"
      6016 "Zoom "
      6145 "Jolt"
    group 5801 3 closed
      6011 "Pos Y"
      6014 "Rot P "
      6017 "Focus "
    group 5802 3 closed
      6012 "Pos Z"
      6015 "Rot B"
      6018 "Target"
  group 6031 "Input Smoothing & Overshoot" 1 closed
    6155 "Initial Pos Smooth"
    6153 "Initial Pos Overshoot"
    6154 "Overshoot Fade"
    line 6157
    6156 "Initial Rot Smooth"
    6034 "Initial Rot Overshoot"
    6035 "Overshoot Fade"
  group 6023 "Shake System" 1
    6024 "Position Slow"
    6025 "Position Medium"
    6026 "Position Fast"
    line 10034
    6028 "Rotation Slow"
    6029 "Rotation Medium"
    6030 "Rotation Fast"
    line 10035
    6158 "Shake Smooth"
    group 6040 5
      6042 "Zero Pos"
      6043 "Zero Rot"
      6174 "Zero Initials"
      6004 "Randomize Seeds"
      6041 "I'm Feeling Lucky"
  group 6036 "Jolt System" 1
    6037 "Jolt Pos Intensity"
    6144 "Jolt Rot Intensity"
    6038 "Interval"
    6181 "Custom Trigger"
    line 6123
    6140 "Jolt Falloff"
    line 10024
    6170 "Jolt Smooth"
    line 6039
  heading 6044 "Baking"
  line 6196 ""
  group 6045 3
    6046 "Quick Bake"
    6175 "Brute Force Bake"
    6047 "Un-Bake"
  line 6197 ""
group 6065 "Target" 1 closed
  group 6067 2
    6068 "Target Object"
    6069 "Create Target Object"
  heading 6167 "Input Smoothing & Overshoot"
  6161 "Target Smooth"
  6071 "Overshoot Target"
  6072 "Overshoot Target Fade"
group 6048 "Zoom" 1 closed
  heading 6052 "Input Smoothing & Overshoot"
  6162 "Zoom Smooth"
  6053 "Overshoot Zoom"
  6054 "Overshoot Zoom Fade"
  heading 6133 "Zoom Drift"
  6134 "Zoom Drift Slow"
  6135 "Zoom Drift Medium"
  6136 "Zoom Drift Fast"
  line 6137
  6138 "Zoom Speed"
  line 6164
  6165 "Zoom Smooth"
group 6055 "Focus" 1 closed
  group 6056 "Focus Object" 2
    6057 "Focus Object"
    6058 "Create Focus Object"
  heading 6062 "Input Smoothing & Overshoot"
  6064 "Focus Smoothing"
  6063 "Overshoot Focus"
  6163 "Overshoot Focus Fade"
  heading 6127 "Focus Drift"
  6128 "Focus Drift Slow"
  6129 "Focus Drift Medium"
  6130 "Focus Drift Fast"
  line 6131
  6132 "Focus Speed"
  line 6166
  6059 "Focus Smooth"
group 6073 "Advanced" 1 closed
  6142 "Seed"
  line 6143
  6151 "Time Offset"
  line 6169
  6152 "Shake Speed"
  6149 "Speed Variation"
  group 6074 "Global Shake & Jolt Ratios" 1 closed
    6076 "X"
    6077 "Y"
    6078 "Z"
    line 6079
    6100 "H"
    6101 "P"
    6102 "B"
  line 6190
  heading 6195 "Export Preset"
  group 6191 2 unscaled
    6171 "Export Current"
    10033 "Export All"
  heading 6183 "Preset Path"
  group 6177 2 unscaled
    6176 "Preset Path"
    6182 "Reset Path"
  6178 ""
)";

class Panel : public WithScene {
  protected:
    void SetUp() override {
        WithScene::SetUp();
        ASSERT_TRUE(host::BuildDescription(scene().tag, nullptr, 0, &description_));
    }
    const host::Container &Settings(std::int32_t id) {
        const host::Description::Entry *entry = description_.Find(host::MakeId(id));
        EXPECT_NE(entry, nullptr) << id;
        static const host::Container none;
        return entry != nullptr ? entry->settings : none;
    }
    bool Enabled(std::int32_t id) { return host::IsControlEnabled(scene().tag, host::MakeId(id), Settings(id)); }
    host::Description description_;
};

std::string Title(const host::Container &settings) {
    return settings.Has(host::kDescName) ? " \"" + settings.Text(host::kDescName) + "\"" : "";
}

TEST_F(Panel, HasItsTabsGroupsAndRowsInOrder) {
    std::map<std::int32_t, int> depth = {{kTag, -1}};
    std::ostringstream tree;
    tree << "\n";
    for (const host::Description::Entry &entry : description_.entries) {
        const std::int32_t id = host::LevelId(entry.id, 0), parent = host::LevelId(entry.group, 0);
        if (id == 800 || id == 803 || depth.count(parent) == 0) continue;  // what every tag has
        depth[id] = depth[parent] + 1;
        tree << std::string(static_cast<std::size_t>(2 * depth[id]), ' ');
        const std::int32_t type = entry.id.level[0].dtype;
        if (type == host::kDescribedGroup) {
            tree << "group " << id << Title(entry.settings) << " " << entry.settings.Whole(host::kDescColumns);
            if (entry.settings.Whole(host::kDescDefault) != 1) tree << " closed";
            if (entry.settings.Whole(30) != 1) tree << " unscaled";
        } else if (type == 11) {
            tree << (entry.settings.Whole(18) != 0 ? "line " : "heading ") << id << Title(entry.settings);
        } else {
            tree << id << Title(entry.settings);
        }
        tree << "\n";
    }
    EXPECT_EQ(tree.str(), kTree);
}

void ExpectNumber(const host::Container &settings, std::int32_t key, const parameter_rows::Number &wanted,
                  std::int32_t id) {
    const host::Data *got = settings.Find(key);
    ASSERT_EQ(got != nullptr, wanted.has_value()) << "key " << key << " of " << id;
    if (wanted) {
        EXPECT_DOUBLE_EQ(got->Real(), *wanted) << "key " << key << " of " << id;
    }
}

TEST_F(Panel, ShowsEveryRealWithItsUnitLimitsSliderStepAndDefault) {
    for (const parameter_rows::RealRow &row : parameter_rows::kReals) {
        const host::Container &settings = Settings(row.id);
        EXPECT_EQ(settings.Text(host::kDescName), row.label);
        // A real without a unit of its own has the data type's: plain numbers.
        EXPECT_EQ(settings.Whole(host::kDescUnit), row.unit != 0 ? row.unit : 0x66726561) << row.id;
        ExpectNumber(settings, host::kDescMin, row.minimum, row.id);
        ExpectNumber(settings, host::kDescMax, row.maximum, row.id);
        ExpectNumber(settings, host::kDescMinSlider, row.slider_minimum, row.id);
        ExpectNumber(settings, host::kDescMaxSlider, row.slider_maximum, row.id);
        ExpectNumber(settings, host::kDescStep, row.step, row.id);
        // Without a default of its own an entry has its type's.
        ExpectNumber(settings, host::kDescDefault, row.preset.value_or(0), row.id);
        EXPECT_EQ(settings.Whole(host::kDescCustomGui), row.slider_maximum ? 1000489 : 19) << row.id;
    }
}

TEST_F(Panel, DeclaresTheEmptyTextOfTheTriggersAndNoneForTheFolder) {
    const host::Data *preset = Settings(6181).Find(host::kDescDefault);
    ASSERT_NE(preset, nullptr);
    EXPECT_EQ(preset->type, host::kDataString);
    EXPECT_EQ(preset->Text(), "");
    EXPECT_EQ(Settings(6178).Find(host::kDescDefault), nullptr);
}

TEST_F(Panel, DeclaresTheOverallScalesDefaultAsAWholeNumber) {
    EXPECT_EQ(Settings(6022).Find(host::kDescDefault)->type, host::kDataWhole);
}

TEST_F(Panel, ShowsEveryControlAsWhatItIs) {
    const auto gadget = [this](std::int32_t id) { return Settings(id).Whole(host::kDescCustomGui); };
    for (const auto &row : parameter_rows::kToggles) {
        EXPECT_EQ(gadget(row.id), 400006001) << row.id;
        EXPECT_EQ(Settings(row.id).Whole(host::kDescDefault), 1) << row.id;
    }
    for (const auto &row : parameter_rows::kLinks) EXPECT_EQ(gadget(row.id), 1009415) << row.id;
    for (const auto &row : parameter_rows::kCycles) EXPECT_EQ(gadget(row.id), 200000180) << row.id;
    for (const auto &row : parameter_rows::kButtons) EXPECT_EQ(gadget(row.id), 8) << row.id;
    EXPECT_EQ(gadget(6038), 22);
    EXPECT_EQ(gadget(6181), 130);
    EXPECT_EQ(gadget(6178), 130);
}

TEST_F(Panel, OffersTheFixedEntriesOfItsCycles) {
    const auto entries = [this](std::int32_t id) {
        std::vector<std::pair<std::int32_t, std::string>> list;
        const host::Container &cycle = *Settings(id).Find(host::kDescCycle)->GetContainer();
        for (std::int32_t i = 0; i < cycle.Count(); ++i) list.emplace_back(cycle.IdAt(i), cycle.DataAt(i)->Text());
        return list;
    };
    using List = std::vector<std::pair<std::int32_t, std::string>>;
    EXPECT_EQ(entries(5806), (List{{5810, "User"}, {5809, "All"}}));
    EXPECT_EQ(entries(10028), (List{{6179, ""}, {5805, ""}, {5803, "Custom"}}));
}

TEST_F(Panel, AskedForOneEntryBuildsThatAlone) {
    const TableDescID single = host::MakeId(6152);
    host::Description description;
    ASSERT_TRUE(host::BuildDescription(scene().tag, &single, 0, &description));
    int own = 0;
    for (const host::Description::Entry &entry : description.entries)
        if (host::LevelId(entry.id, 0) >= 5800 && host::LevelId(entry.id, 0) <= 10040) ++own;
    EXPECT_EQ(own, 1);
    EXPECT_NE(description.Find(single), nullptr);
    const TableDescID unknown = host::MakeId(6999);
    host::Description nothing;
    ASSERT_TRUE(host::BuildDescription(scene().tag, &unknown, 0, &nothing));
    EXPECT_EQ(nothing.Find(unknown), nullptr);
}

// ---- Enabling

constexpr std::int32_t kTargetAmounts[] = {6071, 6072, 6161}, kInputRotation[] = {6156, 6034, 6035};

TEST_F(Panel, OfABakedTagAnswersToUnBakeAlone) {
    scene().State().Set(kBaked, 1);
    scene().Link(kTarget, scene().AddObject(host::kTypeNull, {0, 0, 0}));
    for (const host::Description::Entry &entry : description_.entries) {
        const std::int32_t id = host::LevelId(entry.id, 0);
        if (id < 5800 || id > 10040) continue;
        EXPECT_EQ(Enabled(id), id == 6047) << id;
    }
    EXPECT_FALSE(host::EditParameter(scene().tag, host::MakeId(6020), host::Data(0.5)));
    EXPECT_FALSE(host::PressButton(scene().tag, host::MakeId(6046)));
}

TEST_F(Panel, GivesTheRotationToTheTargetWhileThereIsOne) {
    for (const std::int32_t id : kTargetAmounts) EXPECT_FALSE(Enabled(id)) << id;
    for (const std::int32_t id : kInputRotation) EXPECT_TRUE(Enabled(id)) << id;
    scene().Link(kTarget, scene().AddObject(host::kTypeNull, {0, 0, 0}));
    for (const std::int32_t id : kTargetAmounts) EXPECT_TRUE(Enabled(id)) << id;
    for (const std::int32_t id : kInputRotation) EXPECT_FALSE(Enabled(id)) << id;
    for (const std::int32_t id : {6020, 6155, 6153, 6154, 6068, 6069, 6046}) EXPECT_TRUE(Enabled(id)) << id;
}

TEST_F(Panel, GivesTheReservedAmountOfTheTargetToItThoughNoRowShowsIt) {
    constexpr std::int32_t kReserved = 6210;
    EXPECT_EQ(description_.Find(host::MakeId(kReserved)), nullptr);
    const auto enabled = [this] { return host::IsControlEnabled(scene().tag, host::MakeId(kReserved), {}); };
    EXPECT_FALSE(enabled());
    scene().Link(kTarget, scene().AddObject(host::kTypeNull, {0, 0, 0}));
    EXPECT_TRUE(enabled());
}

TEST_F(Panel, CountsATargetOfAnotherDocumentAsNone) {
    Scene other(running_);
    scene().Link(kTarget, other.AddObject(host::kTypeNull, {0, 0, 0}));
    for (const std::int32_t id : kTargetAmounts) EXPECT_FALSE(Enabled(id)) << id;
    for (const std::int32_t id : kInputRotation) EXPECT_TRUE(Enabled(id)) << id;
}

TEST_F(Panel, CountsATargetThatFollowsTheCameraAsNone) {
    host::Object *below = scene().AddObject(host::kTypeNull, {0, 0, 0}, scene().camera);
    for (host::Object *target : {scene().camera, below, scene().AddObject(host::kTypeNull, {0, 0, 0}, below)}) {
        scene().Link(kTarget, target);
        for (const std::int32_t id : kTargetAmounts) EXPECT_FALSE(Enabled(id)) << id;
        for (const std::int32_t id : kInputRotation) EXPECT_TRUE(Enabled(id)) << id;
    }
}

TEST_F(Panel, OfATagInNoDocumentAnswersEverywhere) {
    scene().State().Set(kBaked, 1);
    scene().camera->Remove();
    const std::unique_ptr<host::Object> removed(scene().camera);
    for (const std::int32_t id : {6020, 6047, 6071, 6156}) EXPECT_TRUE(Enabled(id)) << id;
}

// ---- As the host draws it

class DrawnPanel : public Panel {
  protected:
    // The control with that id, wherever it stands.
    static const host::PanelControl *Find(const host::PanelGroup &group, std::int32_t id) {
        for (const auto &row : group.rows) {
            for (const host::PanelCell &cell : row) {
                if (const auto *control = std::get_if<host::PanelControl>(&cell); control && control->key == id)
                    return control;
                if (const auto *inner = std::get_if<std::unique_ptr<host::PanelGroup>>(&cell))
                    if (const host::PanelControl *found = Find(**inner, id)) return found;
            }
        }
        return nullptr;
    }
    host::PanelControl Control(std::int32_t id) {
        for (const host::PanelGroup &tab : host::BuildPanel(scene().tag))
            if (const host::PanelControl *control = Find(tab, id)) return *control;
        ADD_FAILURE() << id << " is not shown";
        return {};
    }
    bool Type(std::int32_t id, const char *text) { return host::TypeIntoField(scene().tag, host::MakeId(id), text); }
};

TEST_F(DrawnPanel, HasTheTabsOfTheTagAfterTheBasicOne) {
    std::vector<std::string> titles;
    for (const host::PanelGroup &tab : host::BuildPanel(scene().tag)) titles.push_back(tab.title);
    EXPECT_EQ(titles, (std::vector<std::string>{"Basic", "TremoluxCam", "Target", "Zoom", "Focus", "Advanced"}));
}

TEST_F(DrawnPanel, FillsRowsByTheColumnsOfTheirGroup) {
    for (const host::PanelGroup &tab : host::BuildPanel(scene().tag)) {
        if (tab.key != 6000) continue;
        const auto &row = std::get<std::unique_ptr<host::PanelGroup>>(tab.rows[2][0])->rows;
        ASSERT_EQ(row.size(), 1u);
        ASSERT_EQ(row[0].size(), 4u);
        EXPECT_EQ(std::get<host::PanelControl>(row[0][1]).label, "Preset");
    }
}

TEST_F(DrawnPanel, ShowsValuesWithTheirUnits) {
    scene().Set(6020, 1.5);
    scene().Set(6028, 12.5 * kDegree);
    scene().State().Set(6038, host::Data(host::MakeTime(40, 30)));
    EXPECT_EQ(Control(6020).text, "150 %");
    EXPECT_EQ(Control(6028).text, "12.5\xC2\xB0");
    EXPECT_EQ(Control(6038).text, "40 F");
    EXPECT_EQ(Control(6001).text, scene().input->Name());
    EXPECT_EQ(Control(10028).text, "Custom");
    EXPECT_EQ(Control(6010).text, "on");
    EXPECT_EQ(Control(6020).slider_maximum, 2);
    EXPECT_FALSE(Control(6020).maximum);
}

TEST_F(DrawnPanel, ShowsTheDefaultOfAParameterThatTheTagDoesNotHold) {
    scene().State().Remove(6053);
    EXPECT_EQ(Control(6053).text, "25 %");
}

TEST_F(DrawnPanel, TakesWhatIsTypedAndHoldsItToItsLimits) {
    EXPECT_TRUE(Type(6020, "150 %"));
    EXPECT_EQ(scene().Real(6020), 1.5);
    EXPECT_TRUE(Type(6155, "150 %"));
    EXPECT_EQ(scene().Real(6155), 1);
    EXPECT_TRUE(Type(6059, "20000 %"));
    EXPECT_EQ(scene().Real(6059), 100);
    EXPECT_TRUE(Type(6142, "123456"));
    EXPECT_EQ(scene().Real(6142), 99999);
    EXPECT_TRUE(Type(6028, "12.5"));
    EXPECT_NEAR(scene().Real(6028), 12.5 * kDegree, 1e-15);
    EXPECT_TRUE(Type(6038, "1:04"));
    EXPECT_NEAR(host::Seconds(scene().State().GetTime(6038)) * 30, 34, 1e-9);
    EXPECT_TRUE(Type(6181, "3,4"));
    EXPECT_EQ(scene().State().Text(6181), "3,4");
}

TEST_F(DrawnPanel, RefusesWhatIsNoValueAndDisabledControls) {
    const double before = scene().Real(6020);
    for (const char *text : {"", "much", "150 deg", "nan"}) EXPECT_FALSE(Type(6020, text)) << text;
    EXPECT_EQ(scene().Real(6020), before);
    EXPECT_FALSE(Type(6161, "50 %")) << "no target";
    EXPECT_FALSE(Type(6003, "x")) << "a button";
    EXPECT_FALSE(Type(6999, "1")) << "unknown";
}

TEST_F(DrawnPanel, UndoesAnEditInOneStep) {
    const double before = scene().Real(6020);
    ASSERT_TRUE(Type(6020, "150 %"));
    ASSERT_TRUE(scene().document->Undo().Undo());
    EXPECT_EQ(scene().Real(6020), before);
}

TEST_F(DrawnPanel, SurvivesValuesOfOtherTypes) {
    for (const std::int32_t id : {6020, 6028, 6038, 6010, 6001, 10028, 6142}) {
        for (const host::Data &value :
             {host::Data("text"), host::Data(1e308), host::Data(std::nan("")), host::Data()}) {
            scene().State().Set(id, value);
            Control(id);
        }
    }
}

}  // namespace
