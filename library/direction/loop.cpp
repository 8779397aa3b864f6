#include "library/direction/loop.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

#include "host/value/radians.h"
#include "library/direction/added.h"
#include "library/direction/smoother_step.h"
#include "library/measures/motion.h"
#include "library/measures/strayed.h"
#include "library/moves/turns.h"

namespace tremolux {
namespace {

constexpr double kMostStep = 2;  // from the last frame to the first, of the greatest step
// How the first frames come out of those beyond the end: for how long, and by which power of sine and cosine. What keeps the
// bands best is taken, by channel.
constexpr std::array kLoopSeconds = {0.5, 0.7, 0.8, 1.0, 1.2, 1.5, 2.0};
constexpr std::array kPowers = {0.7, 1.0, 1.5, 2.0};
constexpr double kAllowed = 0.04;                        // that a band may be off by, as a logarithm
constexpr double kBandError = 0.05, kSpeedWeight = 0.5;  // one such error weighs as much as twice the take's speed
constexpr std::size_t kOverlapShare = 3;                 // of the round, at most

using Signal = std::vector<double>;

std::size_t Frames(double seconds, const CameraMove &move, std::size_t period) {
    const auto frames = static_cast<std::size_t>(std::lround(seconds * move.rate.PerSecond()));
    return std::clamp<std::size_t>(frames, 1, std::max<std::size_t>(1, period / kOverlapShare));
}

// Whether the step from the last sample to the first is one that the move makes elsewhere, too.
bool Flows(const CameraMove &move, const std::function<double(const CameraSample &, const CameraSample &)> &step) {
    double most = 0;
    for (std::size_t i = 1; i < move.samples.size(); ++i) most = std::max(most, step(move.samples[i - 1], move.samples[i]));
    const double around = step(move.samples.back(), move.samples.front());
    return around <= kMostStep * most;
}

double Moved(const CameraSample &a, const CameraSample &b) { return host::Length(b.position - a.position); }
double TurnedBy(const CameraSample &a, const CameraSample &b) { return TurnBetween(a.angles, b.angles); }
double Zoomed(const CameraSample &a, const CameraSample &b) { return std::abs(b.focal_length - a.focal_length); }
double Refocused(const CameraSample &a, const CameraSample &b) { return std::abs(b.focus_distance - a.focus_distance); }

bool SamePose(const CameraSample &a, const CameraSample &b) {
    constexpr double kNearly = 1e-6;
    return Moved(a, b) < kNearly && TurnedBy(a, b) < kNearly && Zoomed(a, b) < kNearly && Refocused(a, b) < kNearly;
}

double Mean(const Signal &signal, std::size_t count) {
    double sum = 0;
    for (std::size_t i = 0; i < count; ++i) sum += signal[i];
    return sum / static_cast<double>(count);
}

// RMS about the mean, of everything and of each band.
static_assert(kBands.size() == 3);
std::array<double, kBands.size() + 1> Sizes(const Signal &signal, double rate) {
    const double mean = Mean(signal, signal.size());
    double squares = 0;
    for (const double value : signal) squares += (value - mean) * (value - mean);
    std::array<double, kBands.size() + 1> sizes{std::sqrt(squares / static_cast<double>(signal.size()))};
    const Spectrum spectrum = MeasureSpectrum(signal, rate);
    for (std::size_t band = 0; band < kBands.size(); ++band)
        sizes[band + 1] = BandRms(spectrum, kBands[band].low, kBands[band].high);
    return sizes;
}

// Of the round: `signal` goes on beyond it for at least `overlap` frames.
Signal Joined(const Signal &signal, std::size_t period, std::size_t overlap, double power) {
    const double mean = Mean(signal, period);
    Signal joined(signal.begin(), signal.begin() + static_cast<std::ptrdiff_t>(period));
    for (std::size_t i = 0; i < overlap; ++i) {
        const double angle = host::kPi / 2 * SmootherStep(static_cast<double>(i) / static_cast<double>(overlap));
        joined[i] = mean + std::pow(std::cos(angle), power) * (signal[period + i] - mean) +
                    std::pow(std::sin(angle), power) * (signal[i] - mean);
    }
    return joined;
}

// Greatest step from frame to frame up to `overlap`, the one into the first frame too, as a multiple of the greatest elsewhere.
double SeamSpeed(const Signal &round, std::size_t overlap) {
    double seam = std::abs(round.front() - round.back()), elsewhere = 0;
    for (std::size_t i = 1; i < round.size(); ++i) {
        double &most = i <= overlap ? seam : elsewhere;
        most = std::max(most, std::abs(round[i] - round[i - 1]));
    }
    return elsewhere > 0 ? seam / elsewhere : 1;
}

// The factor that leaves the sizes as they were as well as one factor can, and by how much it misses, as a logarithm. Bands come
// first: they are kept within what is allowed, and within that the whole is.
struct Correction {
    double factor = 1, error = 0;
};
Correction CorrectionTo(const Signal &unlooped, const Signal &looped, double rate) {
    const auto wanted = Sizes(unlooped, rate), found = Sizes(looped, rate);
    const auto ratio = [&](std::size_t i) {
        return wanted[i] > kRoundingRms && found[i] > kRoundingRms ? std::log(found[i] / wanted[i]) : 0.0;
    };
    const auto [least, most] = std::minmax({ratio(1), ratio(2), ratio(3)});
    const double lowest = -kAllowed - least, highest = kAllowed - most;
    const double correction = lowest < highest ? std::clamp(-ratio(0), lowest, highest) : -(least + most) / 2;
    return {std::exp(correction),
            std::max({std::abs(ratio(0) + correction), std::abs(least + correction), std::abs(most + correction)})};
}

Signal LoopedChannel(const Signal &signal, const CameraMove &move, const LoopPlan &plan) {
    const Signal unlooped(signal.begin(), signal.begin() + static_cast<std::ptrdiff_t>(plan.period));
    const double rate = move.rate.PerSecond(), mean = Mean(signal, plan.period);
    Signal best;
    double least_cost = 0, factor = 1;
    for (const double seconds : kLoopSeconds) {
        const std::size_t overlap = Frames(seconds, move, plan.period);
        for (const double power : kPowers) {
            Signal joined = Joined(signal, plan.period, overlap, power);
            const Correction correction = CorrectionTo(unlooped, joined, rate);
            const double cost = correction.error / kBandError +
                                kSpeedWeight * std::max(0.0, SeamSpeed(joined, overlap) - 1);
            if (!best.empty() && cost >= least_cost) continue;
            least_cost = cost;
            factor = correction.factor;
            best = std::move(joined);
        }
    }
    for (double &value : best) value = mean + (value - mean) * factor;
    return best;
}

constexpr std::size_t kChannels = 8;
std::array<double, kChannels> NumbersOf(const AddedMotionSample &added) {
    const TurnVector turn = TurnTo(Eigen::Quaterniond::Identity(), added.turn);
    return {added.position.x, added.position.y, added.position.z, turn.x(),
            turn.y(),         turn.z(),         added.focal_length, added.focus_distance};
}
AddedMotionSample AddedOf(const std::array<double, kChannels> &numbers) {
    return {{numbers[0], numbers[1], numbers[2]},
            Turned(Eigen::Quaterniond::Identity(), TurnVector(numbers[3], numbers[4], numbers[5])),
            numbers[6],
            numbers[7]};
}

}  // namespace

std::optional<LoopPlan> PlanLoop(const CameraMove &move) {
    const std::size_t count = move.samples.size();
    if (!Flows(move, Moved) || !Flows(move, TurnedBy) || !Flows(move, Zoomed) || !Flows(move, Refocused)) return std::nullopt;
    const bool is_still = std::all_of(move.samples.begin(), move.samples.end(),
                                      [&](const CameraSample &sample) { return SamePose(sample, move.samples.front()); });
    const bool ends_as_it_began = !is_still && SamePose(move.samples.back(), move.samples.front());
    const std::size_t period = ends_as_it_began ? count - 1 : count;
    return LoopPlan{period, Frames(kLoopSeconds.back(), move, period)};
}

CameraMove RunOn(const CameraMove &move, const LoopPlan &plan) {
    CameraMove longer = move;
    longer.samples.resize(plan.period);
    for (std::size_t i = 0; i < plan.overlap; ++i) longer.samples.push_back(move.samples[i]);
    // A camera that goes round and round has turned on by whole turns.
    MakeContinuous(&longer.samples);
    std::copy(move.samples.begin(), move.samples.begin() + static_cast<std::ptrdiff_t>(plan.period), longer.samples.begin());
    return longer;
}

std::vector<CameraSample> Looped(const CameraMove &input, const std::vector<CameraSample> &played, const LoopPlan &plan) {
    std::array<Signal, kChannels> signals;
    for (std::size_t i = 0; i < played.size(); ++i) {
        const auto numbers = NumbersOf(AddedTo(input.samples[i % plan.period], played[i]));
        for (std::size_t channel = 0; channel < kChannels; ++channel) signals[channel].push_back(numbers[channel]);
    }
    for (Signal &signal : signals) signal = LoopedChannel(signal, input, plan);
    std::vector<CameraSample> looped;
    for (std::size_t i = 0; i < input.samples.size(); ++i) {
        std::array<double, kChannels> numbers{};
        for (std::size_t channel = 0; channel < kChannels; ++channel) numbers[channel] = signals[channel][i % plan.period];
        looped.push_back(PutOn(input.samples[i], AddedOf(numbers)));
    }
    MakeContinuous(&looped);
    return looped;
}

}  // namespace tremolux
