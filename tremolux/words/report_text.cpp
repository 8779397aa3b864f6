#include "tremolux/words/report_text.h"

#include <cmath>

#include "host/value/text.h"
#include "library/formats/numbers.h"
#include "library/measures/strayed.h"

namespace tremolux {
namespace {

// To three decimals, as much as a reader wants.
std::string Short(double value) { return FormatNumber(std::round(value * 1000) / 1000); }

std::string Line(const char *title, const std::string &text) {
    std::string line = title;
    line.resize(9, ' ');
    return line + text + "\n";
}

std::string Frames(const CameraMove &move, const FrameRate &rate) {
    return "frames " + std::to_string(move.first_frame) + " to " + std::to_string(move.LastFrame()) + " at " +
           FrameRateText(rate) + " fps, " + Short(static_cast<double>(move.samples.size()) / rate.PerSecond()) + " s";
}

std::string DeviationText(const Deviation &deviation, const char *unit) {
    return Short(deviation.rms) + " RMS, " + Short(deviation.peak) + " peak (frame " +
           std::to_string(deviation.peak_frame) + "), " + unit;
}

std::string SettingsText(const std::vector<std::string> &settings) {
    std::string list;
    for (const std::string &setting : settings) list += (list.empty() ? "" : ", ") + setting;
    return list.empty() ? "as it is" : list;
}

}  // namespace

std::string ReportText(const ShakeReport &report, const CameraMove &input, const CameraMove &output) {
    std::string text = Line("in", report.input_file + ", " + Frames(input, report.rate));
    if (!report.preset.empty()) text += Line("preset", report.preset);
    text += Line("shake", SettingsText(report.settings));
    for (const std::filesystem::path &file : report.output_files) {
        text += Line("out", host::PathText(file) + ", " + std::to_string(output.samples.size()) + " frames");
    }
    const Strayed strayed = MeasureStrayed(input, output);
    text += Line("strayed", DeviationText(strayed.position, "scene units"));
    text += Line("", DeviationText(strayed.angle, "degrees"));
    text += Line("time", Short(report.microseconds_per_frame) + " microseconds per frame");
    return text;
}

}  // namespace tremolux
