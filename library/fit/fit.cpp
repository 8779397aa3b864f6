#include "library/fit/fit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numeric>

#include "library/failure.h"
#include "library/formats/numbers.h"
#include "library/parameters/settings.h"

namespace tremolux {
namespace {

constexpr double kShortestSeconds = 2, kLongestSeconds = 60;
constexpr std::size_t kMostFrames = 7200;

// Paces that are tried first: the noise runs with the square of the speed.
constexpr double kSlowestSpeed = 0.15;
constexpr int kSpeeds = 16;
constexpr double kVariations[] = {kLeastVariation, 0.6};
constexpr double kSmoothStep = 0.05;
// Frames that may be played to learn a grid's layers, and to choose among seeds.
constexpr std::size_t kFramesToLearn = 900000, kFramesToChoose = 250000;
constexpr int kMostSeeds = 8, kLeastSeeds = 2, kMostChosenFrom = 100, kLeastChosenFrom = 8;
constexpr std::size_t kKept = 3;
constexpr int kRefinements = 2;

double SpeedStep() { return std::pow(kMostSpeed / kSlowestSpeed, 1.0 / (kSpeeds - 1)); }

std::vector<Pace> FirstPaces() {
    std::vector<Pace> paces;
    for (int i = 0; i < kSpeeds; ++i)
        for (const double variation : kVariations)
            paces.push_back({std::min(kSlowestSpeed * std::pow(SpeedStep(), i), kMostSpeed), variation});
    return paces;
}

std::vector<double> Steps(double low, double high, double step) {
    std::vector<double> steps;
    const int count = static_cast<int>(std::lround((high - low) / step));
    for (int i = 0; i <= count; ++i) steps.push_back(std::min(low + i * step, high));
    return steps;
}

int SeedsFor(std::size_t frames) {
    const std::size_t plays = kSpeeds * std::size(kVariations) * kLayers;
    return static_cast<int>(
        std::clamp<std::size_t>(kFramesToLearn / (plays * frames), kLeastSeeds, kMostSeeds));
}

int ChosenFrom(std::size_t frames) {
    return static_cast<int>(std::clamp<std::size_t>(kFramesToChoose / frames, kLeastChosenFrom, kMostChosenFrom));
}

// Ratios of a group's axes that are off by the same factor in the middle of their bands.
void Correct(const ShakeLevels &found, const ShakeLevels &wanted, std::size_t first_axis, std::array<double, 3> *ratios) {
    for (std::size_t i = 0; i < kGroupAxes; ++i) {
        std::vector<double> off;
        const AxisLevels &from = found[first_axis + i], &to = wanted[first_axis + i];
        for (std::size_t band = 0; band < kFitBands.size(); ++band)
            if (IsJudged(to, band)) off.push_back(LogRatio(to.bands[band], from.bands[band]));
        if (off.empty()) continue;
        std::sort(off.begin(), off.end());
        (*ratios)[i] = std::min((*ratios)[i] * std::exp(off[off.size() / 2]), kMostRatio);
    }
}

// Settings that a descent changes: the layers, the axes, the smoothing.
constexpr std::size_t kDescended = 13;
constexpr double kDescent[] = {0.2, 0.1, 0.1, 0.05, 0.05, 0.025};  // logarithms of factors; of the smoothing, amounts
constexpr std::size_t kDescents = 3;
// What the takes of other seeds count beside the one that plays first.
constexpr double kOtherSeeds = 0.25;

// What is searched for is near, and does not carry the camera away.
constexpr double kDriftShare = 0.3;
double LossOf(const ShakeLevels &found, const ShakeLevels &wanted) {
    return DistanceOf(found, wanted) + kDriftShare * DriftBeyond(found, wanted);
}

// As other seeds play on average.
ShakeLevels Expected(const GroupPowers &powers, const ShakeSettings &s) {
    ShakeLevels levels{};
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        const std::size_t i = axis % kGroupAxes;
        const auto &layers = IsPosition(axis) ? powers.position[i] : powers.rotation[i];
        const auto &weights = IsPosition(axis) ? s.position_weights : s.rotation_weights;
        const double factor = IsPosition(axis) ? s.position_intensity * s.position_ratios[i]
                                               : s.rotation_intensity * s.rotation_ratios[i];
        const auto rms = [&](std::size_t term) {
            double power = 0;
            for (std::size_t layer = 0; layer < kLayers; ++layer)
                power += weights[layer] * weights[layer] * layers[layer][term];
            return factor * std::sqrt(power);
        };
        for (std::size_t band = 0; band < kFitBands.size(); ++band) levels[axis].bands[band] = rms(band);
        levels[axis].total = rms(kTotalTerm);
        levels[axis].drift = rms(kDriftTerm);
    }
    return levels;
}

void Move(std::size_t which, double step, ShakeSettings *s) {
    double *const factors[kDescended - 1] = {
        &s->position_weights[0], &s->position_weights[1], &s->position_weights[2], &s->rotation_weights[0],
        &s->rotation_weights[1], &s->rotation_weights[2], &s->position_ratios[0],  &s->position_ratios[1],
        &s->position_ratios[2],  &s->rotation_ratios[0],  &s->rotation_ratios[1],  &s->rotation_ratios[2]};
    const double most = which < 3 ? kMostPositionWeight : which < 6 ? kMostRotationWeight : kMostRatio;
    if (which == kDescended - 1)
        s->smooth = std::clamp(s->smooth + step, 0.0, 1.0);
    else
        *factors[which] = std::min(*factors[which] * std::exp(step), most);
}

// Rounds of a pair's two fits, each to what the other leaves.
constexpr int kPairRounds = 3;
// Steps of the descent of both together, by what they play on average.
constexpr double kPairDescent[] = {0.4, 0.4, 0.4, 0.2, 0.2, 0.2, 0.1, 0.1, 0.1, 0.05, 0.05};
// What a band that the other camera makes already still counts for.
constexpr double kLeftOver = 0.2;
// How the work is parted at first: the first camera takes what is slow, the second what is fast.
constexpr std::array<double, kFitBands.size()> kFirstShare = {1, 0.4, 0.3};

ShakeLevels Scaled(ShakeLevels levels, const std::array<double, kFitBands.size()> &shares) {
    for (AxisLevels &axis : levels) {
        double squares = 0;
        for (std::size_t band = 0; band < kFitBands.size(); ++band) {
            axis.bands[band] *= shares[band];
            squares += axis.bands[band] * axis.bands[band];
        }
        axis.total = std::sqrt(squares);
    }
    return levels;
}

// Powers add up; and what is left of one when another is taken off.
ShakeLevels Together(const ShakeLevels &a, const ShakeLevels &b) {
    ShakeLevels sum{};
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        for (std::size_t band = 0; band < kFitBands.size(); ++band)
            sum[axis].bands[band] = std::hypot(a[axis].bands[band], b[axis].bands[band]);
        sum[axis].total = std::hypot(a[axis].total, b[axis].total);
        sum[axis].drift = std::hypot(a[axis].drift, b[axis].drift);
    }
    return sum;
}

