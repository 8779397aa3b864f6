#include "library/moves/retime.h"

#include <algorithm>
#include <numeric>

#include "library/moves/between_frames.h"

namespace tremolux {
namespace {

// Of a frame: the whole one at or before it, and what is left as a fraction.
struct Place {
    std::int64_t whole;
    std::int64_t rest, of;  // 0 <= rest < of
};

// frame * from / to, without rounding. The terms of both rates are below 2^30, so that the ratio's are below 2^60: the
// product with a frame's number does not fit, and is built bit by bit.
Place PlaceOf(std::int64_t frame, const FrameRate &from, const FrameRate &to) {
    std::int64_t numerator = std::int64_t{from.numerator} * to.denominator,
                 denominator = std::int64_t{from.denominator} * to.numerator;
    const std::int64_t shared = std::gcd(numerator, denominator);
    numerator /= shared;
    denominator /= shared;
    const std::int64_t wholes = numerator / denominator, part = numerator % denominator;
    const std::int64_t count = frame < 0 ? -frame : frame;
    std::int64_t whole = 0, rest = 0;
    const auto add = [&](std::int64_t amount) {
        rest += amount;
        whole += rest / denominator;
        rest %= denominator;
    };
    for (int bit = 32; bit >= 0; --bit) {
        whole *= 2;
        add(rest);
        if ((count >> bit & 1) != 0) add(part);
    }
    whole += count * wholes;
    if (frame >= 0) return {whole, rest, denominator};
    return rest == 0 ? Place{-whole, 0, denominator} : Place{-whole - 1, denominator - rest, denominator};
}

double Share(const Place &place) { return static_cast<double>(place.rest) / static_cast<double>(place.of); }

}  // namespace

RetimedFrames FramesAt(const CameraMove &move, const FrameRate &rate) {
    const Place first = PlaceOf(move.first_frame, rate, move.rate), last = PlaceOf(move.LastFrame(), rate, move.rate);
    const std::int64_t begin = first.whole + (first.rest > 0 ? 1 : 0);
    return {begin, std::max(begin, last.whole)};
}

CameraMove Retimed(const CameraMove &move, const FrameRate &rate) {
    const RetimedFrames frames = FramesAt(move, rate);
    CameraMove retimed = move;
    retimed.rate = rate;
    retimed.first_frame = frames.first;
    retimed.samples.clear();
    retimed.samples.reserve(static_cast<std::size_t>(frames.Count()));
    for (std::vector<double> &channel : retimed.traits.channels) {
        if (channel.size() > 1) channel.clear();
    }
    const auto count = static_cast<std::int64_t>(move.samples.size());
    for (std::int64_t frame = frames.first; frame <= frames.last; ++frame) {
        Place place = PlaceOf(frame, move.rate, rate);
        place.whole -= move.first_frame;
        if (place.whole >= count - 1) place = {count - 1, 0, 1};
        const auto index = static_cast<std::size_t>(place.whole);
        retimed.samples.push_back(place.rest == 0 ? move.samples[index]
                                                  : WithinLimits(SampleAfter(move, index, Share(place))));
        for (std::size_t i = 0; i < retimed.traits.channels.size(); ++i) {
            const std::vector<double> &from = move.traits.channels[i];
            if (from.size() <= 1) continue;
            retimed.traits.channels[i].push_back(
                place.rest == 0 ? from[index] : from[index] + (from[index + 1] - from[index]) * Share(place));
        }
    }
    return retimed;
}

}  // namespace tremolux
