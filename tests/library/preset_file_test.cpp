#include <limits>

#include "tests/library/support.h"

using namespace library_tests;

namespace {

constexpr std::size_t kPresetFrames = 40;

Shot With(const std::string &preset) {
    Shot shot = MakeShot(kPresetFrames);
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_apply_preset(shot.get(), preset.c_str()));
    return shot;
}

std::string BytesOf(const Shot &shot, const char *name = "Mine") {
    tremolux_buffer buffer{};
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_preset_to_bytes(shot.get(), name, &buffer)) << tremolux_last_error(shot.get());
    std::string bytes(buffer.bytes, buffer.size);
    tremolux_buffer_free(&buffer);
    return bytes;
}

tremolux_status Apply(const Shot &shot, const std::string &bytes) {
    return tremolux_shot_apply_preset_bytes(shot.get(), bytes.data(), bytes.size());
}

// Of everything that holds a number, but for the lists of presets.
std::vector<double> Settings(const Shot &shot) {
    std::vector<double> values;
    for (std::size_t i = 0; i < tremolux_parameter_count(); ++i) {
        const tremolux_parameter parameter = ParameterAt(i);
        double value = 0;
        if (parameter.kind == TREMOLUX_CHOICE) continue;
        if (tremolux_shot_get(shot.get(), parameter.id, &value) == TREMOLUX_OK) values.push_back(value);
    }
    return values;
}

double Choice(const Shot &shot, const char *label) {
    double value = 0;
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_get(shot.get(), IdOf(label), &value));
    return value;
}

TEST(PresetFile, CarriesTheSettingsToAnotherShot) {
    for (const char *preset : {"Documentary", "Earthquake"}) {
        const Shot shot = With(preset), other = MakeShot(kPresetFrames);
        EXPECT_EQ(TREMOLUX_OK, tremolux_shot_set_text(shot.get(), "Custom Trigger=3,9"));
        EXPECT_EQ(TREMOLUX_OK, tremolux_shot_set_text(shot.get(), "Interval=12f"));
        EXPECT_EQ(TREMOLUX_OK, tremolux_shot_set(shot.get(), IdOf("Shake Speed"), 1.37));
        EXPECT_NE(Settings(shot), Settings(other));
        EXPECT_EQ(TREMOLUX_OK, Apply(other, BytesOf(shot))) << tremolux_last_error(other.get());
        EXPECT_EQ(Settings(shot), Settings(other));
        EXPECT_EQ(Played(shot, kPresetFrames), Played(other, kPresetFrames));
    }
}

TEST(PresetFile, LeavesTheShotThatItIsMadeOfAsItIs) {
    const Shot shot = With("Documentary");
    const std::vector<double> settings = Settings(shot), played = Played(shot, kPresetFrames);
    const double category = Choice(shot, "Category"), preset = Choice(shot, "Preset");
    std::size_t before = 0, after = 0;
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_choice_count(shot.get(), IdOf("Preset"), &before));
    const std::string bytes = BytesOf(shot);
    EXPECT_EQ(bytes, BytesOf(shot));
    EXPECT_NE(bytes, BytesOf(shot, "Theirs")) << "the name is in it";
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_choice_count(shot.get(), IdOf("Preset"), &after));
    EXPECT_EQ(before, after);
    EXPECT_EQ(settings, Settings(shot));
    EXPECT_EQ(category, Choice(shot, "Category"));
    EXPECT_EQ(preset, Choice(shot, "Preset"));
    EXPECT_EQ(played, Played(shot, kPresetFrames));
    std::int32_t done = 0;
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_undo(shot.get(), &done));
    EXPECT_EQ(1, done);
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_undo(shot.get(), &done));
    EXPECT_EQ(0, done) << "the preset alone was a step";
}

TEST(PresetFile, StandsInNoListAfterwards) {
    const Shot shot = MakeShot(2), other = MakeShot(2);
    const double category = Choice(other, "Category");
    EXPECT_EQ(TREMOLUX_OK, Apply(other, BytesOf(shot)));
    EXPECT_EQ(category, Choice(other, "Category"));
    EXPECT_EQ(64u, tremolux_preset_count());
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_set_text(other.get(), "Category=User"));
    std::size_t count = 0;
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_choice_count(other.get(), IdOf("Preset"), &count));
    for (std::size_t i = 0; i < count; ++i) {
        tremolux_choice choice{};
        choice.size = sizeof(choice);
        EXPECT_EQ(TREMOLUX_OK, tremolux_shot_choice_at(other.get(), IdOf("Preset"), i, &choice));
        EXPECT_STRNE("Mine", choice.label);
    }
}