ShakeLevels LeftOver(const ShakeLevels &wanted, const ShakeLevels &made) {
    ShakeLevels left{};
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        double squares = 0;
        for (std::size_t band = 0; band < kFitBands.size(); ++band) {
            const double all = wanted[axis].bands[band], other = made[axis].bands[band];
            left[axis].bands[band] = std::sqrt(std::max(all * all - other * other, kLeftOver * kLeftOver * all * all));
            squares += left[axis].bands[band] * left[axis].bands[band];
        }
        left[axis].total = std::sqrt(squares);
    }
    return left;
}

}  // namespace

RecordedShake CutIntoParts(const CameraMove &move, const std::string &name) {
    const double rate = move.rate.PerSecond();
    const std::size_t frames = move.samples.size();
    if (static_cast<double>(frames) < kShortestSeconds * rate)
        throw Failure(kExitInput, name + ": found " + ShortNumber(static_cast<double>(frames) / rate) +
                                      " seconds, expected at least " + ShortNumber(kShortestSeconds));
    const std::size_t longest = std::min(static_cast<std::size_t>(std::ceil(kLongestSeconds * rate)), kMostFrames),
                      count = (frames + longest - 1) / longest, length = frames / count;
    RecordedShake shake;
    shake.rate = move.rate;
    const AxisMotion motion = MotionOfAxes(move);
    for (std::size_t i = 0; i < count; ++i) shake.parts.push_back(PartOf(motion, i * length, length));
    const ShakeLevels levels = shake.Levels();
    if (std::all_of(levels.begin(), levels.end(), [](const AxisLevels &axis) { return axis.IsStill(); }))
        throw Failure(kExitInput, name + ": found a camera that stands still, expected one that shakes");
    return shake;
}

RecordedShake HalfOf(const RecordedShake &shake, bool second) {
    RecordedShake half;
    half.rate = shake.rate;
    const std::size_t length = shake.Frames() / 2;
    for (const AxisMotion &part : shake.parts) half.parts.push_back(PartOf(part, second ? length : 0, length));
    return half;
}

Fitter::Fitter(FrameRate rate, std::size_t frames, std::function<void(double)> progress)
    : players_(rate, frames), unit_(&players_, SeedsFor(frames)), progress_(std::move(progress)) {}

