#include <functional>

#include "tests/library/support.h"

using namespace library_tests;

namespace {

constexpr std::size_t kUndoneFrames = 40, kRemembered = 100;

bool Undo(const Shot &shot) {
    std::int32_t done = -1;
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_undo(shot.get(), &done)) << tremolux_last_error(shot.get());
    return done == 1;
}

bool Redo(const Shot &shot) {
    std::int32_t done = -1;
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_redo(shot.get(), &done)) << tremolux_last_error(shot.get());
    return done == 1;
}

double Seed(const Shot &shot) {
    double value = 0;
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_get(shot.get(), IdOf("Seed"), &value));
    return value;
}

void SetSeed(const Shot &shot, double seed) {
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_set(shot.get(), IdOf("Seed"), seed)) << tremolux_last_error(shot.get());
}

struct Change {
    const char *name;
    std::function<tremolux_status(tremolux_shot)> make;
};

std::vector<Change> Changes() {
    return {
        {"set", [](tremolux_shot shot) { return tremolux_shot_set(shot, IdOf("Shake Speed"), 1.37); }},
        {"set_text", [](tremolux_shot shot) { return tremolux_shot_set_text(shot, "Custom Trigger=3,7"); }},
        {"apply_preset", [](tremolux_shot shot) { return tremolux_shot_apply_preset(shot, "Earthquake"); }},
        {"press", [](tremolux_shot shot) { return tremolux_shot_press(shot, IdOf("Skyscraper")); }},
        {"press lucky", [](tremolux_shot shot) { return tremolux_shot_press(shot, IdOf("I'm Feeling Lucky")); }},
        {"key",
         [](tremolux_shot shot) { return tremolux_shot_key(shot, IdOf("Overall Scale"), 5, 3, TREMOLUX_LINEAR); }},
        {"set_target", [](tremolux_shot shot) { return tremolux_shot_set_target(shot, MakeMove(1).get()); }},
        {"set_focus_object",
         [](tremolux_shot shot) { return tremolux_shot_set_focus_object(shot, MakeMove(1).get()); }},
    };
}

Shot Shaking() {
    Shot shot = MakeShot(kUndoneFrames);
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_apply_preset(shot.get(), "Documentary"));
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_set_text(shot.get(), "Jolt Pos Intensity=20%"));
    return shot;
}

TEST(Undo, TakesBackEachKindOfChangeAsOneStep) {
    for (const Change &change : Changes()) {
        const Shot shot = Shaking();
        SetSeed(shot, 5);
        const std::vector<double> before = Played(shot, kUndoneFrames);
        ASSERT_EQ(TREMOLUX_OK, change.make(shot.get())) << change.name << tremolux_last_error(shot.get());
        const std::vector<double> after = Played(shot, kUndoneFrames);
        EXPECT_NE(before, after) << change.name;
        EXPECT_TRUE(Undo(shot)) << change.name;
        EXPECT_EQ(5, Seed(shot)) << change.name;
        EXPECT_EQ(before, Played(shot, kUndoneFrames)) << change.name;
        EXPECT_TRUE(Redo(shot)) << change.name;
        EXPECT_EQ(after, Played(shot, kUndoneFrames)) << change.name;
        EXPECT_FALSE(Redo(shot)) << change.name;
    }
}

TEST(Undo, TakesBackABake) {
    for (const std::int32_t kind : {TREMOLUX_BAKE_QUICKLY, TREMOLUX_BAKE_BY_BRUTE_FORCE}) {
        const Shot shot = Shaking();
        const std::vector<double> live = Played(shot, kUndoneFrames);
        ASSERT_EQ(TREMOLUX_OK, tremolux_shot_bake(shot.get(), kind)) << tremolux_last_error(shot.get());
        const std::vector<double> baked = Played(shot, kUndoneFrames);
        EXPECT_TRUE(Undo(shot));
        EXPECT_EQ(live, Played(shot, kUndoneFrames));
        EXPECT_TRUE(Redo(shot));
        EXPECT_EQ(baked, Played(shot, kUndoneFrames));
        EXPECT_TRUE(Undo(shot));
        SetSeed(shot, Seed(shot) + 1);
        EXPECT_NE(live, Played(shot, kUndoneFrames)) << "the keys are gone";
    }
}

