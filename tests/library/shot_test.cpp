#include <atomic>
#include <filesystem>
#include <limits>
#include <nlohmann/json.hpp>
#include <thread>

#include "host/application.h"
#include "host/services/platform.h"
#include "library/presets/catalog.h"
#include "library/presets/pair.h"
#include "library/shots/embedded_host.h"
#include "library/shots/stage.h"
#include "tests/library/support.h"

using namespace library_tests;

namespace {

constexpr std::size_t kFrames = 90;

tremolux::CameraMove TheMove(std::size_t frames) {
    const std::vector<double> numbers = Numbers(frames);
    tremolux::CameraMove move;
    for (std::size_t i = 0; i < frames; ++i) {
        const double *at = &numbers[i * kNumbers];
        move.samples.push_back({{at[0], at[1], at[2]}, {at[3], at[4], at[5]}, at[6], at[7]});
    }
    return move;
}

// The same frames from the module's own file, loaded as the program loads it.
std::vector<double> FramesOfTheModuleFile(const std::string &preset, std::size_t frames) {
    const std::filesystem::path programs = std::filesystem::u8path(TREMOLUX_PROGRAM_FILE).parent_path();
    const tremolux::EmbeddedHost host(
        programs / "plugins" / "TremoluxCam" / (std::string("TremoluxCam") + host::ModuleSuffix()),
        programs / "library_tests_home");
    tremolux::Stage stage(TheMove(frames));
    const auto catalog = tremolux::ReadCatalog(&stage.CameraTag());
    const tremolux::CatalogEntry &entry = tremolux::FindPreset(catalog, preset, "preset");
    tremolux::ChoosePreset(entry, &stage.CameraTag());
    const auto second = tremolux::SecondOfEntry(entry, host.ModuleFile(), stage.CameraTag());
    if (second) {
        tremolux::ApplyPresetValues(*second, stage.AddSecondCamera());
        tremolux::FollowExactly(stage.SecondTag());
    }
    std::vector<double> numbers;
    for (std::size_t frame = 0; frame < frames; ++frame) {
        stage.PlayFrame(static_cast<std::int64_t>(frame));
        const tremolux::CameraSample now = stage.Output();
        for (double number : {now.position.x, now.position.y, now.position.z, now.angles.x, now.angles.y, now.angles.z,
                              now.focal_length, now.focus_distance})
            numbers.push_back(number);
    }
    return numbers;
}

void ApplyPreset(const Shot &shot, const std::string &preset) {
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_apply_preset(shot.get(), preset.c_str())) << tremolux_last_error(shot.get());
}

double Get(const Shot &shot, std::int32_t parameter) {
    double value = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_get(shot.get(), parameter, &value)) << tremolux_last_error(shot.get());
    return value;
}

void Set(const Shot &shot, std::int32_t parameter, double value) {
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_set(shot.get(), parameter, value)) << tremolux_last_error(shot.get());
}

std::string Refused(const Shot &shot, tremolux_status status) {
    EXPECT_EQ(TREMOLUX_INPUT, status);
    return tremolux_last_error(shot.get());
}

TEST(Presets, AreThoseThatTheModuleBringsWithTheirSentences) {
    ASSERT_EQ(64u, tremolux_preset_count());
    for (std::size_t i = 0; i < 64; ++i) {
        EXPECT_STRNE("", PresetAt(i).category);
        EXPECT_STRNE("", PresetAt(i).sentence) << PresetAt(i).name;
    }
    tremolux_preset preset{};
    preset.size = sizeof(preset);
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_preset_at(64, &preset));
    EXPECT_STREQ("index: found 64, expected less than 64", tremolux_last_error(nullptr));
}

TEST(Parameters, AreTheModulesOwn) {
    bool has_speed = false;
    for (std::size_t i = 0; i < tremolux_parameter_count(); ++i) {
        const tremolux_parameter parameter = ParameterAt(i);
        EXPECT_LE(parameter.minimum, parameter.maximum) << parameter.label;
        has_speed = has_speed || (std::string("Shake Speed") == parameter.label && parameter.kind == TREMOLUX_NUMBER &&
                                  parameter.unit == TREMOLUX_PERCENT);
    }
    EXPECT_TRUE(has_speed);
}

TEST(Shot, ShowsTheFramesOfTheModuleFileUnderEveryPreset) {
    for (std::size_t i = 0; i < tremolux_preset_count(); ++i) {
        const std::string preset = std::string(PresetAt(i).category) + "/" + PresetAt(i).name;
        const Shot shot = MakeShot(kFrames);
        ApplyPreset(shot, preset);
        EXPECT_EQ(FramesOfTheModuleFile(preset, kFrames), Played(shot, kFrames)) << preset;
    }
}

