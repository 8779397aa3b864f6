#include "library/formats/unit_question.h"

#include <algorithm>
#include <cmath>

#include "library/formats/lens.h"
#include "library/formats/numbers.h"
#include "library/measures/strayed.h"

namespace tremolux {
namespace {

constexpr double kTremble = 1e-3, kShortestWay = 1, kLongestWay = 1e6;  // centimetres
constexpr double kFastest = 1e4;                                        // centimetres a second
constexpr double kNearestFocus = 10;                                    // centimetres
constexpr double kWidestView = 150, kNarrowestView = 0.4;               // degrees
constexpr double kLeastSeconds = 1;

double Rounded(double value) {
    const double digit = std::pow(10, std::floor(std::log10(value)) - 2);
    return std::round(value / digit) * digit;
}

std::string Shown(double value) { return FormatNumber(Rounded(value)); }

double MiddleTurn(const std::vector<CameraSample> &samples) {
    std::vector<double> turns;
    for (std::size_t i = 1; i < samples.size(); ++i)
        turns.push_back(TurnBetween(samples[i - 1].angles, samples[i].angles));
    if (turns.empty()) return 0;
    const auto middle = turns.begin() + static_cast<std::ptrdiff_t>(turns.size() / 2);
    std::nth_element(turns.begin(), middle, turns.end());
    return *middle;
}

double WayOf(const std::vector<CameraSample> &samples) {
    double way = 0;
    for (std::size_t i = 1; i < samples.size(); ++i) way += host::Length(samples[i].position - samples[i - 1].position);
    return way;
}

std::string QuestionOf(const UnitAdvice &advice, const CameraMove &move) {
    const std::vector<CameraSample> &samples = move.samples;
    const auto [shortest, longest] =
        std::minmax_element(samples.begin(), samples.end(), [](const CameraSample &a, const CameraSample &b) {
            return a.focal_length < b.focal_length;
        });
    const auto view = [&](const CameraSample &sample) {
        return AngleOfView(move.aperture_width, sample.focal_length) / kRadiansPerDegree;
    };
    const double widest = view(*shortest), narrowest = view(*longest);
    if (const double turn = MiddleTurn(samples); turn > widest) {
        return "from frame to frame the camera turns by " + Shown(turn) +
               " degrees, more than its picture is wide: are the angles in another unit? " + advice.angle + " says so";
    }
    const double way = WayOf(samples), seconds = static_cast<double>(samples.size() - 1) / move.rate.PerSecond();
    const bool creeps = way > kTremble && way < kShortestWay && seconds >= kLeastSeconds;
    if (creeps || way > kLongestWay || way > kFastest * std::max(seconds, kLeastSeconds)) {
        return "the camera's whole way is " + Shown(way) + " cm in " + Shown(seconds) +
               " seconds: are the lengths in another unit? " + advice.length + " says so";
    }
    const double focus = std::max_element(samples.begin(), samples.end(), [](const CameraSample &a, const CameraSample &b) {
                             return a.focus_distance < b.focus_distance;
                         })->focus_distance;
    if (focus > 0 && focus < kNearestFocus) {
        return "the camera's focus is never further than " + Shown(focus) +
               " cm: are the lengths in another unit? " + advice.length + " says so";
    }
    if (widest > kWidestView || narrowest < kNarrowestView) {
        return "the lens sees " + Shown(widest > kWidestView ? widest : narrowest) +
               " degrees: is the film back another one? " + advice.lens + " says so";
    }
    return {};
}

}  // namespace

void AskAboutUnits(const UnitAdvice &advice, CameraMove *move) {
    if (std::string question = QuestionOf(advice, *move); !question.empty()) move->notes.push_back(std::move(question));
}

}  // namespace tremolux
