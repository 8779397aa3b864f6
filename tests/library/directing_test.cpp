// When, where and how much: what a shot is told beside its settings.
#include <algorithm>
#include <functional>
#include <nlohmann/json.hpp>

#include "tests/library/support.h"

using namespace library_tests;

namespace {

constexpr std::size_t kDirectedFrames = 90;
constexpr double kSame = 1e-12;

using Json = nlohmann::json;

Json TakeJson(tremolux_buffer *buffer) {
    Json json = Json::parse(std::string(buffer->bytes, buffer->size));
    tremolux_buffer_free(buffer);
    return json;
}

tremolux_direction Whole() { return {sizeof(tremolux_direction), -1000, 1000, 0, 0, 1, 1, 1, 1, 0, 36}; }

std::vector<double> Shown(const Shot &shot) {
    std::vector<double> numbers(kDirectedFrames * kNumbers);
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_numbers(shot.get(), numbers.data(), numbers.size()));
    return numbers;
}

Shot Documentary() {
    Shot shot = MakeShot(kDirectedFrames);
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_apply_preset(shot.get(), "Documentary"));
    return shot;
}

TEST(Directing, ShowsTheInputOutsideOfItsFramesAndTheShakeInside) {
    const Shot shot = Documentary();
    const std::vector<double> input = Numbers(kDirectedFrames), shaken = Played(shot, kDirectedFrames);
    tremolux_direction direction = Whole();
    direction.from = 20;
    direction.until = 60;
    direction.fade_in = 10;
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_direct(shot.get(), &direction)) << tremolux_last_error(shot.get());
    const std::vector<double> shown = Shown(shot);
    for (std::size_t i = 0; i < shown.size(); ++i) {
        const std::size_t frame = i / kNumbers;
        if (frame < 20 || frame > 60) {
            EXPECT_EQ(shown[i], input[i]) << frame;
        } else if (frame >= 30) {
            EXPECT_EQ(shown[i], shaken[i]) << frame;
        }
    }
    EXPECT_NEAR(shown[25 * kNumbers], (input[25 * kNumbers] + shaken[25 * kNumbers]) / 2, 1e-9) << "half way in";
    EXPECT_EQ(Played(shot, kDirectedFrames), shown) << "a later play is directed too";
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_direct(shot.get(), nullptr));
    EXPECT_EQ(Shown(shot), shaken);
}

TEST(Directing, ShakesTheWantedChannelsAlone) {
    const Shot shot = Documentary();
    const std::vector<double> input = Numbers(kDirectedFrames), shaken = Played(shot, kDirectedFrames);
    tremolux_direction direction = Whole();
    direction.position = direction.lens = 0;
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_direct(shot.get(), &direction));
    const std::vector<double> shown = Shown(shot);
    for (std::size_t i = 0; i < shown.size(); ++i) {
        const bool is_angle = i % kNumbers >= 3 && i % kNumbers < 6;
        EXPECT_EQ(shown[i], is_angle ? shaken[i] : input[i]) << i;
    }
}

TEST(Directing, APlayFromAFrameKeepsWhatWasPlayedBeforeItAndNotWhatWasShown) {
    const Shot shot = Documentary();
    const std::vector<double> shaken = Played(shot, kDirectedFrames);
    tremolux_direction direction = Whole();
    direction.mix = 0.5;
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_direct(shot.get(), &direction));
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_play_from(shot.get(), 40, nullptr, nullptr));
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_direct(shot.get(), nullptr));
    const std::vector<double> shown = Shown(shot);
    EXPECT_TRUE(std::equal(shown.begin(), shown.begin() + 40 * kNumbers, shaken.begin()));
}