TEST(Shot, ShowsTheSameWhenItIsPlayedAgain) {
    const Shot shot = MakeShot(kFrames);
    ApplyPreset(shot, "Documentary");
    const std::vector<double> first = Played(shot, kFrames);
    EXPECT_EQ(first, Played(shot, kFrames));
    const std::int32_t speed = IdOf("Shake Speed");
    const double before = Get(shot, speed);
    Set(shot, speed, before * 2);
    EXPECT_NE(first, Played(shot, kFrames));
    Set(shot, speed, before);
    EXPECT_EQ(first, Played(shot, kFrames));
}

TEST(Shot, StandsApartFromOthers) {
    const Shot a = MakeShot(20), b = MakeShot(20);
    const std::vector<double> before = Played(b, 20);
    ApplyPreset(a, "Earthquake");
    EXPECT_NE(before, Played(a, 20));
    EXPECT_EQ(before, Played(b, 20));
}

TEST(Shot, TakesSettingsAsTheyAreTyped) {
    const Shot shot = MakeShot(2);
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_set_text(shot.get(), "Shake Speed=150%"));
    EXPECT_EQ(1.5, Get(shot, IdOf("Shake Speed")));
    EXPECT_EQ("--set: found 'Shake', expected LABEL=VALUE or ID=VALUE",
              Refused(shot, tremolux_shot_set_text(shot.get(), "Shake")));
}

TEST(Shot, RefusesWhatASettingCannotHave) {
    const Shot shot = MakeShot(2);
    const std::int32_t speed = IdOf("Shake Speed");
    const double before = Get(shot, speed);
    EXPECT_NE("", Refused(shot, tremolux_shot_set(shot.get(), speed, std::numeric_limits<double>::quiet_NaN())));
    EXPECT_NE("", Refused(shot, tremolux_shot_set(shot.get(), speed, -1)));
    EXPECT_EQ(before, Get(shot, speed));
    EXPECT_EQ("parameter: found 1, expected a parameter's number", Refused(shot, tremolux_shot_set(shot.get(), 1, 0)));
    EXPECT_NE("", Refused(shot, tremolux_shot_press(shot.get(), speed)));
}

TEST(Shot, FollowsATarget) {
    const Shot shot = MakeShot(kFrames);
    const std::vector<double> before = Played(shot, kFrames);
    const Move point = MakeMove(1);
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_set_target(shot.get(), point.get()));
    EXPECT_NE(before, Played(shot, kFrames));
    EXPECT_EQ("points: found a second one, expected one for each shot",
              Refused(shot, tremolux_shot_set_target(shot.get(), point.get())));
    EXPECT_EQ("points: found frames 0 to 88, expected 0 to 89 of the shot's move",
              Refused(shot, tremolux_shot_set_focus_object(shot.get(), MakeMove(kFrames - 1).get())));
}

TEST(Shot, HasNoNumbersBeforeItIsPlayed) {
    const Shot shot = MakeShot(2);
    std::vector<double> numbers(2 * kNumbers);
    EXPECT_EQ("found a shot that was not played, expected a played one",
              Refused(shot, tremolux_shot_numbers(shot.get(), numbers.data(), numbers.size())));
}

TEST(Shot, GivesItsResultAsAMove) {
    const Shot shot = MakeShot(kFrames);
    const std::vector<double> played = Played(shot, kFrames);
    tremolux_move result = nullptr;
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_result(shot.get(), &result));
    const Move move(result);
    std::vector<double> numbers(kFrames * kNumbers);
    EXPECT_EQ(TREMOLUX_OK, tremolux_move_numbers(result, numbers.data(), numbers.size()));
    EXPECT_EQ(played, numbers);
}

TEST(Shot, ShowsItsFramesAndASmoothWayBetweenThem) {
    const Shot shot = MakeShot(kFrames);
    const std::vector<double> played = Played(shot, kFrames);
    std::vector<double> numbers(kNumbers), twentieth(played.begin() + 20 * kNumbers, played.begin() + 21 * kNumbers);
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_numbers_at(shot.get(), 20, numbers.data()));
    EXPECT_EQ(twentieth, numbers);
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_numbers_at(shot.get(), 20.5, numbers.data()));
    EXPECT_GT(numbers[6], played[20 * kNumbers + 6]);
    EXPECT_LT(numbers[6], played[21 * kNumbers + 6]);
    EXPECT_EQ("frame: found nan, expected 0 to 89",
              Refused(shot, tremolux_shot_numbers_at(shot.get(), std::nan(""), numbers.data())));
}

