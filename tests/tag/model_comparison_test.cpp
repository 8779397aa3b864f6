// The module's motion against the same written down a second time.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>

#include "tests/tag/motion_model.h"
#include "tests/tag/scene.h"

namespace {

using namespace tag_test;
using model::Motion;
using model::MotionInput;
using model::MotionSettings;
using model::Pose;
using model::Triple;

host::Vector VectorOf(const Triple &t) { return {t[0], t[1], t[2]}; }

// Sums of two sines and a hard step, in each channel of the input camera and of what it looks at and focuses on.
struct Sway {
    double centre, swing, period, tremble, step;
    int step_frame;
    double At(std::int64_t frame) const {
        const auto t = static_cast<double>(frame);
        return centre + swing * std::sin(t / period) + tremble * std::sin(t / 2.3) + (frame >= step_frame ? step : 0);
    }
};

struct Move {
    std::array<Sway, 3> position, angles, target, focus_object;
    Sway focal_length, focus_distance;
    bool has_target, has_focus_object;

    MotionInput At(std::int64_t frame) const {
        const auto triple = [frame](const std::array<Sway, 3> &sways) {
            return Triple{sways[0].At(frame), sways[1].At(frame), sways[2].At(frame)};
        };
        MotionInput input{{triple(position), triple(angles), focal_length.At(frame), focus_distance.At(frame)}, {}, {}};
        if (has_target) input.target = triple(target);
        if (has_focus_object) input.focus_object = triple(focus_object);
        return input;
    }
};

// One of a steady number of random choices: `pick(low, high)` gives a whole number of [low, high].
using Pick = std::function<int(int, int)>;

double Share(const Pick &pick) {
    const int choice = pick(0, 9);
    return choice == 0 ? 0 : choice == 1 ? 1 : pick(0, 1000) / 1000.0;
}

Sway RandomSway(const Pick &pick, double centre, double size) {
    const auto part = [&] { return size * pick(-1000, 1000) / 1000.0; };
    return {centre + part(), part(), pick(40, 400) / 10.0, 0.02 * part(), pick(0, 2) == 0 ? part() : 0, pick(1, 200)};
}

// Headings of all directions, so that some moves pass half a turn, and targets of all sides.
Move RandomMove(const Pick &pick) {
    Move move;
    for (int i = 0; i < 3; ++i) {
        move.position[i] = RandomSway(pick, 0, 300);
        move.angles[i] = RandomSway(pick, 0, i == 0 ? 3 : i == 1 ? 0.25 : 0.5);
        move.target[i] = RandomSway(pick, 0, i == 1 ? 100 : 600);
        move.focus_object[i] = RandomSway(pick, 0, 500);
    }
    move.focal_length = RandomSway(pick, 60, 20);
    move.focus_distance = RandomSway(pick, 900, 300);
    move.has_target = pick(0, 1) == 1;
    move.has_focus_object = pick(0, 2) == 0;
    return move;
}

constexpr int kShares[] = {6155, 6153, 6154, 6156, 6034, 6035, 6158, 6161, 6071, 6072,
                           6162, 6053, 6054, 6165, 6064, 6063, 6163, 6059, 6170, 6149};
constexpr int kSwitches[] = {6010, 6011, 6012, 6013, 6014, 6015, 6016, 6017, 6018, 6145};

MotionSettings RandomSettings(const Pick &pick) {
    MotionSettings set;
    for (const int id : kShares) set.values[id] = Share(pick);
    for (const int id : kSwitches) set.values[id] = pick(0, 4) > 0;
    for (const int id : {6024, 6025, 6026, 6134, 6135, 6136, 6128, 6129, 6130}) set.values[id] = 0.1 * Share(pick);
    for (const int id : {6028, 6029, 6030}) set.values[id] = 20 * kDegree * Share(pick);
    for (const int id : {6076, 6077, 6078, 6100, 6101, 6102, 6020, 6021, 6152, 6132, 6138, 6022, 6140})
        set.values[id] = 2 * Share(pick);
    for (const int id : {6037, 6144}) set.values[id] = 0.4 * Share(pick);
    set.values[6142] = pick(0, 199998) / 2.0;
    set.values[6151] = pick(-5000, 5000) / 100.0;
    set.interval = pick(0, 2) == 0 ? 0 : pick(1, 60);
    for (int i = pick(0, 4); i > 0; --i) set.triggers.push_back(pick(0, 200));
    return set;
}

// The scene's settings are those of the model; the links follow the move.
void Write(const MotionSettings &set, Scene *scene) {
    for (const auto &[id, value] : set.values) {
        if (std::find(std::begin(kSwitches), std::end(kSwitches), id) != std::end(kSwitches))
            scene->State().Set(id, value != 0 ? 1 : 0);
        else
            scene->Set(id, value);
    }
    scene->State().Set(6038, host::Data(host::MakeTime(static_cast<double>(set.interval), 30)));
    std::string list;
    for (const std::int64_t frame : set.triggers) list += (list.empty() ? "" : ",") + std::to_string(frame);
    scene->State().Set(6181, host::Data(list));
}

// Both sides of one motion.
class Duel {
  public:
    Duel(RunningHost &running, const MotionSettings &set, const Move &move, std::int64_t start, std::int64_t last)
        : scene_(running, 30, start, last), motion_(set, start), move_(move), start_(start) {
        Write(set, &scene_);
        target_ = scene_.AddObject(host::kTypeNull, {0, 0, 0});
        focus_object_ = scene_.AddObject(host::kTypeNull, {0, 0, 0});
        if (move.has_target) scene_.Link(kTarget, target_);
        if (move.has_focus_object) scene_.Link(kFocusObject, focus_object_);
    }

