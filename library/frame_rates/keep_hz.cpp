#include "library/frame_rates/keep_hz.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <mutex>
#include <tuple>

#include "generated/module_ids.h"
#include "host/value/descid.h"
#include "host/value/time.h"
#include "library/formats/numbers.h"
#include "library/frame_rates/smoothing_filter.h"
#include "library/parameters/parameter.h"
#include "library/parameters/settings.h"
#include "library/shots/stage.h"

namespace tremolux {
namespace {

// With r = made for / rate, one frame is r of the frames that the setting was made for, and the setting is multiplied
// by r to this power.
struct ScaledSetting {
    std::int32_t id;
    double power;
};
constexpr ScaledSetting kScaled[] = {
    {ids::kShakeSpeed, 0.5},    // noise runs with its square
    {ids::kTimeOffset, -0.5},   // counted on a clock that runs with the speed
    {ids::kJoltInterval, 0.5},  // a time: jolts come with the speed
    {ids::kJoltFalloff, 1},     // so much a frame
};

enum class Family { kFollowing, kShake };
struct SmoothingSetting {
    std::int32_t id;
    Family family;
};
constexpr SmoothingSetting kSmoothings[] = {
    {ids::kInitialPositionSmooth, Family::kFollowing},
    {ids::kInitialRotationSmooth, Family::kFollowing},
    {ids::kTargetSmooth, Family::kFollowing},
    {ids::kZoomSmooth, Family::kFollowing},
    {ids::kFocusSmoothing, Family::kFollowing},
    {ids::kJoltSmooth, Family::kFollowing},
    {ids::kShakeSmooth, Family::kShake},
    {ids::kZoomDriftSmooth, Family::kShake},
    {ids::kFocusDriftSmooth, Family::kShake},
};

// The springs of the overshoots and the wandering of the speed: no setting holds their pace.
constexpr std::int32_t kByTheFrame[] = {ids::kInitialPositionOvershoot, ids::kInitialRotationOvershoot,
                                        ids::kTargetOvershoot,          ids::kZoomOvershoot,
                                        ids::kFocusOvershoot,           ids::kSpeedVariation};
constexpr double kNoticed = 0.05;  // a filter's gain that is off by more is told

// By its id: its label is another overshoot's, too.
const std::string kNoOvershoot = std::to_string(ids::kInitialPositionOvershoot) + "=0";
// Nothing moves the camera but what it follows; and nothing but noise, every frame another value.
const std::vector<std::string> kFollowingAlone = {"Position Intensity=0", "Rotation Intensity=0", "Jolt=off",
                                                  kNoOvershoot, "Target=off"};
const std::vector<std::string> kShakeAlone = {"Position Intensity=1",
                                              "Rotation Intensity=0",
                                              "Jolt=off",
                                              kNoOvershoot,
                                              "Target=off",
                                              "Pos X=on",
                                              "Overall Scale=1",
                                              "Position Slow=0",
                                              "Position Medium=0",
                                              "Position Fast=1",
                                              "X=1",
                                              "Shake Speed=1",
                                              "Speed Variation=0"};
constexpr int kFrames = 60;

// A camera that is somewhere else on every frame.
CameraMove Zigzag() {
    CameraMove move;
    for (int i = 0; i < kFrames; ++i) {
        move.samples.emplace_back();
        move.samples.back().position.x = 100 * std::sin(static_cast<double>(i) * i);
    }
    return move;
}

SmoothingAmounts Learn(Family family) {
    const bool follows = family == Family::kFollowing;
    CameraMove move = Zigzag();
    if (!follows) std::fill(move.samples.begin(), move.samples.end(), CameraSample{});
    Stage stage(move);
    host::Tag *tag = &stage.CameraTag();
    ApplySettings(follows ? kFollowingAlone : kShakeAlone, move.rate.Whole(), tag);
    const std::int32_t amount_id = follows ? ids::kInitialPositionSmooth : ids::kShakeSmooth;
    tag->SetParameter(host::MakeId(follows ? ids::kShakeSmooth : ids::kInitialPositionSmooth), host::Data(0.0));
    return SmoothingAmounts([&](double amount) {
        tag->SetParameter(host::MakeId(amount_id), host::Data(amount));
        std::vector<double> places;
        for (int frame = 0; frame < kFrames; ++frame) {
            stage.PlayFrame(frame);
            places.push_back(stage.Output().position.x);
        }
        return places;
    });
}

// What a module does to a goal does not change while the program runs.
const SmoothingAmounts &Learned(Family family) {
    static const SmoothingAmounts following = Learn(Family::kFollowing), shake = Learn(Family::kShake);
    return family == Family::kFollowing ? following : shake;
}

// Batches ask for the same again and again.
SmoothingAmounts::Match Carried(Family family, double amount, double made_for, double rate) {
    static std::map<std::tuple<Family, double, double, double>, SmoothingAmounts::Match> known;
    static std::mutex lock;
    const std::lock_guard hold(lock);
    const auto [place, is_new] = known.try_emplace({family, amount, made_for, rate});
    if (is_new) place->second = Learned(family).Carried(amount, made_for, rate);
    return place->second;
}

class Carrier {
  public:
    Carrier(double made_for, double rate, host::Tag *tag)
        : made_for_(made_for), rate_(rate), tag_(tag), parameters_(DescribedParameters(*tag)) {}