TEST(Shot, GivesTheLayersOfAFrame) {
    const Shot shot = MakeShot(kFrames);
    ApplyPreset(shot, "Documentary");
    const std::vector<double> played = Played(shot, kFrames);
    tremolux_buffer buffer{};
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_layers(shot.get(), 40, &buffer)) << tremolux_last_error(shot.get());
    const auto layers = nlohmann::json::parse(buffer.bytes);
    tremolux_buffer_free(&buffer);
    const auto &x = layers["position"];
    EXPECT_NEAR(played[40 * kNumbers], x["result"][0], 1e-12);
    EXPECT_NEAR(x["result"][0],
                x["smoothed"][0].get<double>() + x["overshoot"][0].get<double>() + x["shake"][0].get<double>() +
                    x["jolt"][0].get<double>(),
                1e-9);
    EXPECT_EQ("frame: found 90, expected 0 to 89", Refused(shot, tremolux_shot_layers(shot.get(), 90, &buffer)));
    EXPECT_EQ(played, Played(shot, kFrames));
}

// The RMS is that of the numbers themselves.
TEST(Shot, MeasuresWhatWasAdded) {
    const Shot shot = MakeShot(kFrames);
    ApplyPreset(shot, "Documentary");
    const std::vector<double> played = Played(shot, kFrames), input = Numbers(kFrames);
    double squares = 0;
    for (std::size_t i = 0; i < kFrames * kNumbers; ++i)
        if (i % kNumbers < 3) squares += (played[i] - input[i]) * (played[i] - input[i]);
    tremolux_measures measures{};
    measures.size = sizeof(measures);
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_measure(shot.get(), &measures)) << tremolux_last_error(shot.get());
    EXPECT_NEAR(std::sqrt(squares / kFrames), measures.position_rms, 1e-9);
    EXPECT_GE(measures.position_peak, measures.position_rms);
    EXPECT_GT(measures.turn_rms, 0);
    EXPECT_GE(measures.turn_peak, measures.turn_rms);
}

TEST(Shot, FollowsTheKeysOfASetting) {
    const Shot shot = MakeShot(kFrames);
    ApplyPreset(shot, "Documentary");
    const std::int32_t intensity = IdOf("Rotation Intensity"), position = IdOf("Position Intensity");
    for (const std::int32_t setting : {intensity, position}) {
        EXPECT_EQ(TREMOLUX_OK, tremolux_shot_key(shot.get(), setting, 30, 1, TREMOLUX_HOLD))
            << tremolux_last_error(shot.get());
        EXPECT_EQ(TREMOLUX_OK, tremolux_shot_key(shot.get(), setting, 60, 0, TREMOLUX_HOLD));
    }
    const std::vector<double> keyed = Played(shot, kFrames);
    EXPECT_EQ(0, Get(shot, intensity));
    const Shot whole = MakeShot(kFrames);
    ApplyPreset(whole, "Documentary");
    Set(whole, intensity, 1);
    Set(whole, position, 1);
    const std::vector<double> unkeyed = Played(whole, kFrames);
    const auto at = [](std::size_t frame) { return static_cast<std::ptrdiff_t>(frame * kNumbers); };
    EXPECT_TRUE(std::equal(keyed.begin(), keyed.begin() + at(60), unkeyed.begin()));
    EXPECT_FALSE(std::equal(keyed.begin() + at(60), keyed.end(), unkeyed.begin() + at(60)));
    EXPECT_EQ("frame: found 90, expected 0 to 89",
              Refused(shot, tremolux_shot_key(shot.get(), intensity, 90, 1, TREMOLUX_LINEAR)));
    EXPECT_EQ("interpolation: found 77, expected 1 to 3",
              Refused(shot, tremolux_shot_key(shot.get(), intensity, 1, 1, 77)));
    EXPECT_EQ("kind: found -1, expected 1 or 2", Refused(shot, tremolux_shot_bake(shot.get(), -1)));
}

TEST(Shot, PlaysItsBake) {
    const Shot shot = MakeShot(kFrames);
    ApplyPreset(shot, "Documentary");
    const std::vector<double> live = Played(shot, kFrames);
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_bake(shot.get(), TREMOLUX_BAKE_BY_BRUTE_FORCE))
        << tremolux_last_error(shot.get());
    const std::vector<double> baked = Played(shot, kFrames);
    for (std::size_t i = 0; i < live.size(); ++i) ASSERT_NEAR(live[i], baked[i], 1e-9) << "number " << i;
}

TEST(Play, FromAFrameOnLeavesTheFramesBefore) {
    const Shot shot = MakeShot(kFrames);
    EXPECT_EQ("found a shot that was not played, expected a played one",
              Refused(shot, tremolux_shot_play_from(shot.get(), 0, nullptr, nullptr)));
    const std::vector<double> before = Played(shot, kFrames);
    ApplyPreset(shot, "Earthquake");
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_play_from(shot.get(), 50, nullptr, nullptr));
    std::vector<double> numbers(kFrames * kNumbers);
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_numbers(shot.get(), numbers.data(), numbers.size()));
    const auto place = static_cast<std::ptrdiff_t>(50 * kNumbers);
    EXPECT_TRUE(std::equal(before.begin(), before.begin() + place, numbers.begin()));
    EXPECT_FALSE(std::equal(before.begin() + place, before.end(), numbers.begin() + place));
    EXPECT_EQ("frame: found -1, expected 0 to 89",
              Refused(shot, tremolux_shot_play_from(shot.get(), -1, nullptr, nullptr)));
}