TEST(Directing, RefusesWhatIsNoDirection) {
    const Shot shot = Documentary();
    const std::vector<std::function<void(tremolux_direction *)>> wrong = {
        [](tremolux_direction *d) { d->from = 5, d->until = 4; },
        [](tremolux_direction *d) { d->fade_in = -1; },
        [](tremolux_direction *d) { d->fade_out = std::int64_t{1} << 60; },
        [](tremolux_direction *d) { d->mix = 1.1; },
        [](tremolux_direction *d) { d->mix = std::nan(""); },
        [](tremolux_direction *d) { d->lens = 2; },
        [](tremolux_direction *d) { d->lens_aware = -1; },
        [](tremolux_direction *d) { d->lens_aware = 1, d->focal_length = 0; },
        [](tremolux_direction *d) { d->size = 3; },
    };
    for (const auto &change : wrong) {
        tremolux_direction direction = Whole();
        change(&direction);
        EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_direct(shot.get(), &direction));
        EXPECT_NE(std::string(tremolux_last_error(shot.get())).find("expected"), std::string::npos);
    }
}

// Frames on which the position leaves what it is without jolts.
std::vector<std::size_t> Onsets(const std::vector<double> &with, const std::vector<double> &without) {
    std::vector<std::size_t> frames;
    bool apart = false;
    for (std::size_t frame = 0; frame < kDirectedFrames; ++frame) {
        const bool now = std::fabs(with[frame * kNumbers + 1] - without[frame * kNumbers + 1]) > kSame;
        if (now && !apart) frames.push_back(frame);
        apart = now;
    }
    return frames;
}

Shot WithoutJolts() {
    Shot shot = MakeShot(kDirectedFrames);
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_set_text(shot.get(), "Jolt=off"));
    return shot;
}

TEST(Jolts, HitTheFramesThatTheyAreGivenAndForgetThoseOfBefore) {
    const Shot still = WithoutJolts(), shot = WithoutJolts();
    const std::vector<double> without = Played(still, kDirectedFrames);
    const double first[] = {20, 1, 50, 1}, second[] = {35, 1};
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_jolts(shot.get(), first, 4, 1, 1)) << tremolux_last_error(shot.get());
    const std::vector<double> with = Played(shot, kDirectedFrames);
    ASSERT_FALSE(Onsets(with, without).empty());
    EXPECT_NEAR(static_cast<double>(Onsets(with, without).front()), 20, 1);
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_jolts(shot.get(), second, 2, 1, 1));
    const std::vector<double> later = Played(shot, kDirectedFrames);
    EXPECT_NEAR(static_cast<double>(Onsets(later, without).front()), 35, 1);
    std::int32_t done = 0;
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_undo(shot.get(), &done));
    EXPECT_EQ(Played(shot, kDirectedFrames), with) << "one step";
}

TEST(Jolts, AreAsStrongAsTheyAreTold) {
    const Shot still = WithoutJolts(), shot = WithoutJolts();
    const std::vector<double> without = Played(still, kDirectedFrames);
    const auto peak = [&](const std::vector<double> &with, std::size_t from, std::size_t to) {
        double most = 0;
        for (std::size_t frame = from; frame < to; ++frame)
            most = std::max(most, std::fabs(with[frame * kNumbers + 1] - without[frame * kNumbers + 1]));
        return most;
    };
    const double equal[] = {10, 1, 60, 1}, unequal[] = {10, 1, 60, 0.25};
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_jolts(shot.get(), equal, 4, 0.5, 0.5));
    const std::vector<double> same = Played(shot, kDirectedFrames);
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_jolts(shot.get(), unequal, 4, 0.5, 0.5));
    const std::vector<double> with = Played(shot, kDirectedFrames);
    EXPECT_NEAR(peak(with, 10, 20), peak(same, 10, 20), 1e-9);
    EXPECT_NEAR(peak(with, 60, 70) / peak(same, 60, 70), 0.25, 0.05) << "beside what is left of the first";
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_jolts(shot.get(), equal, 4, 0.5, 0.5));
    EXPECT_EQ(Played(shot, kDirectedFrames), same) << "keys of strengths are gone";
}

