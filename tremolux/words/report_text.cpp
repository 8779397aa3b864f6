#include "tremolux/words/report_text.h"

#include <cmath>

#include "host/value/text.h"
#include "library/formats/numbers.h"
#include "library/measures/strayed.h"
#include "tremolux/words/json_text.h"

namespace tremolux {
namespace {

std::string ReportLine(const char *title, const std::string &text) {
    std::string line = title;
    line.resize(9, ' ');
    return line + text + "\n";
}

std::string Frames(const CameraMove &move, const FrameRate &rate) {
    return "frames " + std::to_string(move.first_frame) + " to " + std::to_string(move.LastFrame()) + " at " +
           FrameRateText(rate) + " fps, " + ShortNumber(static_cast<double>(move.samples.size()) / rate.PerSecond()) +
           " s";
}

std::string DeviationText(const Deviation &deviation, const char *unit) {
    return ShortNumber(deviation.rms) + " RMS, " + ShortNumber(deviation.peak) + " peak (frame " +
           std::to_string(deviation.peak_frame) + "), " + unit;
}

std::string SettingsText(const std::vector<std::string> &settings) {
    std::string list;
    for (const std::string &setting : settings) list += (list.empty() ? "" : ", ") + setting;
    return list.empty() ? "as it is" : list;
}

nlohmann::ordered_json DeviationJson(const Deviation &deviation) {
    return {{"rms", deviation.rms}, {"peak", deviation.peak}, {"peak_frame", deviation.peak_frame}};
}

std::string JudgementText(const Judgement &judgement) {
    std::string text;
    if (judgement.shutter) {
        text += ReportLine("shutter", "leans " + DeviationText(judgement.shutter->shear, "pixels of ") +
                                          std::to_string(judgement.width));
        text += ReportLine("", "stretches " + DeviationText(judgement.shutter->stretch, "pixels, read in ") +
                                   ShortNumber(judgement.readout) + " ms");
    }
    if (judgement.distance)
        text += ReportLine("against", judgement.recording + ": D " + ShortNumber(*judgement.distance));
    return text;
}

void TellJudgement(const Judgement &judgement, nlohmann::ordered_json *json) {
    if (judgement.shutter)
        (*json)["rolling_shutter"] = {{"readout_ms", judgement.readout},
                                      {"shear_px", DeviationJson(judgement.shutter->shear)},
                                      {"stretch_px", DeviationJson(judgement.shutter->stretch)}};
    if (judgement.distance)
        (*json)["against"] = {{"recording", judgement.recording}, {"distance", *judgement.distance}};
}

}  // namespace

std::string ReportSentence(const ShakeReport &report, const CameraMove &input, const CameraMove &output) {
    const Strayed strayed = MeasureStrayed(input, output);
    return report.input_file + ": " + std::to_string(output.samples.size()) + " frames" +
           (report.preset.empty() ? "" : " with " + report.preset) + ", strayed at most " +
           ShortNumber(strayed.position.peak) + " scene units and " + ShortNumber(strayed.angle.peak) + " degrees\n";
}

std::string ReportJson(const ShakeReport &report, const CameraMove &input, const CameraMove &output) {
    const Strayed strayed = MeasureStrayed(input, output);
    nlohmann::ordered_json outputs = nlohmann::ordered_json::array();
    for (const std::filesystem::path &file : report.output_files) outputs.push_back(host::PathText(file));
    nlohmann::ordered_json json = {
        {"input", report.input_file},
        {"outputs", outputs},
        {"first_frame", output.first_frame},
        {"last_frame", output.LastFrame()},
        {"frames", output.samples.size()},
        {"frames_per_second", {report.rate.numerator, report.rate.denominator}},
        {"preset", report.preset.empty() ? nlohmann::ordered_json() : nlohmann::ordered_json(report.preset)},
        {"preset_frames_per_second",
         report.preset_rate > 0 ? nlohmann::ordered_json(report.preset_rate) : nlohmann::ordered_json()},
        {"settings", report.settings},
        {"strayed_cm", DeviationJson(strayed.position)},
        {"strayed_deg", DeviationJson(strayed.angle)},
        {"microseconds_per_frame", report.microseconds_per_frame}};
    TellJudgement(report.judgement, &json);
    return JsonText(json);
}

std::string ReportText(const ShakeReport &report, const CameraMove &input, const CameraMove &output) {
    std::string text = ReportLine("in", report.input_file + ", " + Frames(input, report.rate));
    if (!report.preset.empty()) text += ReportLine("preset", report.preset);
    if (report.preset_rate > 0) {
        text += ReportLine("", "made at " + ShortNumber(report.preset_rate) +
                                   " frames a second, and changed to keep its frequencies at this rate");
    }
    text += ReportLine("shake", SettingsText(report.settings));
    for (const std::filesystem::path &file : report.output_files) {
        text += ReportLine("out", host::PathText(file) + ", " + std::to_string(output.samples.size()) + " frames");
    }
    const Strayed strayed = MeasureStrayed(input, output);
    text += ReportLine("strayed", DeviationText(strayed.position, "scene units"));
    text += ReportLine("", DeviationText(strayed.angle, "degrees"));
    text += JudgementText(report.judgement);
    text += ReportLine("time", ShortNumber(report.microseconds_per_frame) + " microseconds per frame");
    return text;
}

}  // namespace tremolux
