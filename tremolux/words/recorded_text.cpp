#include "tremolux/words/recorded_text.h"

#include <algorithm>
#include <iterator>

#include "library/formats/numbers.h"
#include "library/moves/camera_move.h"

namespace tremolux {
namespace {

using Json = nlohmann::ordered_json;

struct SampleKind {
    const char *name, *unit;
    const std::vector<GyroSample> GyroLog::*samples;  // null: orientations
};
constexpr SampleKind kSampleKinds[] = {{"gyro", "radians a second", &GyroLog::rates},
                                       {"accelerometer", "metres a second squared", &GyroLog::accelerations},
                                       {"gravity", "down", &GyroLog::gravity},
                                       {"orientations", "", nullptr}};

struct SampleSpan {
    std::size_t samples = 0;
    double seconds = 0;  // from the first to the last
    double PerSecond() const { return seconds > 0 ? static_cast<double>(samples - 1) / seconds : 0; }
};

template <typename Samples>
SampleSpan SpanOf(const Samples &samples) {
    if (samples.empty()) return {};
    return {samples.size(), samples.back().time - samples.front().time};
}

SampleSpan SpanOf(const SampleKind &kind, const GyroLog &log) {
    return kind.samples != nullptr ? SpanOf(log.*kind.samples) : SpanOf(log.orientations);
}

std::string RowText(double time, std::initializer_list<double> numbers) {
    std::string row = FormatAllDigits(time);
    for (const double number : numbers) row += ',' + FormatAllDigits(number);
    return row + '\n';
}

const char *WordsOf(BiasFrom from) {
    if (from == BiasFrom::kStillPart) return "still part";
    return from == BiasFrom::kWhole ? "whole" : "nothing";
}

}  // namespace

std::vector<std::pair<std::string, std::string>> RecordedFacts(const GyroRecording &recording) {
    std::vector<std::pair<std::string, std::string>> facts;
    const GyroLog &log = recording.log;
    if (!log.camera.empty()) facts.emplace_back("recorded by", log.camera);
    for (const SampleKind &kind : kSampleKinds) {
        const SampleSpan span = SpanOf(kind, log);
        if (span.samples == 0) continue;
        facts.emplace_back(kind.name, std::to_string(span.samples) + " samples in " + ShortNumber(span.seconds) +
                                          " s, " + ShortNumber(span.PerSecond()) + " a second" +
                                          (*kind.unit != '\0' ? std::string("; ") + kind.unit : ""));
    }
    facts.emplace_back("turns from", recording.motion.is_own ? "the recorded orientations" : "the integrated rates");
    if (log.readout_ms) facts.emplace_back("readout", ShortNumber(*log.readout_ms) + " ms");
    return facts;
}

Json RecordedJson(const GyroRecording &recording) {
    const GyroLog &log = recording.log;
    Json sensors = Json::object();
    for (const SampleKind &kind : kSampleKinds) {
        const SampleSpan span = SpanOf(kind, log);
        if (span.samples > 0)
            sensors[kind.name] = {
                {"samples", span.samples}, {"seconds", span.seconds}, {"samples_per_second", span.PerSecond()}};
    }
    const GyroBias &bias = recording.motion.bias;
    const Eigen::Vector3d degrees = bias.rate / kRadiansPerDegree;
    return {{"camera", log.camera.empty() ? Json() : Json(log.camera)},
            {"sensors", sensors},
            {"turns_from", recording.motion.is_own ? "orientations" : "rates"},
            {"bias_from", WordsOf(bias.from)},
            {"bias_deg_per_second", Json::array({degrees.x(), degrees.y(), degrees.z()})},
            {"readout_ms", log.readout_ms ? Json(*log.readout_ms) : Json()}};
}

std::string KnownSamples() {
    std::string known;
    for (std::size_t i = 0; i < std::size(kSampleKinds); ++i)
        known += (i == 0 ? "" : i + 1 < std::size(kSampleKinds) ? ", " : " or ") + std::string(kSampleKinds[i].name);
    return known;
}

bool AreKnownSamples(const std::string &kind) {
    return std::any_of(std::begin(kSampleKinds), std::end(kSampleKinds),
                       [&](const SampleKind &known) { return kind == known.name; });
}

std::string SamplesText(const GyroRecording &recording, const std::string &kind) {
    std::string text;
    for (const SampleKind &known : kSampleKinds) {
        if (kind != known.name) continue;
        text = known.samples != nullptr ? "t,x,y,z\n" : "t,w,x,y,z\n";
        if (known.samples == nullptr) {
            for (const GyroOrientation &sample : recording.log.orientations)
                text += RowText(sample.time,
                                {sample.rotation.w(), sample.rotation.x(), sample.rotation.y(), sample.rotation.z()});
            continue;
        }
        for (const GyroSample &sample : recording.log.*known.samples)
            text += RowText(sample.time, {sample.value.x(), sample.value.y(), sample.value.z()});
    }
    return text;
}

}  // namespace tremolux