TEST(Jolts, AreRefusedOutsideOfTheShot) {
    const Shot shot = WithoutJolts();
    const std::vector<double> with = Played(shot, kDirectedFrames);
    const double outside[] = {20, 1, 90, 1}, strong[] = {20, 1.5}, none[] = {std::nan(""), 1};
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_jolts(shot.get(), outside, 4, 1, 1));
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_jolts(shot.get(), strong, 2, 1, 1));
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_jolts(shot.get(), none, 2, 1, 1));
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_jolts(shot.get(), outside, 3, 1, 1));
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_jolts(shot.get(), nullptr, 2, 1, 1));
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_jolts(shot.get(), outside, 2, -1, 1));
    EXPECT_EQ(Played(shot, kDirectedFrames), with);
}

TEST(Keys, CanBeTakenAwayOneByOne) {
    const Shot plain = Documentary(), shot = Documentary();
    const std::int32_t scale = IdOf("Overall Scale");
    double before = 0, after = 0;
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_get(shot.get(), scale, &before));
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_key(shot.get(), scale, 10, before, TREMOLUX_LINEAR));
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_key(shot.get(), scale, 50, 3 * before, TREMOLUX_LINEAR));
    const std::vector<double> keyed = Played(shot, kDirectedFrames);
    EXPECT_NE(keyed, Played(plain, kDirectedFrames));
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_unkey(shot.get(), scale, 11)) << "no key there";
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_unkey(shot.get(), scale, 50)) << tremolux_last_error(shot.get());
    EXPECT_EQ(Played(shot, kDirectedFrames), Played(plain, kDirectedFrames)) << "one key holds for all time";
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_unkey(shot.get(), scale, 10));
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_unkey(shot.get(), scale, 10)) << "the track is gone";
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_get(shot.get(), scale, &after));
    EXPECT_EQ(before, after);
    std::int32_t done = 0;
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_undo(shot.get(), &done));
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_undo(shot.get(), &done));
    EXPECT_EQ(Played(shot, kDirectedFrames), keyed);
}

// What a keyed setting is on a frame.
double ValueOn(const Shot &shot, std::int32_t parameter, std::int64_t frame) {
    tremolux_buffer layers{};
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_layers(shot.get(), frame, &layers)) << tremolux_last_error(shot.get());
    tremolux_buffer_free(&layers);
    double value = 0;
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_get(shot.get(), parameter, &value));
    return value;
}

TEST(Keys, AreAtRestWhereTheyAreSmooth) {
    const Shot shot = Documentary();
    const std::int32_t scale = IdOf("Overall Scale");
    const auto key = [&](std::int64_t frame, double value, std::int32_t interpolation) {
        ASSERT_EQ(TREMOLUX_OK, tremolux_shot_key(shot.get(), scale, frame, value, interpolation));
    };
    key(20, 1, TREMOLUX_SMOOTH);
    key(56, 3, TREMOLUX_SMOOTH);
    // 3t^2 - 2t^3 of the way: flat at both ends.
    EXPECT_NEAR(ValueOn(shot, scale, 29), 1 + 2 * 0.15625, 1e-9);
    EXPECT_NEAR(ValueOn(shot, scale, 38), 2, 1e-9);
    EXPECT_NEAR(ValueOn(shot, scale, 47), 1 + 2 * 0.84375, 1e-9);
    key(44, 2, TREMOLUX_SMOOTH);
    EXPECT_NEAR(ValueOn(shot, scale, 26), 1 + 0.15625, 1e-9) << "to the nearer key";
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_unkey(shot.get(), scale, 44));
    EXPECT_NEAR(ValueOn(shot, scale, 29), 1 + 2 * 0.15625, 1e-9) << "and to the farther again";
}

std::string PairOfBuiltIns() {
    for (std::size_t i = 0; i < tremolux_preset_count(); ++i)
        if (PresetAt(i).is_pair == 1) return PresetAt(i).name;
    return {};
}