    // The largest difference of that frame, as a share where numbers are above 1. Frames that do not follow the one
    // before are jumped to.
    double Show(std::int64_t frame) {
        const MotionInput input = move_.At(frame);
        scene_.PlaceInput(VectorOf(input.camera.position), VectorOf(input.camera.angles));
        scene_.input->Data().SetReal(host::kCameraFocalLength, input.camera.focal_length);
        scene_.input->Data().SetReal(host::kCameraFocusDistance, input.camera.focus_distance);
        Place(target_, input.target);
        Place(focus_object_, input.focus_object);
        scene_.Show(frame);
        const Pose pose = frame == start_      ? motion_.Restart(input)
                          : frame == last_ + 1 ? motion_.Next(frame, input)
                                               : motion_.Jump(frame, input);
        last_ = frame;
        return DifferenceTo(pose);
    }
    double Play(std::int64_t first, std::int64_t last) {
        double largest = 0;
        for (std::int64_t frame = first; frame <= last; ++frame) largest = std::fmax(largest, Show(frame));
        return largest;
    }

    void Set(int id, double value) {
        motion_.Settings().values[id] = value;
        Write(motion_.Settings(), &scene_);
    }

  private:
    static void Place(host::Object *object, const std::optional<Triple> &place) {
        if (!place) return;
        host::Transform transform = object->GetTransform();
        transform.position = VectorOf(*place);
        object->SetTransform(transform);
    }
    double DifferenceTo(const Pose &pose) const {
        const Shot shot = scene_.Camera();
        const auto axes = model::AxesOf(pose.angles);
        double largest = 0;
        const auto compare = [&largest](double got, double wanted) {
            const double difference = std::fabs(got - wanted) / std::fmax(1, std::fabs(wanted));
            largest = difference <= largest ? largest : difference;  // a NaN stays
        };
        const auto compare_vector = [&](const host::Vector &got, const Triple &wanted) {
            compare(got.x, wanted[0]), compare(got.y, wanted[1]), compare(got.z, wanted[2]);
        };
        compare_vector(shot.matrix.off, pose.position);
        compare_vector(shot.matrix.v1, axes[0]);
        compare_vector(shot.matrix.v2, axes[1]);
        compare_vector(shot.matrix.v3, axes[2]);
        compare(shot.focal_length, pose.focal_length);
        compare(shot.focus_distance, pose.focus_distance);
        return largest;
    }