    std::vector<std::string> Carry() {
        for (const ScaledSetting &scaled : kScaled) Scale(scaled);
        for (const SmoothingSetting &smoothing : kSmoothings) Smooth(smoothing);
        ApplySettings(settings_, static_cast<int>(std::lround(rate_)), tag_);
        std::string by_the_frame;
        for (const std::int32_t id : kByTheFrame) {
            if (Number(id) != 0) AddTo(&by_the_frame, Label(id));
        }
        if (!by_the_frame.empty()) notes_.push_back("these still go by the frame: " + by_the_frame);
        if (!differences_.empty()) notes_.push_back("some frequencies come through differently: " + differences_);
        return notes_;
    }

  private:
    const Parameter &Described(std::int32_t id) const {
        return *std::find_if(parameters_.begin(), parameters_.end(), [id](const Parameter &p) { return p.id == id; });
    }
    std::string Label(std::int32_t id) const { return Described(id).label; }

    // Of a time: seconds.
    double Number(std::int32_t id) const {
        host::Data value;
        tag_->GetParameter(host::MakeId(id), &value);
        return id == ids::kJoltInterval ? host::Seconds(value.GetTime()) : value.Real();
    }

    void Set(std::int32_t id, double value) {
        const Parameter &parameter = Described(id);
        const double allowed = std::clamp(value, parameter.minimum.value_or(value), parameter.maximum.value_or(value));
        if (allowed != value) {
            notes_.push_back(parameter.label + " ends at " + FormatNumber(allowed) + ", where " + FormatNumber(value) +
                             " was needed");
        }
        settings_.push_back(std::to_string(id) + "=" + FormatNumber(allowed) + (id == ids::kJoltInterval ? "s" : ""));
    }

    void Scale(const ScaledSetting &scaled) {
        if (const double value = Number(scaled.id); value != 0)
            Set(scaled.id, value * std::pow(made_for_ / rate_, scaled.power));
    }

    void Smooth(const SmoothingSetting &smoothing) {
        const double amount = Number(smoothing.id);
        if (amount <= 0) return;
        const SmoothingAmounts::Match match = Carried(smoothing.family, std::min(amount, 1.0), made_for_, rate_);
        Set(smoothing.id, match.amount);
        if (match.off > kNoticed) {
            AddTo(&differences_, Label(smoothing.id) + " up to " + FormatNumber(std::round(100 * match.off)) + " %");
        }
    }

    static void AddTo(std::string *list, const std::string &entry) { *list += (list->empty() ? "" : ", ") + entry; }

    const double made_for_;
    const double rate_;
    host::Tag *tag_;
    const std::vector<Parameter> parameters_;
    std::vector<std::string> settings_, notes_;
    std::string differences_;
};

}  // namespace

const SmoothingAmounts &LearnedShakeSmoothing() { return Learned(Family::kShake); }

std::vector<std::string> KeepHertz(double made_for, double frames_per_second, host::Tag *tag) {
    if (made_for == frames_per_second) return {};
    return Carrier(made_for, frames_per_second, tag).Carry();
}

}  // namespace tremolux