TEST(Play, TellsOfEachFrame) {
    const Shot shot = MakeShot(5);
    std::vector<std::uint64_t> told;
    const auto note = [](std::uint64_t done, std::uint64_t frames, void *user) -> std::int32_t {
        EXPECT_EQ(5u, frames);
        static_cast<std::vector<std::uint64_t> *>(user)->push_back(done);
        return 0;
    };
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_play(shot.get(), note, &told));
    EXPECT_EQ((std::vector<std::uint64_t>{1, 2, 3, 4, 5}), told);
}

TEST(Play, ThatIsCancelledLeavesTheNumbersOfTheLastWholeOne) {
    const Shot shot = MakeShot(5);
    const std::vector<double> before = Played(shot, 5);
    ApplyPreset(shot, "Earthquake");
    const auto at_three = [](std::uint64_t done, std::uint64_t, void *) -> std::int32_t { return done == 3 ? 1 : 0; };
    EXPECT_EQ(TREMOLUX_CANCELLED, tremolux_shot_play(shot.get(), at_three, nullptr));
    EXPECT_STREQ("cancelled after 3 of 5 frames", tremolux_last_error(shot.get()));
    std::vector<double> numbers(5 * kNumbers);
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_numbers(shot.get(), numbers.data(), numbers.size()));
    EXPECT_EQ(before, numbers);
    EXPECT_NE(before, Played(shot, 5));
}

TEST(Play, IsCancelledFromAnotherThread) {
    const Shot shot = MakeShot(5);
    const auto cancel_at_two = [](std::uint64_t done, std::uint64_t, void *user) -> std::int32_t {
        if (done == 2)
            std::thread([&] { EXPECT_EQ(TREMOLUX_OK, tremolux_shot_cancel(static_cast<tremolux_shot>(user))); }).join();
        return 0;
    };
    EXPECT_EQ(TREMOLUX_CANCELLED, tremolux_shot_play(shot.get(), cancel_at_two, shot.get()));
    EXPECT_STREQ("cancelled after 2 of 5 frames", tremolux_last_error(shot.get()));
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_cancel(shot.get()));
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_play(shot.get(), nullptr, nullptr));
}

TEST(Play, KeepsItsShotFromOtherThreads) {
    const Shot shot = MakeShot(3);
    const auto meddle = [](std::uint64_t, std::uint64_t, void *user) -> std::int32_t {
        std::thread([&] {
            double value = 0;
            EXPECT_EQ(TREMOLUX_BUSY, tremolux_shot_get(static_cast<tremolux_shot>(user), 6152, &value));
            EXPECT_STREQ("the shot is in use by another call", tremolux_last_error(nullptr));
        }).join();
        return 0;
    };
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_play(shot.get(), meddle, shot.get()));
}

TEST(Play, KeepsItsShotFromWhatItCallsBack) {
    const Shot shot = MakeShot(3);
    const auto meddle = [](std::uint64_t, std::uint64_t, void *user) -> std::int32_t {
        EXPECT_EQ(TREMOLUX_BUSY, tremolux_shot_play(static_cast<tremolux_shot>(user), nullptr, nullptr));
        return 0;
    };
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_play(shot.get(), meddle, shot.get()));
}

TEST(Play, OfAShotThatIsFreedMeanwhileGoesOn) {
    tremolux_shot shot = MakeShot(3).release();
    const auto release = [](std::uint64_t done, std::uint64_t, void *user) -> std::int32_t {
        EXPECT_EQ(done == 1 ? TREMOLUX_OK : TREMOLUX_HANDLE, tremolux_shot_free(static_cast<tremolux_shot>(user)));
        return 0;
    };
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_play(shot, release, shot));
    EXPECT_EQ(TREMOLUX_HANDLE, tremolux_shot_play(shot, nullptr, nullptr));
}

TEST(Play, EndsWhenWhatItCallsBackThrows) {
    const Shot shot = MakeShot(3);
    const auto fail = [](std::uint64_t, std::uint64_t, void *) -> std::int32_t { throw 7; };
    EXPECT_EQ(TREMOLUX_INTERNAL, tremolux_shot_play(shot.get(), fail, nullptr));
    EXPECT_STREQ("what was called back threw something", tremolux_last_error(shot.get()));
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_play(shot.get(), nullptr, nullptr));
}

}  // namespace