TEST(PresetFile, IsAppliedAsOneStep) {
    const Shot shot = With("Documentary"), other = With("Earthquake");
    const std::vector<double> before = Settings(shot), wanted = Settings(other);
    const std::string bytes = BytesOf(other);
    EXPECT_EQ(TREMOLUX_OK, Apply(shot, bytes));
    EXPECT_EQ(wanted, Settings(shot));
    std::int32_t done = 0;
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_undo(shot.get(), &done));
    EXPECT_EQ(before, Settings(shot));
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_redo(shot.get(), &done));
    EXPECT_EQ(wanted, Settings(shot));
    EXPECT_EQ(TREMOLUX_OK, Apply(shot, bytes)) << "as often as one likes";
    EXPECT_EQ(wanted, Settings(shot));
}

// Cut and changed at every place: taken as the module takes it, or refused with one line and nothing changed.
TEST(PresetFile, OfAHostileHandDoesNoHarm) {
    const Shot shot = With("Documentary");
    const std::vector<double> before = Settings(shot);
    const std::string whole = BytesOf(With("Earthquake"));
    for (std::size_t size = 0; size < whole.size(); size += 1 + whole.size() / 50) {
        EXPECT_EQ(TREMOLUX_INPUT, Apply(shot, whole.substr(0, size))) << size;
        EXPECT_EQ("preset: found " + std::to_string(size) +
                      " bytes of something else, expected a preset file (1 MiB at most)",
                  tremolux_last_error(shot.get()));
        EXPECT_EQ(before, Settings(shot));
    }
    for (std::size_t place = 0; place < whole.size(); place += 1 + whole.size() / 100) {
        std::string damaged = whole;
        damaged[place] = static_cast<char>(~damaged[place]);
        const bool is_taken = Apply(shot, damaged) == TREMOLUX_OK;
        EXPECT_EQ(is_taken, std::string(tremolux_last_error(shot.get())).empty()) << place;
        for (const double value : Settings(shot)) EXPECT_TRUE(std::isfinite(value)) << place;
    }
    EXPECT_EQ(TREMOLUX_INPUT, Apply(shot, std::string(2000000, 'x')));
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_apply_preset_bytes(shot.get(), nullptr, 9));
}

TEST(PresetFile, HasANameThatAFileCanHave) {
    const Shot shot = MakeShot(2);
    tremolux_buffer buffer{};
    for (const std::string &name : {std::string(), std::string(151, 'a')}) {
        EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_preset_to_bytes(shot.get(), name.c_str(), &buffer));
        EXPECT_NE(std::string::npos, std::string(tremolux_last_error(shot.get())).find("expected a name for a file"));
    }
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_preset_to_bytes(shot.get(), nullptr, &buffer));
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_preset_to_bytes(shot.get(), "Mine", nullptr));
    EXPECT_EQ(nullptr, buffer.bytes);
    BytesOf(shot, "../../etc/\xC3\xA9\xFF");
}

TEST(PresetFile, IsNotForABakedShot) {
    const Shot shot = With("Documentary");
    const std::string bytes = BytesOf(shot);
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_bake(shot.get(), TREMOLUX_BAKE_QUICKLY));
    tremolux_buffer buffer{};
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_preset_to_bytes(shot.get(), "Mine", &buffer));
    EXPECT_EQ(TREMOLUX_INPUT, Apply(shot, bytes));
    EXPECT_STREQ("found a baked shot, expected one that takes settings", tremolux_last_error(shot.get()));
}

TEST(PresetFolder, IsNoSettingOfAShot) {
    const Shot shot = MakeShot(2);
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_set_text(shot.get(), "6178=/"));
    EXPECT_NE(std::string::npos, std::string(tremolux_last_error(shot.get())).find("expected one of the shot"));
    BytesOf(shot);
}

}  // namespace