std::vector<Fitter::Candidate> Fitter::Try(const std::vector<Pace> &paces, const std::vector<double> &smooths,
                                           const ShakeLevels &wanted) {
    unit_.Learn(paces);
    const GroupWish position = WishOf(wanted, 0), rotation = WishOf(wanted, kGroupAxes);
    constexpr double kMostProduct = kMostIntensity * kMostRatio;
    std::vector<Candidate> candidates(paces.size() * smooths.size());
    players_.ForEach(candidates.size(), [&](std::size_t piece, Stage *) {
        Candidate &candidate = candidates[piece];
        candidate.pace = paces[piece / smooths.size()];
        candidate.smooth = smooths[piece % smooths.size()];
        const GroupPowers powers = unit_.At(candidate.pace, candidate.smooth);
        candidate.position = FindBalance(powers.position, position, kMostProduct * kMostPositionWeight);
        candidate.rotation = FindBalance(powers.rotation, rotation, kMostProduct * kMostRotationWeight);
    });
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](const Candidate &a, const Candidate &b) { return a.Loss() < b.Loss(); });
    return candidates;
}

ShakeSettings Fitter::Fit(const ShakeLevels &wanted) {
    ShakeSettings settings = Search(wanted);
    ChooseSeed(wanted, &settings);
    progress_(1);
    return settings;
}

ShakeSettings Fitter::Search(const ShakeLevels &wanted) {
    progress_(0);
    std::vector<Candidate> best = Try(FirstPaces(), Steps(0, 1, kSmoothStep), wanted);
    double factor = SpeedStep(), smooth_step = kSmoothStep;
    for (int round = 0; round < kRefinements; ++round) {
        progress_(0.6 + 0.15 * round);
        factor = std::sqrt(factor);
        smooth_step /= 2;
        std::vector<Candidate> refined(best.begin(), best.begin() + std::min<std::ptrdiff_t>(kKept, std::ptrdiff_t(best.size())));
        const std::vector<Candidate> around = refined;
        for (const Candidate &one : around) {
            std::vector<Pace> paces;
            for (const double speed : {one.pace.speed / factor, one.pace.speed, one.pace.speed * factor})
                for (const double variation : {one.pace.variation, std::min(one.pace.variation * 1.5, 1.0)})
                    paces.push_back({std::min(speed, kMostSpeed), variation});
            const std::vector<double> smooths = Steps(std::max(one.smooth - 2 * smooth_step, 0.0),
                                                      std::min(one.smooth + 2 * smooth_step, 1.0), smooth_step);
            const std::vector<Candidate> tried = Try(paces, smooths, wanted);
            refined.insert(refined.end(), tried.begin(), tried.end());
        }
        std::stable_sort(refined.begin(), refined.end(),
                         [](const Candidate &a, const Candidate &b) { return a.Loss() < b.Loss(); });
        best = refined;
    }
    const Candidate &found = best.front();
    ShakeSettings settings;
    settings.speed = found.pace.speed;
    settings.variation = found.pace.variation;
    settings.smooth = found.smooth;
    const GroupSettings position =
                            SpreadOverSliders(found.position.weights, found.position.amplitudes, kMostPositionWeight),
                        rotation =
                            SpreadOverSliders(found.rotation.weights, found.rotation.amplitudes, kMostRotationWeight);
    settings.position_intensity = position.intensity;
    settings.position_weights = position.weights;
    settings.position_ratios = position.ratios;
    settings.rotation_intensity = rotation.intensity;
    settings.rotation_weights = rotation.weights;
    settings.rotation_ratios = rotation.ratios;
    Polish(wanted, &settings);
    return settings;
}

// The ratios once more, by what the settings really play.
void Fitter::Polish(const ShakeLevels &wanted, ShakeSettings *settings) {
    const ShakeLevels found = Levels(*settings, kJudgedTakes * 2);
    ShakeSettings corrected = *settings;
    Correct(found, wanted, 0, &corrected.position_ratios);
    Correct(found, wanted, kGroupAxes, &corrected.rotation_ratios);
    if (DistanceOf(Levels(corrected, kJudgedTakes * 2), wanted) < DistanceOf(found, wanted))
        *settings = corrected;
}

// The seeds whose takes come nearest, each with small steps of one setting at a time that bring it nearer.
void Fitter::ChooseSeed(const ShakeLevels &wanted, ShakeSettings *settings) {
    players_.SetAll(SettingTexts(*settings));
    const std::vector<ShakeLevels> takes = players_.LevelsOfTakes(0, ChosenFrom(players_.Frames()));
    std::vector<int> seeds(takes.size());
    std::iota(seeds.begin(), seeds.end(), 0);
    std::stable_sort(seeds.begin(), seeds.end(), [&](int a, int b) {
        return DistanceOf(takes[static_cast<std::size_t>(a)], wanted) < DistanceOf(takes[static_cast<std::size_t>(b)], wanted);
    });
    double least = std::numeric_limits<double>::max();
    const ShakeSettings start = *settings;
    for (std::size_t i = 0; i < std::min(kDescents, seeds.size()); ++i) {
        progress_(0.9 + 0.03 * static_cast<double>(i));
        ShakeSettings tried = start;
        tried.seed = seeds[i];
        const double distance = Descend(wanted, &tried);
        if (distance >= least) continue;
        least = distance;
        *settings = tried;
    }
}

