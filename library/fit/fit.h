// The settings of one tag whose shake comes nearest to a recorded one.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "library/fit/levels.h"
#include "library/fit/shake_settings.h"
#include "library/fit/unit_shake.h"

namespace tremolux {

// A recording's shake, cut into parts that are played as long.
struct RecordedShake {
    std::vector<AxisMotion> parts;
    FrameRate rate;
    std::size_t Frames() const { return parts.front().front().size(); }  // of each part
    ShakeLevels Levels() const { return MeasureLevels(parts, rate.PerSecond()); }
};
// At most a minute, and kMostFrames, each. Throws a Failure for a move of less than two seconds, and for one that stands
// still; `name` is where it is from.
RecordedShake CutIntoParts(const CameraMove &move, const std::string &name);
// What is shorter, in frames, is no part.
constexpr std::size_t kLeastFrames = 24;
// The first half of each part, or the second.
RecordedShake HalfOf(const RecordedShake &shake, bool second);

struct PairSettings {
    ShakeSettings first, second;
};

// In the running host. What is learned for one fit serves the next.
class Fitter {
  public:
    // For takes of so many frames. `progress` hears shares of the whole, 0 to 1, and may throw to end the work.
    Fitter(FrameRate rate, std::size_t frames, std::function<void(double)> progress);

    // The same without a look at seeds: what other seeds play on average comes near.
    ShakeSettings Search(const ShakeLevels &wanted);
    // Two tags, the second behind the first, whose motions add up: one mostly for what is slow, the other for what is fast, each
    // with a pace and ratios of its own. Throws a Failure.
    PairSettings FitPair(const ShakeLevels &wanted);
    // Searches pace, smoothing, balance and ratios; everything stays within the sliders. The seed is the one of several
    // whose take comes nearest. Throws a Failure.
    ShakeSettings Fit(const ShakeLevels &wanted);
    // Of so many seeds' takes, as the settings play.
    ShakeLevels Levels(const ShakeSettings &settings, int takes);
    // Of the settings' own seed.
    ShakeLevels LevelsOfSeed(const ShakeSettings &settings);
    AxisMotion TakeOf(const ShakeSettings &settings);
    ShakeLevels Levels(const PairSettings &settings, int takes);
    ShakeLevels LevelsOfSeed(const PairSettings &settings);
    AxisMotion TakeOf(const PairSettings &settings);

  private:
    struct Candidate {
        Pace pace{1, kLeastVariation};
        double smooth = 0;
        Balance position, rotation;
        double Loss() const { return position.loss + rotation.loss; }
    };
    std::vector<Candidate> Try(const std::vector<Pace> &paces, const std::vector<double> &smooths,
                               const ShakeLevels &wanted);
    void Polish(const ShakeLevels &wanted, ShakeSettings *settings);
    // What is left of the distance, of the settings' own seed and in part of others.
    double Descend(const ShakeLevels &wanted, ShakeSettings *settings);
    void ChooseSeed(const ShakeLevels &wanted, ShakeSettings *settings);

    Players &Pairs(const PairSettings &settings);
    ShakeLevels ExpectedOf(const ShakeSettings &settings) const;

    Players players_;
    std::unique_ptr<Players> pairs_;  // made when they are asked for
    UnitShake unit_;
    std::function<void(double)> progress_;
};

// Takes that a comparison plays.
constexpr int kJudgedTakes = 8;

}  // namespace tremolux
