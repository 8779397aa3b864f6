#include <cstddef>
#include <limits>
#include <map>
#include <set>

#include "tests/library/support.h"

using namespace library_tests;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

tremolux_parameter Named(const std::string &label) {
    for (std::size_t i = 0; i < tremolux_parameter_count(); ++i)
        if (label == ParameterAt(i).label) return ParameterAt(i);
    ADD_FAILURE() << "no parameter " << label;
    return {};
}

std::vector<tremolux_panel_entry> Panel() {
    std::vector<tremolux_panel_entry> panel(tremolux_panel_count());
    for (std::size_t i = 0; i < panel.size(); ++i) {
        panel[i].size = sizeof(panel[i]);
        EXPECT_EQ(TREMOLUX_OK, tremolux_panel_at(i, &panel[i])) << tremolux_last_error(nullptr);
    }
    return panel;
}

TEST(Parameter, SaysWhereItStandsAndWhatItDoes) {
    const tremolux_parameter scale = Named("Overall Scale");
    EXPECT_STREQ("TremoluxCam", scale.tab);
    EXPECT_STREQ("Overall Parameters", scale.section);
    EXPECT_STREQ("Fits the shake and the jolts of the position to the size of the scene.", scale.sentence);
    EXPECT_STREQ("", Named("Input Camera").section);
    EXPECT_STREQ("Target", Named("Target Smooth").tab);
}

// The slider goes from 0 % to 1000 % by 1 %, and may be left.
TEST(Parameter, SaysHowFarItsSliderGoes) {
    const tremolux_parameter scale = Named("Overall Scale");
    EXPECT_EQ(0, scale.slider_minimum);
    EXPECT_EQ(10, scale.slider_maximum);
    EXPECT_EQ(0.01, scale.step);
    EXPECT_EQ(-kInfinity, scale.minimum);
    EXPECT_EQ(kInfinity, scale.maximum);
    const tremolux_parameter seed = Named("Input Camera");
    EXPECT_EQ(-kInfinity, seed.slider_minimum);
    EXPECT_EQ(kInfinity, seed.slider_maximum);
    EXPECT_EQ(0, seed.step);
}

TEST(Parameter, OfTheMotionHasASentence) {
    for (std::size_t i = 0; i < tremolux_parameter_count(); ++i) {
        const tremolux_parameter parameter = ParameterAt(i);
        const bool is_every_tags = std::string("Basic") == parameter.tab;
        EXPECT_EQ(is_every_tags, std::string(parameter.sentence).empty()) << parameter.label;
    }
}

TEST(Parameter, IsCutToTheRoomOfAnOlderCaller) {
    tremolux_parameter parameter{};
    parameter.size = offsetof(tremolux_parameter, group);
    parameter.group = -1;
    ASSERT_EQ(TREMOLUX_OK, tremolux_parameter_at(0, &parameter));
    EXPECT_EQ(ParameterAt(0).id, parameter.id);
    EXPECT_EQ(offsetof(tremolux_parameter, group), parameter.size);
    EXPECT_EQ(-1, parameter.group);
    for (const std::size_t wrong : {std::size_t{0}, offsetof(tremolux_parameter, group) - 1, sizeof(parameter) + 1}) {
        parameter.size = wrong;
        EXPECT_EQ(TREMOLUX_INPUT, tremolux_parameter_at(0, &parameter)) << wrong;
    }
}

TEST(Panel, HasEveryParameterInItsGroup) {
    std::map<std::int32_t, std::int32_t> groups;
    std::vector<std::int32_t> in_panel, in_table;
    for (const tremolux_panel_entry &entry : Panel()) {
        if (entry.kind != TREMOLUX_PANEL_PARAMETER) continue;
        groups[entry.id] = entry.group;
        in_panel.push_back(entry.id);
    }
    for (std::size_t i = 0; i < tremolux_parameter_count(); ++i) {
        in_table.push_back(ParameterAt(i).id);
        EXPECT_EQ(groups[ParameterAt(i).id], ParameterAt(i).group) << ParameterAt(i).label;
    }
    EXPECT_EQ(in_panel, in_table);
}

TEST(Panel, ComesGroupByGroup) {
    std::set<std::int32_t> known = {0};
    std::vector<std::string> tabs;
    for (const tremolux_panel_entry &entry : Panel()) {
        EXPECT_EQ(1u, known.count(entry.group)) << entry.id;
        EXPECT_GE(entry.columns, 1);
        if (entry.kind == TREMOLUX_PANEL_GROUP) known.insert(entry.id);
        if (entry.group == 0) tabs.push_back(entry.title);
    }
    EXPECT_EQ((std::vector<std::string>{"Basic", "TremoluxCam", "Target", "Zoom", "Focus", "Advanced"}), tabs);
    tremolux_panel_entry entry{};
    entry.size = sizeof(entry);
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_panel_at(tremolux_panel_count(), &entry));
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_panel_at(0, nullptr));
}

std::vector<std::string> Choices(const Shot &shot, const char *label) {
    std::size_t count = 0;
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_choice_count(shot.get(), IdOf(label), &count));
    std::vector<std::string> labels;
    for (std::size_t i = 0; i < count; ++i) {
        tremolux_choice choice{};
        choice.size = sizeof(choice);
        EXPECT_EQ(TREMOLUX_OK, tremolux_shot_choice_at(shot.get(), IdOf(label), i, &choice));
        labels.emplace_back(choice.label);
    }
    return labels;
}