TEST(PairsOfCameras, AreSaidInTheTableAndPlayedUntilAnotherPresetIsChosen) {
    const std::string pair = PairOfBuiltIns();
    ASSERT_FALSE(pair.empty());
    const Shot plain = Documentary(), shot = Documentary();
    const std::vector<double> alone = Played(plain, kDirectedFrames);
    ASSERT_EQ(Played(shot, kDirectedFrames), alone);
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_apply_preset(shot.get(), pair.c_str())) << tremolux_last_error(shot.get());
    const std::vector<double> both = Played(shot, kDirectedFrames);
    EXPECT_EQ(Played(shot, kDirectedFrames), both);
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_bake(shot.get(), TREMOLUX_BAKE_QUICKLY));

    const Shot mixed = Documentary();
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_apply_mix(mixed.get(), pair.c_str(), "Nervous", 0));
    EXPECT_NE(Played(mixed, kDirectedFrames), both) << "the first camera alone";

    std::int32_t done = 0;
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_undo(shot.get(), &done));
    EXPECT_EQ(1, done);
    EXPECT_EQ(Played(shot, kDirectedFrames), alone) << "what was taken back with the preset";
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_redo(shot.get(), &done));
    EXPECT_EQ(Played(shot, kDirectedFrames), both);
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_apply_preset(shot.get(), "Documentary"));
    EXPECT_EQ(Played(shot, kDirectedFrames), alone);
}

TEST(PairsOfCameras, GoThroughAPresetFileWhole) {
    const Shot shot = Documentary(), other = Documentary();
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_apply_preset(shot.get(), PairOfBuiltIns().c_str()));
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_set_text(shot.get(), "Seed=4711"));
    tremolux_buffer buffer{};
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_preset_to_bytes(shot.get(), "Mine", &buffer))
        << tremolux_last_error(shot.get());
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_apply_preset_bytes(other.get(), buffer.bytes, buffer.size))
        << tremolux_last_error(other.get());
    tremolux_buffer_free(&buffer);
    EXPECT_EQ(Played(shot, kDirectedFrames), Played(other, kDirectedFrames));
}

TEST(PairsOfCameras, AreOtherTakesWithOtherSeeds) {
    const Shot shot = Documentary();
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_apply_preset(shot.get(), PairOfBuiltIns().c_str()));
    const std::vector<double> first = Played(shot, kDirectedFrames);
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_set_text(shot.get(), "Seed=99999"));
    EXPECT_NE(Played(shot, kDirectedFrames), first);
}

TEST(Mixes, GoFromOnePresetToTheOther) {
    const std::int32_t speed = IdOf("Shake Speed");
    const auto mixed = [&](double share) {
        const Shot shot = MakeShot(kDirectedFrames);
        double value = 0;
        EXPECT_EQ(TREMOLUX_OK, tremolux_shot_apply_mix(shot.get(), "Documentary", "Earthquake", share));
        EXPECT_EQ(TREMOLUX_OK, tremolux_shot_get(shot.get(), speed, &value));
        return value;
    };
    EXPECT_NEAR(mixed(0.25), 0.75 * mixed(0) + 0.25 * mixed(1), 1e-12);
    EXPECT_NE(mixed(0), mixed(1));
    const Shot shot = MakeShot(kDirectedFrames);
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_apply_mix(shot.get(), "Documentary", "Earthquake", 1.5));
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_apply_mix(shot.get(), "Documentary", "no such preset", 0.5));
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_apply_mix(shot.get(), nullptr, "Earthquake", 0.5));
}