double Fitter::Descend(const ShakeLevels &wanted, ShakeSettings *settings) {
    const Pace pace{settings->speed, settings->variation};
    const auto distance = [&](const ShakeSettings &tried, Stage *stage) {
        ApplySettings(SettingTexts(tried), players_.Rate().Whole(), &stage->CameraTag());
        const ShakeLevels own = MeasureLevels({players_.Take(stage)}, players_.Rate().PerSecond());
        return DistanceOf(own, wanted) + kOtherSeeds * LossOf(Expected(unit_.At(pace, tried.smooth), tried), wanted);
    };
    double least = distance(*settings, &players_.First());
    for (const double step : kDescent) {
        for (std::size_t i = 0; i < kDescended; ++i) {
            std::array<ShakeSettings, 2> tried = {*settings, *settings};
            Move(i, step, &tried[0]);
            Move(i, -step, &tried[1]);
            std::array<double, 2> distances{};
            players_.ForEach(tried.size(), [&](std::size_t piece, Stage *stage) {
                distances[piece] = distance(tried[piece], stage);
            });
            const std::size_t nearer = distances[0] < distances[1] ? 0 : 1;
            if (distances[nearer] >= least) continue;
            least = distances[nearer];
            *settings = tried[nearer];
        }
    }
    return least;
}

ShakeLevels Fitter::Levels(const ShakeSettings &settings, int takes) {
    players_.SetAll(SettingTexts(settings));
    return players_.Levels(0, takes);
}

AxisMotion Fitter::TakeOf(const ShakeSettings &settings) {
    players_.SetAll(SettingTexts(settings));
    return players_.Take(&players_.First());
}

ShakeLevels Fitter::ExpectedOf(const ShakeSettings &settings) const {
    return Expected(unit_.At({settings.speed, settings.variation}, settings.smooth), settings);
}

PairSettings Fitter::FitPair(const ShakeLevels &wanted) {
    PairSettings pair, best;
    double least = std::numeric_limits<double>::max();
    pair.first = Search(Scaled(wanted, kFirstShare));
    for (int round = 0; round < kPairRounds; ++round) {
        pair.second = Search(LeftOver(wanted, ExpectedOf(pair.first)));
        if (round > 0) pair.first = Search(LeftOver(wanted, ExpectedOf(pair.second)));
        const double loss = LossOf(Together(ExpectedOf(pair.first), ExpectedOf(pair.second)), wanted);
        if (loss >= least) continue;
        least = loss;
        best = pair;
    }
    for (const double step : kPairDescent) {
        for (std::size_t i = 0; i < 4 * kDescended; ++i) {
            PairSettings tried = best;
            ShakeSettings &changed = i % 2 == 0 ? tried.first : tried.second;
            Move(i / 4, i % 4 < 2 ? step : -step, &changed);
            const double loss = LossOf(Together(ExpectedOf(tried.first), ExpectedOf(tried.second)), wanted);
            if (loss >= least) continue;
            least = loss;
            best = tried;
        }
    }
    const std::vector<ShakeLevels> takes = Pairs(best).LevelsOfTakes(0, ChosenFrom(players_.Frames()));
    const auto nearest = std::min_element(takes.begin(), takes.end(), [&](const ShakeLevels &a, const ShakeLevels &b) {
        return DistanceOf(a, wanted) < DistanceOf(b, wanted);
    });
    best.first.seed = static_cast<int>(nearest - takes.begin());
    best.second.seed = best.first.seed + kSecondSeed;
    progress_(1);
    return best;
}

Players &Fitter::Pairs(const PairSettings &settings) {
    if (!pairs_) pairs_ = std::make_unique<Players>(players_.Rate(), players_.Frames(), 2);
    pairs_->SetAll(SettingTexts(settings.first));
    pairs_->SetSecond(SettingTexts(settings.second));
    return *pairs_;
}

ShakeLevels Fitter::Levels(const PairSettings &settings, int takes) { return Pairs(settings).Levels(0, takes); }

ShakeLevels Fitter::LevelsOfSeed(const PairSettings &settings) {
    return Pairs(settings).Levels(settings.first.seed, 1);
}

AxisMotion Fitter::TakeOf(const PairSettings &settings) {
    Players &pairs = Pairs(settings);
    return pairs.Take(&pairs.First());
}

ShakeLevels Fitter::LevelsOfSeed(const ShakeSettings &settings) {
    players_.SetAll(SettingTexts(settings));
    return players_.Levels(settings.seed, 1);
}

}  // namespace tremolux
