#include "library/formats/table_times.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "library/moves/between_frames.h"

namespace tremolux {
namespace {

constexpr double kNearFrame = 0.1;  // frames: times in whole milliseconds at any rate in use
constexpr double kNearRate = 0.01;  // of a rate: what is further off is another one
constexpr double kTimeUnits[] = {1, 1e-3, 1e-6, 1e-9};
constexpr FrameRate kTableRates[] = {{24000, 1001}, {24, 1},  {25, 1},       {30000, 1001}, {30, 1},
                                     {48000, 1001}, {48, 1},  {50, 1},       {60000, 1001}, {60, 1},
                                     {90, 1},       {100, 1}, {120000, 1001}, {120, 1},     {240, 1}};

double MiddleStep(const std::vector<double> &times) {
    std::vector<double> steps;
    for (std::size_t i = 1; i < times.size(); ++i) steps.push_back(times[i] - times[i - 1]);
    const auto middle = steps.begin() + static_cast<std::ptrdiff_t>(steps.size() / 2);
    std::nth_element(steps.begin(), middle, steps.end());
    return *middle;
}

// Each row's frame from the first row's on, where all rows lie on frames of their own; else none.
std::vector<double> WholePlaces(const std::vector<double> &seconds, double per_second) {
    std::vector<double> places;
    for (const double time : seconds) {
        const double exact = (time - seconds.front()) * per_second, place = std::round(exact);
        if (std::abs(exact - place) > kNearFrame || (!places.empty() && place <= places.back())) return {};
        places.push_back(place);
    }
    return places;
}

}  // namespace

double SecondsOfTimes(const std::vector<double> &times) {
    if (times.size() < 2) return kTimeUnits[0];
    const double step = MiddleStep(times);
    for (const double unit : kTimeUnits) {
        if (step * unit <= 1) return unit;
    }
    return kTimeUnits[std::size(kTimeUnits) - 1];
}

std::optional<FrameRate> RateOfTimes(const std::vector<double> &seconds) {
    const double step = MiddleStep(seconds);
    double steps = 0;
    for (std::size_t i = 1; i < seconds.size(); ++i) steps += std::round((seconds[i] - seconds[i - 1]) / step);
    const double mean = steps / (seconds.back() - seconds.front());
    if (!(mean * (1 + kNearRate) >= 1) || !(mean <= kMaxFramesPerSecond * (1 + kNearRate))) return std::nullopt;

    const auto distance = [mean](const FrameRate &rate) { return std::abs(rate.PerSecond() / mean - 1); };
    std::vector<FrameRate> rates(std::begin(kTableRates), std::end(kTableRates));
    const double whole = std::clamp(std::round(mean), 1.0, static_cast<double>(kMaxFramesPerSecond));
    rates.push_back({static_cast<std::int32_t>(whole), 1});
    std::stable_sort(rates.begin(), rates.end(),
                     [&](const FrameRate &a, const FrameRate &b) { return distance(a) < distance(b); });
    for (const FrameRate &rate : rates) {
        if (distance(rate) <= kNearRate && !WholePlaces(seconds, rate.PerSecond()).empty()) return rate;
    }
    if (distance(rates.front()) <= kNearRate) return rates.front();
    return FrameRateOf(mean);
}

std::string PlaceByTimes(const std::vector<double> &seconds, CameraMove *move) {
    const double per_second = move->rate.PerSecond(), first = std::round(seconds.front() * per_second);
    const double length = (seconds.back() - seconds.front()) * per_second;
    if (!(length < static_cast<double>(kMaxFrames)))
        return "an earlier time (at most " + std::to_string(kMaxFrames) + " frames)";
    if (std::abs(first) + length <= static_cast<double>(kMaxFrameNumber)) {
        move->first_frame = static_cast<std::int64_t>(first);
    } else {
        move->notes.emplace_back("the first row's time is beyond all frames: it becomes frame 0");
    }
    std::vector<double> places = WholePlaces(seconds, per_second);
    if (places.empty()) {
        for (const double time : seconds) places.push_back((time - seconds.front()) * per_second);
    }

    MakeContinuous(&move->samples);
    CameraMove rows;
    rows.samples.swap(move->samples);
    std::size_t row = 0, between = 0;
    const auto count = static_cast<std::int64_t>(places.back() + kNearFrame) + 1;
    for (std::int64_t i = 0; i < count; ++i) {
        const auto frame = static_cast<double>(i);
        while (row + 1 < places.size() && places[row + 1] <= frame) ++row;
        const bool on_row = places[row] == frame || row + 1 == places.size();
        between += on_row ? 0 : 1;
        const double share = on_row ? 0 : (frame - places[row]) / (places[row + 1] - places[row]);
        move->samples.push_back(WithinLimits(SampleBetween(rows, static_cast<double>(row) + share)));
    }
    MakeContinuous(&move->samples);
    if (between > 0) {
        move->notes.push_back(std::to_string(between) + " of " + std::to_string(move->samples.size()) +
                              " frames lie between rows, and are interpolated");
    }
    return {};
}

}  // namespace tremolux