TEST(Hertz, StayWhatTheyWereAtAnotherRate) {
    const Shot shot = MakeShot(kDirectedFrames);
    const std::int32_t speed = IdOf("Shake Speed");
    double before = 0, same = 0, after = 0;
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_get(shot.get(), speed, &before));
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_keep_hertz(shot.get(), 30));
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_get(shot.get(), speed, &same));
    EXPECT_NEAR(same, before, 1e-9) << "the shot's own rate";
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_keep_hertz(shot.get(), 24));
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_get(shot.get(), speed, &after));
    EXPECT_LT(after, before) << "fewer cells a frame";
    EXPECT_GE(after, before * 24 / 30) << "and some more where the smoothing takes more of them away";
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_shot_keep_hertz(shot.get(), 0));
}

TEST(Trace, HasTheLayersOfEveryFrame) {
    const Shot shot = Documentary();
    tremolux_buffer all{}, one{};
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_trace(shot.get(), nullptr, nullptr, &all)) << tremolux_last_error(shot.get());
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_layers(shot.get(), 33, &one));
    const Json trace = TakeJson(&all);
    ASSERT_EQ(trace.size(), kDirectedFrames);
    EXPECT_EQ(trace[33], TakeJson(&one));
    EXPECT_EQ(TREMOLUX_CANCELLED,
              tremolux_shot_trace(
                  shot.get(), [](std::uint64_t, std::uint64_t, void *) { return 1; }, nullptr, &all));
}

TEST(EventsOfFiles, AreFramesOfTheMove) {
    const Move move = MakeMove(kDirectedFrames);
    const std::string table = "time,strength\n0.5,2\n1.0,4\n20,1\n";
    tremolux_buffer buffer{};
    ASSERT_EQ(TREMOLUX_OK,
              tremolux_events_from_bytes(move.get(), "hits.csv", table.data(), table.size(), 50, TREMOLUX_ALL, &buffer))
        << tremolux_last_error(move.get());
    EXPECT_EQ(TakeJson(&buffer),
              Json::parse(R"({"events": [{"frame": 15, "strength": 0.5}, {"frame": 30, "strength": 1.0}],
                                                 "outside": 1})"));
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_events_from_bytes(move.get(), "hits.wav", "RIFF", 4, 50, TREMOLUX_ALL, &buffer));
    EXPECT_EQ(TREMOLUX_INPUT,
              tremolux_events_from_bytes(move.get(), "hits.csv", table.data(), table.size(), 50, 7, &buffer));
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_events_from_bytes(move.get(), "hits.csv", table.data(), table.size(), 101,
                                                         TREMOLUX_ALL, &buffer));
}

TEST(Nearest, APresetsOwnTakeIsNearestToIt) {
    const tremolux_move_info info = Info(240);
    const std::vector<double> still(240 * kNumbers, 1);
    tremolux_move move = nullptr, recording = nullptr;
    ASSERT_EQ(TREMOLUX_OK, tremolux_move_from_numbers(&info, still.data(), still.size(), &move));
    const Move kept(move);
    const Shot shot = MakeShot(kept);
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_apply_preset(shot.get(), "Earthquake"));
    Played(shot, 240);
    ASSERT_EQ(TREMOLUX_OK, tremolux_shot_result(shot.get(), &recording));
    const Move taken(recording);
    tremolux_buffer buffer{};
    ASSERT_EQ(TREMOLUX_OK, tremolux_nearest_presets(recording, nullptr, nullptr, &buffer))
        << tremolux_last_error(recording);
    const Json near = TakeJson(&buffer);
    EXPECT_EQ(near.size(), tremolux_preset_count());
    EXPECT_EQ(near[0]["name"], "Earthquake");
    EXPECT_LE(near[0]["distance"], near[1]["distance"]);
    EXPECT_EQ(TREMOLUX_INPUT, tremolux_nearest_presets(kept.get(), nullptr, nullptr, &buffer)) << "it stands still";
    EXPECT_EQ(TREMOLUX_CANCELLED,
              tremolux_nearest_presets(
                  recording, [](std::uint64_t, std::uint64_t, void *) { return 1; }, nullptr, &buffer));
}

}  // namespace