    Scene scene_;
    Motion motion_;
    Move move_;
    std::int64_t start_, last_ = -1000;
    host::Object *target_ = nullptr, *focus_object_ = nullptr;
};

std::string Text(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.3g", value);
    return text;
}

class Model : public WithModule {
  protected:
    // Everything off and still but for what a test is about.
    static MotionSettings Plain(const std::map<int, double> &values) {
        MotionSettings set;
        for (const int id : {6020, 6021, 6022, 6076, 6077, 6078, 6100, 6101, 6102, 6132, 6138, 6152})
            set.values[id] = 1;
        for (const int id : kShares) set.values[id] = 0;
        for (const int id :
             {6024, 6025, 6026, 6028, 6029, 6030, 6134, 6135, 6136, 6128, 6129, 6130, 6037, 6144, 6140, 6151})
            set.values[id] = 0;
        for (const int id : kSwitches) set.values[id] = 0;
        set.values[6142] = 12345;
        for (const auto &[id, value] : values) set.values[id] = value;
        return set;
    }
    // Moves in every channel; the heading goes round through 180 degrees, the target passes behind.
    static Move Dance() {
        Move move{};
        move.position = {Sway{10, 200, 15, 1, 80, 60}, {100, 30, 11, 1, 0, 1}, {-50, 150, 25, 2, 0, 1}};
        move.angles = {Sway{3, 1, 13, 0.02, -0.7, 90}, {0.1, 0.2, 9, 0.01, 0, 1}, {0, 0.1, 17, 0, 0, 1}};
        move.target = {Sway{0, 500, 20, 0, 0, 1}, {50, 60, 14, 0, 0, 1}, {-400, 100, 30, 0, 900, 200}};
        move.focus_object = {Sway{30, 300, 21, 0, 0, 1}, {50, 60, 14, 0, 0, 1}, {300, 100, 30, 0, 200, 120}};
        move.focal_length = {50, 15, 12, 0.5, 25, 70};
        move.focus_distance = {900, 400, 16, 3, 300, 110};
        return move;
    }
    void ExpectEqual(const MotionSettings &set, const Move &move) {
        Duel duel(running_, set, move, 0, 300);
        const double largest = duel.Play(0, 300);
        RecordProperty("largest_difference", Text(largest));
        EXPECT_LT(largest, 1e-9);
    }
};

TEST_F(Model, MovesThePositionAsTheModuleDoes) {
    ExpectEqual(Plain({{6155, 0.3},
                       {6153, 0.4},
                       {6154, 0.3},
                       {6024, 0.2},
                       {6025, 0.2},
                       {6026, 0.2},
                       {6158, 0.2},
                       {6010, 1},
                       {6011, 1},
                       {6012, 1}}),
                Dance());
}

TEST_F(Model, TurnsTheCameraAsTheModuleDoes) {
    ExpectEqual(Plain({{6156, 0.4},
                       {6034, 0.55},
                       {6035, 0.2},
                       {6028, 0.2},
                       {6029, 0.2},
                       {6030, 0.2},
                       {6158, 0.2},
                       {6013, 1},
                       {6014, 1},
                       {6015, 1}}),
                Dance());
}

TEST_F(Model, FollowsATargetAsTheModuleDoes) {
    Move move = Dance();
    move.has_target = true;
    ExpectEqual(Plain({{6161, 0.4}, {6071, 0.65}, {6072, 0.25}, {6018, 1}}), move);
}

TEST_F(Model, ZoomsAsTheModuleDoes) {
    ExpectEqual(
        Plain({{6162, 0.3}, {6053, 0.3}, {6054, 0.3}, {6165, 0.3}, {6134, 0.3}, {6135, 0.3}, {6136, 0.3}, {6016, 1}}),
        Dance());
}

TEST_F(Model, FocusesAsTheModuleDoes) {
    for (const bool has_focus_object : {false, true}) {
        Move move = Dance();
        move.has_focus_object = has_focus_object;
        ExpectEqual(
            Plain(
                {{6064, 0.3}, {6063, 0.3}, {6163, 0.3}, {6059, 0.3}, {6128, 0.3}, {6129, 0.3}, {6130, 0.3}, {6017, 1}}),
            move);
    }
}

TEST_F(Model, JoltsAsTheModuleDoes) {
    MotionSettings set = Plain({{6037, 0.3}, {6144, 0.2}, {6170, 0.3}, {6140, 0.4}, {6145, 1}, {6149, 0.5}});
    set.interval = 27;
    set.triggers = {10, 50, 51};
    ExpectEqual(set, Dance());
}

RC_GTEST_FIXTURE_PROP(Model, AgreesWithTheModuleOnAnySettingsAndMove, ()) {
    const Pick pick = [](int low, int high) { return *rc::gen::inRange(low, high + 1); };
    const MotionSettings set = RandomSettings(pick);
    const Move move = RandomMove(pick);
    const std::int64_t start = pick(0, 12);
    Duel duel(running_, set, move, start, 1000);
    double largest = duel.Play(start, start + 90);
    // In mid-shot the target comes or goes, and springs are switched on or off.
    duel.Set(6018, pick(0, 1));
    for (const int overshoot : {6153, 6034, 6071, 6053, 6063})
        if (pick(0, 1) == 1) duel.Set(overshoot, Share(pick));
    largest = std::fmax(largest, duel.Play(start + 91, start + 130));
    duel.Set(6018, 1);
    largest = std::fmax(largest, duel.Play(start + 131, start + 160));
    // A jump ahead and one back, and on from there.
    largest = std::fmax(largest, duel.Play(start + 180, start + 220));
    largest = std::fmax(largest, duel.Play(start + 30, start + 60));
    largest = std::fmax(largest, duel.Play(start, start + 20));
    RC_ASSERT(largest < 1e-9);
}

TEST_F(Model, AgreesWithTheModuleOverThousandsOfFrames) {
    std::uint32_t state = 20120914;
    const Pick pick = [&state](int low, int high) {
        state = state * 1664525u + 1013904223u;
        return low + static_cast<int>((state >> 8) % static_cast<std::uint32_t>(high - low + 1));
    };
    for (int run = 0; run < 5; ++run) {
        const MotionSettings set = RandomSettings(pick);
        const Move move = RandomMove(pick);
        Duel duel(running_, set, move, 0, 4000);
        const double largest = duel.Play(0, 3000);
        RecordProperty("largest_difference_" + std::to_string(run), Text(largest));
        EXPECT_LT(largest, 1e-9) << "run " << run;
    }
}

}  // namespace