std::int32_t ValueOf(const Shot &shot, const char *label, const std::string &entry) {
    const std::vector<std::string> labels = Choices(shot, label);
    tremolux_choice choice{};
    choice.size = sizeof(choice);
    for (std::size_t i = 0; i < labels.size(); ++i)
        if (labels[i] == entry) tremolux_shot_choice_at(shot.get(), IdOf(label), i, &choice);
    return choice.value;
}

TEST(Choices, OfThePresetDependOnTheCategory) {
    const Shot shot = MakeShot(2);
    std::map<std::string, std::set<std::string>> presets;
    for (std::size_t i = 0; i < tremolux_preset_count(); ++i) presets[PresetAt(i).category].insert(PresetAt(i).name);
    for (const auto &[category, names] : presets) {
        ASSERT_EQ(TREMOLUX_OK, tremolux_shot_set(shot.get(), IdOf("Category"), ValueOf(shot, "Category", category)));
        std::set<std::string> listed;
        for (const std::string &choice : Choices(shot, "Preset")) listed.insert(choice);
        for (const std::string &name : names) EXPECT_EQ(1u, listed.count(name)) << category << "/" << name;
    }
}

TEST(Choices, AreChosenByTheirValues) {
    const Shot a = MakeShot(20), b = MakeShot(20);
    const tremolux_preset preset = PresetAt(tremolux_preset_count() - 1);
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_set(a.get(), IdOf("Category"), ValueOf(a, "Category", preset.category)));
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_set(a.get(), IdOf("Preset"), ValueOf(a, "Preset", preset.name)));
    const std::string path = std::string(preset.category) + "/" + preset.name;
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_apply_preset(b.get(), path.c_str()));
    EXPECT_EQ(Played(b, 20), Played(a, 20));
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_set(a.get(), IdOf("Preset"), 12345));
}

TEST(Choices, AreThoseOfChoicesAlone) {
    const Shot shot = MakeShot(2);
    std::size_t count = 7;
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_choice_count(shot.get(), IdOf("Overall Scale"), &count));
    EXPECT_STREQ("parameter: found 6022 'Overall Scale', expected a choice", tremolux_last_error(shot.get()));
    EXPECT_EQ(7u, count);
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_choice_count(shot.get(), IdOf("Category"), nullptr));
    tremolux_choice choice{};
    choice.size = sizeof(choice);
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_choice_at(shot.get(), IdOf("Category"), 1000, &choice));
}

TEST(Times, AreSecondsEverywhere) {
    const tremolux_parameter interval = Named("Interval");
    EXPECT_EQ(TREMOLUX_TIME, interval.kind);
    EXPECT_EQ(TREMOLUX_SECONDS, interval.unit);
    EXPECT_EQ(0, interval.minimum);
    const Shot shot = MakeShot(2);  // at 30 frames a second
    double seconds = 0;
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_set_text(shot.get(), "Interval=45f"));
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_get(shot.get(), interval.id, &seconds));
    EXPECT_DOUBLE_EQ(1.5, seconds);
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_set(shot.get(), interval.id, 0.51));
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_get(shot.get(), interval.id, &seconds));
    EXPECT_DOUBLE_EQ(15.0 / 30, seconds) << "the nearest whole frame";
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_set(shot.get(), interval.id, -0.5));
    EXPECT_STREQ("'Interval' (6038): found -0.5, expected at least 0", tremolux_last_error(shot.get()));
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_set(shot.get(), interval.id, 1e11));
}

// From the key on the interval is none, and no jolt hits.
TEST(Times, AreKeyedInSeconds) {
    constexpr std::size_t kPanelFrames = 90;
    const auto with_jolts_alone = [](double interval) {
        Shot shot = MakeShot(kPanelFrames);
        EXPECT_EQ(TREMOLUX_OK, tremolux_shot_press(shot.get(), IdOf("Zero Pos")));
        EXPECT_EQ(TREMOLUX_OK, tremolux_shot_press(shot.get(), IdOf("Zero Rot")));
        EXPECT_EQ(TREMOLUX_OK, tremolux_shot_set_text(shot.get(), "Jolt Pos Intensity=50%"));
        EXPECT_EQ(TREMOLUX_OK, tremolux_shot_set(shot.get(), IdOf("Interval"), interval));
        return shot;
    };
    const Shot keyed = with_jolts_alone(0), always = with_jolts_alone(0.5), never = with_jolts_alone(0);
    const std::int32_t interval = IdOf("Interval");
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_key(keyed.get(), interval, 0, 0.5, TREMOLUX_HOLD));
    EXPECT_EQ(Played(always, kPanelFrames), Played(keyed, kPanelFrames));
    EXPECT_NE(Played(never, kPanelFrames), Played(keyed, kPanelFrames));
    double seconds = 0;
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_get(keyed.get(), interval, &seconds));
    EXPECT_DOUBLE_EQ(0.5, seconds);
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_key(keyed.get(), interval, 0, 0, TREMOLUX_HOLD));
    EXPECT_EQ(Played(never, kPanelFrames), Played(keyed, kPanelFrames));
}

TEST(Choices, AreNotKeyed) {
    const Shot shot = MakeShot(2);
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_key(shot.get(), IdOf("Category"), 0, 0, TREMOLUX_HOLD));
    EXPECT_STREQ("parameter: found 5806 'Category', expected a number, a switch or a time",
                 tremolux_last_error(shot.get()));
}

}  // namespace
