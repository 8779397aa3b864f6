#include "library/fit/envelope.h"

#include <algorithm>
#include <cmath>

#include "generated/module_ids.h"
#include "host/animation/track.h"
#include "host/value/descid.h"
#include "library/fit/balance.h"
#include "library/fit/levels.h"
#include "library/formats/csv_header.h"
#include "library/formats/numbers.h"
#include "library/shots/keys.h"

namespace tremolux {
namespace {

constexpr double kEnvelopeStep = 0.25, kEnvelopeWindow = 0.5;  // seconds
constexpr double kStill = 1e-12;               // mean square of a speed that is none
constexpr double kMostShare = 100;
constexpr std::size_t kMostPoints = 1000000;


const CsvColumns kEnvelopeColumns = {{"time", true}, {"position", true}, {"rotation", true}};

std::vector<double> SquaredSpeeds(std::vector<double> samples, double rate) {
    RemoveDrift(rate, &samples);
    std::vector<double> squares;
    squares.reserve(samples.size());
    for (std::size_t i = 1; i < samples.size(); ++i)
        squares.push_back((samples[i] - samples[i - 1]) * (samples[i] - samples[i - 1]));
    return squares;
}

double Mean(const std::vector<double> &numbers, std::size_t from, std::size_t to) {
    double sum = 0;
    for (std::size_t i = from; i < to; ++i) sum += numbers[i];
    return to > from ? sum / static_cast<double>(to - from) : 0;
}

// Of one group's axes, as many as points.
std::vector<double> SharesOf(const AxisMotion &motion, std::size_t first_axis, double rate, std::size_t points) {
    std::vector<double> powers(points, 0);
    int moving = 0;
    for (std::size_t axis = first_axis; axis < first_axis + kGroupAxes; ++axis) {
        const std::vector<double> squares = SquaredSpeeds(motion[axis], rate);
        const double whole = Mean(squares, 0, squares.size());
        if (whole < kStill) continue;
        ++moving;
        const double reach = kEnvelopeWindow / 2 * rate;
        for (std::size_t i = 0; i < points; ++i) {
            const double middle = static_cast<double>(i) * kEnvelopeStep * rate;
            const auto from = static_cast<std::size_t>(std::max(0.0, std::floor(middle - reach))),
                       to = std::min(squares.size(), static_cast<std::size_t>(std::ceil(middle + reach)) + 1);
            powers[i] += Mean(squares, from, to) / whole;
        }
    }
    const double mean = Mean(powers, 0, points);
    if (moving == 0 || mean == 0) return std::vector<double>(points, 1);
    for (double &power : powers) power = std::min(std::sqrt(power / mean), kMostShare);
    return powers;
}

}  // namespace

Envelope MeasureEnvelope(const CameraMove &recording) {
    const double rate = recording.rate.PerSecond();
    const AxisMotion motion = MotionOfAxes(recording);
    const double seconds = static_cast<double>(recording.samples.size() - 1) / rate;
    const std::size_t points = static_cast<std::size_t>(std::floor(seconds / kEnvelopeStep)) + 1;
    const std::vector<double> position = SharesOf(motion, 0, rate, points),
                              rotation = SharesOf(motion, kGroupAxes, rate, points);
    Envelope envelope;
    envelope.reserve(points);
    for (std::size_t i = 0; i < points; ++i)
        envelope.push_back({static_cast<double>(i) * kEnvelopeStep, position[i], rotation[i]});
    return envelope;
}

std::string WriteEnvelope(const Envelope &envelope) {
    std::string text = "time,position,rotation\n";
    for (const EnvelopePoint &point : envelope) {
        text += FormatNumber(point.seconds) + ',';
        text += ShortNumber(point.position) + ',';
        text += ShortNumber(point.rotation) + '\n';
    }
    return text;
}

Envelope ReadEnvelope(const std::string &file, std::string_view bytes) {
    const SourceText source(file, bytes);
    const CsvHeader header(source, kEnvelopeColumns);
    Envelope envelope;
    for (std::size_t i = 1; i < source.Lines().size(); ++i) {
        const Line &line = source.Lines()[i];
        if (Trimmed(line.text).empty()) continue;
        if (envelope.size() == kMostPoints)
            source.Refuse(line.number, 1, "another point", "at most " + std::to_string(kMostPoints));
        const CsvRow row(header, line);
        const EnvelopePoint point = {row.Number(0, 0, kMaxNumber), row.Number(1, 0, kMostShare),
                                     row.Number(2, 0, kMostShare)};
        if (!envelope.empty() && point.seconds <= envelope.back().seconds)
            source.Refuse(line.number, 1, "the time " + FormatNumber(point.seconds),
                          "one after " + FormatNumber(envelope.back().seconds));
        envelope.push_back(point);
    }
    if (envelope.empty()) source.Refuse(source.Lines().size() + 1, 1, "the end of the file", "at least one point");
    return envelope;
}

void ApplyEnvelope(const Envelope &envelope, const CameraMove &move, host::Tag *tag) {
    const int fps = move.rate.Whole();
    const double position = tag->Data().Real(ids::kPositionIntensity),
                 rotation = tag->Data().Real(ids::kRotationIntensity), length = envelope.back().seconds;
    const auto key = [&](std::int32_t id, double frame, double value) {
        KeyNumber(tag, host::MakeId(id), host::MakeTime(frame, fps), value, host::kInterpolationLinear);
    };
    const auto last = static_cast<double>(move.LastFrame());
    for (double round = 0;; ++round) {
        const bool is_back = std::fmod(round, 2) != 0;
        for (std::size_t i = 0; i < envelope.size(); ++i) {
            const EnvelopePoint &point = envelope[is_back ? envelope.size() - 1 - i : i];
            const double seconds = round * length + (is_back ? length - point.seconds : point.seconds);
            const double frame =
                static_cast<double>(move.first_frame) + std::round(seconds * move.rate.PerSecond());
            key(ids::kPositionIntensity, frame, position * point.position);
            key(ids::kRotationIntensity, frame, rotation * point.rotation);
            if (frame > last) return;
        }
        if (length <= 0) return;
    }
}

}  // namespace tremolux