TEST(Undo, TellsWhenThereIsNothing) {
    const Shot shot = MakeShot(2);
    EXPECT_FALSE(Undo(shot));
    EXPECT_FALSE(Redo(shot));
    SetSeed(shot, 1);
    EXPECT_TRUE(Undo(shot));
    EXPECT_FALSE(Undo(shot));
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_undo(shot.get(), nullptr));
    EXPECT_TRUE(Redo(shot)) << "a refused call takes nothing back";
}

TEST(Undo, RemembersTheLastHundred) {
    const Shot shot = MakeShot(2);
    for (std::size_t i = 0; i <= kRemembered + 20; ++i) SetSeed(shot, static_cast<double>(i));
    for (std::size_t i = 0; i < kRemembered; ++i) EXPECT_TRUE(Undo(shot)) << i;
    EXPECT_FALSE(Undo(shot));
    EXPECT_EQ(20, Seed(shot));
}

TEST(Undo, KnowsNothingOfWhatFailed) {
    const Shot shot = MakeShot(2);
    SetSeed(shot, 1);
    SetSeed(shot, 2);
    EXPECT_TRUE(Undo(shot));
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_set(shot.get(), IdOf("Shake Speed"), -1));
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_set_text(shot.get(), "Seed"));
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_apply_preset(shot.get(), "no such"));
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_apply_preset_bytes(shot.get(), "no preset", 9));
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_bake(shot.get(), 7));
    EXPECT_EQ(TREMOLUX_HANDLE, tremolux_shot_set_target(shot.get(), nullptr));
    EXPECT_EQ(1, Seed(shot));
    EXPECT_TRUE(Redo(shot));
    EXPECT_EQ(2, Seed(shot));
}

TEST(Undo, ForgetsWhatWasTakenBackAtANewChange) {
    const Shot shot = MakeShot(2);
    SetSeed(shot, 1);
    EXPECT_TRUE(Undo(shot));
    SetSeed(shot, 2);
    EXPECT_FALSE(Redo(shot));
    EXPECT_EQ(2, Seed(shot));
}

TEST(Undo, LeavesTheLinkOfATargetThatWasThereBefore) {
    const Shot shot = MakeShot(kUndoneFrames);
    const Move point = MakeMove(1);
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_set_target(shot.get(), point.get()));
    const std::vector<double> aimed = Played(shot, kUndoneFrames);
    SetSeed(shot, Seed(shot) + 1);
    EXPECT_TRUE(Undo(shot));
    EXPECT_EQ(aimed, Played(shot, kUndoneFrames));
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_set_target(shot.get(), point.get())) << "it is still there";
    EXPECT_TRUE(Undo(shot));
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_set_target(shot.get(), point.get())) << "it was taken back";
    EXPECT_EQ(aimed, Played(shot, kUndoneFrames));
}

TEST(Undo, PutsThePresetsListBack) {
    const Shot shot = MakeShot(2);
    const auto get = [&](const char *label) {
        double value = 0;
        EXPECT_EQ(TREMOLUX_OK, tremolux_shot_get(shot.get(), IdOf(label), &value));
        return value;
    };
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_apply_preset(shot.get(), "Documentary"));
    const double category = get("Category"), preset = get("Preset");
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_apply_preset(shot.get(), "Earthquake"));
    EXPECT_NE(std::make_pair(category, preset), std::make_pair(get("Category"), get("Preset")));
    EXPECT_TRUE(Undo(shot));
    EXPECT_EQ(category, get("Category"));
    EXPECT_EQ(preset, get("Preset"));
}

}  // namespace
