// Every number of the panel moves some frame, and every number that the motion remembers stands under its key.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "host/description/description.h"
#include "host/scene/parameters.h"
#include "tests/tag/scene.h"
#include "tests/tag/tracks.h"

namespace {

using namespace tag_test;

constexpr std::int64_t kFrames = 45;
constexpr std::int32_t kJoltInterval = 6038;

// Those that move no frame of a shot with a target.
const std::map<std::int32_t, std::string> kWithoutEffect = {{6156, "a target takes the place of the input's angles"},
                                                            {6034, "a target takes the place of the input's angles"},
                                                            {6035, "a target takes the place of the input's angles"}};

// A shot in which everything is on: the input moves, turns, zooms and stops; there are a target and a focus object, and
// knocks.
class EveryNumber : public WithScene {
  protected:
    void SetUp() override {
        WithScene::SetUp();
        scene().Shake();
        for (const std::int32_t smooth : {6155, 6156, 6158, 6161, 6162, 6165, 6064, 6059, 6170})
            scene().Set(smooth, 0.3);
        for (const std::int32_t overshoot : {6153, 6034, 6071, 6053, 6063}) scene().Set(overshoot, 0.5);
        for (const std::int32_t drift : {6134, 6135, 6136, 6128, 6129, 6130}) scene().Set(drift, 0.1);
        for (const std::int32_t jolt : {6037, 6144, 6140}) scene().Set(jolt, 0.2);
        scene().Set(kVariation, 0.4);
        scene().Set(kTimeOffset, 8);
        scene().State().Set(kJoltInterval, host::Data(host::MakeTime(10, 30)));
        Animate(scene().input, host::MakeId(903, 1000), 30, {{0, 0}, {20, 400}, {100, 400}});
        Animate(scene().input, host::MakeId(904, 1000), 30, {{0, 0}, {20, 2}, {100, 2}});
        Animate(scene().input, host::MakeId(500), 30, {{0, 36}, {20, 136}, {100, 136}});
        target_ = scene().AddObject(host::kTypeNull, {500, 100, 400});
        focus_ = scene().AddObject(host::kTypeNull, {-50, 100, 900});
        scene().Link(kTarget, target_);
        scene().Link(kFocusObject, focus_);
    }
    // From the start, so that nothing of an earlier shot is left.
    std::vector<Shot> Played() {
        std::vector<Shot> shots;
        for (std::int64_t frame = 0; frame < kFrames; ++frame) {
            scene().Show(frame);
            shots.push_back(scene().Camera());
        }
        return shots;
    }
    static bool Differ(const std::vector<Shot> &a, const std::vector<Shot> &b) {
        for (std::size_t i = 0; i < a.size(); ++i)
            if (Difference(a[i], b[i]) > 1e-6) return true;
        return false;
    }
    // A shot with another value, and the value back.
    std::vector<Shot> PlayedWith(std::int32_t id, const host::Data &value) {
        const host::Data *held = scene().State().Find(id);
        const host::Data before = held ? *held : host::Data(0.0);
        scene().State().Set(id, value);
        std::vector<Shot> shots = Played();
        scene().State().Set(id, before);
        return shots;
    }
    // Half of a number, a switch turned off, a time half as long.
    host::Data Changed(std::int32_t id, std::int32_t described_type) {
        if (id == kJoltInterval) return host::Data(host::MakeTime(5, 30));
        if (described_type == host::kDescribedBool) return host::Data(std::int32_t{0});
        return host::Data(0.5 * scene().Real(id));
    }
    // The numbers, switches and times of the panel, with their described types.
    std::map<std::int32_t, std::int32_t> Numbers() {
        host::Description panel;
        EXPECT_TRUE(host::BuildDescription(scene().tag, nullptr, 0, &panel));
        std::map<std::int32_t, std::int32_t> numbers;
        for (const host::Description::Entry &entry : panel.entries) {
            const std::int32_t id = host::LevelId(entry.id, 0), type = entry.id.level[0].dtype;
            if (id < 5800 || id > 6210 || entry.settings.Find(host::kDescCycle)) continue;
            const std::int32_t value = host::ValueTypeOf(type);
            if (value == host::kDataReal || value == host::kDataWhole || value == host::kDataTime) numbers[id] = type;
        }
        return numbers;
    }
    host::Object *target_ = nullptr, *focus_ = nullptr;
};

TEST_F(EveryNumber, OfThePanelMovesAFrameOrIsKnownNotTo) {
    const std::vector<Shot> plain = Played();
    ASSERT_EQ(plain, Played());
    const auto numbers = Numbers();
    EXPECT_GE(numbers.size(), 60u) << "numbers, switches and an interval";
    for (const auto &[id, type] : numbers)
        EXPECT_EQ(Differ(PlayedWith(id, Changed(id, type)), plain), kWithoutEffect.count(id) == 0) << id;
    EXPECT_EQ(plain, Played());
    for (const auto &[id, reason] : kWithoutEffect) EXPECT_EQ(numbers.count(id), 1u) << id << ": " << reason;
}

TEST_F(EveryNumber, ThatATargetReplacesMovesAFrameWithoutOne) {
    scene().Link(kTarget, nullptr);
    const std::vector<Shot> plain = Played();
    for (const auto &[id, reason] : kWithoutEffect)
        EXPECT_TRUE(Differ(PlayedWith(id, Changed(id, 0)), plain)) << id << ", not " << reason;
}

// Saved scenes hold them there.
TEST_F(EveryNumber, ThatIsRememberedStandsUnderItsKey) {
    // Reals and vectors that are not nothing at some moment of the shot.
    std::map<std::int32_t, bool> reals, vectors;
    for (const std::int32_t key : {20000, 10051, 10052, 10053, 10054, 10055, 10056, 10044, 5008,  5009,  5013,  5014,
                                   5015,  5016,  10059, 11004, 10045, 10046, 10047, 10048, 10026, 10025, 10043, 10042})
        reals[key] = false;
    for (const std::int32_t base : {30022, 30042, 30062, 30102})
        for (const std::int32_t entry : {3, 4, 5, 6, 9}) reals[base + entry] = false;
    for (const std::int32_t key :
         {5000, 5001, 5002, 5003, 5004, 5005, 5006, 5007, 20003, 11001, 20002, 11000, 10061, 10060, 87651})
        vectors[key] = false;
    for (const std::int32_t base : {30002, 30022, 30042, 30062, 30102})
        for (const std::int32_t entry : {1, 2, 8})
            vectors[base + entry] = base == 30002 && entry == 8;  // the twin rests
    std::map<std::int32_t, bool> moving = {{30029, false}, {30049, false}, {30069, false}, {30109, false}};
    for (std::int64_t frame = 0; frame < kFrames; ++frame) {
        scene().Show(frame);
        for (auto &[key, is_seen] : reals) {
            const host::Data *data = scene().State().Find(key);
            ASSERT_TRUE(data != nullptr && data->type == host::kDataReal) << key;
            is_seen = is_seen || data->Real() != 0;
        }
        for (auto &[key, is_seen] : vectors) is_seen = is_seen || host::Length(scene().State().GetVector(key)) > 0;
        for (auto &[key, is_seen] : moving) is_seen = is_seen || scene().State().Whole(key) == 1;
    }
    for (const auto &entries : {reals, vectors, moving})
        for (const auto &[key, is_seen] : entries) EXPECT_TRUE(is_seen) << key;
    EXPECT_EQ(scene().Real(10044), kFrames - 1);
}

}  // namespace
