#include "tremolux/pictures/report_page.h"

#include <cmath>

#include "library/formats/base64.h"
#include "library/formats/numbers.h"
#include "tremolux/pictures/html.h"

namespace tremolux {
namespace {

constexpr const char *kReportStyle = R"(* { box-sizing: border-box; }
body { margin: 0; padding: 16px; background: var(--ground); color: var(--ink); font: 15px/1.5 system-ui, sans-serif; }
main { max-width: 1100px; margin: 0 auto; }
h1 { font-size: 22px; margin: 8px 0 4px; overflow-wrap: anywhere; }
h2 { font-size: 17px; margin: 28px 0 8px; }
p { margin: 4px 0 10px; color: var(--soft); }
.card { background: var(--panel); border: 1px solid var(--line); border-radius: 8px; padding: 12px 16px; overflow-x: auto; }
.verdict { border-left: 5px solid var(--good); }
.verdict.warning { border-left-color: var(--accent); }
.verdict p { color: var(--ink); margin: 2px 0; }
table { border-collapse: collapse; width: 100%; font-variant-numeric: tabular-nums; }
th, td { padding: 4px 10px; text-align: right; border-bottom: 1px solid var(--line); white-space: nowrap; }
th:first-child, td:first-child { text-align: left; padding-left: 0; }
thead th { color: var(--soft); font-weight: 600; vertical-align: bottom; white-space: normal; }
.figures th, .figures td { padding: 4px 7px; }
tbody tr:last-child > * { border-bottom: 0; }
.words td { text-align: left; white-space: normal; }
.words th { text-align: left; }
video, img { display: block; width: 100%; height: auto; border-radius: 4px; }
figure { margin: 0; }
/* Letters stay as large as they can be read; what does not fit is scrolled to. */
figure img { min-width: 900px; }
figcaption { color: var(--soft); padding-top: 6px; position: sticky; left: 0; }
.made { font-size: 13px; margin-top: 28px; overflow-wrap: anywhere; }
)";

// Three significant digits, as much as a reader wants; what is less than a thousandth is nothing.
std::string ThreeDigits(double value) {
    if (std::abs(value) < 0.0005) return "0";
    const double digit = std::pow(10, std::floor(std::log10(std::abs(value))) - 2);
    return FormatNumber(std::round(value / digit) * digit);
}

std::string Cell(const std::string &text) { return "<td>" + text + "</td>"; }

std::string Lines(const Channel &channel) {
    std::string text;
    for (const SpectrumPeak &line : channel.lines) text += (text.empty() ? "" : ", ") + ThreeDigits(line.frequency);
    return text.empty() ? "none" : text;
}

template <std::size_t kCount>
std::string ChannelTable(const std::array<Channel, kCount> &channels) {
    std::string text =
        "<table class=\"figures\"><thead><tr><th></th><th>RMS</th><th>peak</th><th>at frame</th><th>RMS a second</th>"
        "<th>peak a second</th>";
    for (const Band &band : kBands) text += "<th>RMS " + std::string(band.name) + "</th>";
    text += "<th>strongest, Hz</th></tr></thead><tbody>";
    for (const Channel &channel : channels) {
        text += "<tr><th>" + std::string(channel.name) + ", " + channel.unit + "</th>" +
                Cell(ThreeDigits(channel.rms)) + Cell(ThreeDigits(channel.peak)) +
                Cell(std::to_string(channel.peak_frame)) + Cell(ThreeDigits(channel.speed_rms)) +
                Cell(ThreeDigits(channel.speed_peak));
        for (const double rms : channel.band_rms) text += Cell(ThreeDigits(rms));
        text += Cell(Lines(channel)) + "</tr>";
    }
    return text + "</tbody></table>\n";
}

std::string Verdict(const AddedMotion &added) {
    const std::string band = kSickness.name;
    const std::string figures = ThreeDigits(added.sway * 100) + " % of the picture's width and rolls by " +
                                ThreeDigits(added.roll) + " degrees (RMS from " + band + ")";
    const std::string limits = ThreeDigits(kMostSway * 100) + " % and " + ThreeDigits(kMostRoll) + " degrees";
    if (!added.MakesSick()) {
        return "<div class=\"card verdict\"><p><strong>Calm where it matters.</strong> What was added sways by " +
               figures + ". The limits are " + limits + ".</p></div>\n";
    }
    return "<div class=\"card verdict warning\"><p><strong>This may make people sick.</strong> What was added sways "
           "by " +
           figures + ", beyond " + limits +
           ". Slow sway of the whole picture does it soonest: lower the slow layers, or " +
           "raise the speed.</p></div>\n";
}

std::string Figure(const std::string &content, const char *caption) {
    return "<figure class=\"card\">" + content + "<figcaption>" + caption + "</figcaption></figure>\n";
}

std::string Drawing(const ReportContents::Drawing &drawing, const char *words) {
    const std::string kind = "data:image/svg+xml;base64,";
    return "<picture><source media=\"(prefers-color-scheme: dark)\" srcset=\"" + kind + Base64(drawing.dark) +
           "\"><img alt=\"" + words + "\" src=\"" + kind + Base64(drawing.light) + "\"></picture>";
}

std::string SettingsTable(const ReportContents &contents) {
    if (contents.settings.empty()) return "<p>All settings are at their defaults.</p>\n";
    std::string text =
        "<div class=\"card\"><table class=\"words\"><thead><tr><th>Setting</th><th>Value</th><th>Default</th>"
        "</tr></thead><tbody>";
    for (const ReportContents::Setting &setting : contents.settings) {
        text += "<tr><th>" + EscapedHtml(setting.label) + "</th>" + Cell(EscapedHtml(setting.value)) +
                Cell(EscapedHtml(setting.usual)) + "</tr>";
    }
    return text + "</tbody></table></div>\n";
}

std::string ShutterRow(const char *title, const Deviation &deviation) {
    return "<tr><th>" + std::string(title) + ", px</th>" + Cell(ThreeDigits(deviation.rms)) +
           Cell(ThreeDigits(deviation.peak)) + Cell(std::to_string(deviation.peak_frame)) + "</tr>";
}

std::string JudgementParts(const Judgement &judgement) {
    std::string text;
    if (judgement.shutter) {
        text +=
            "<h2>Through a rolling shutter</h2>\n<div class=\"card\"><table class=\"figures\"><thead><tr><th></th>"
            "<th>RMS</th><th>peak</th><th>at frame</th></tr></thead><tbody>" +
            ShutterRow("leans", judgement.shutter->shear) + ShutterRow("stretches", judgement.shutter->stretch) +
            "</tbody></table></div>\n<p>Of a picture " + std::to_string(judgement.width) +
            " pixels wide whose lines are read within " + ThreeDigits(judgement.readout) +
            " milliseconds, over its whole height, with the input's own turning.</p>\n";
    }
    if (judgement.distance) {
        text +=
            "<h2>Beside a recording</h2>\n<p>From " + EscapedHtml(judgement.recording) +
            " the shake is as far as <strong>D " + ThreeDigits(*judgement.distance) +
            "</strong>: the mean, over axes and bands, of what their RMS differ by, as natural logarithms. 0 is the "
            "same, 0.7 twice or half.</p>\n";
    }
    return text;
}

}  // namespace

std::string ReportPage(const ReportContents &contents) {
    const CameraMove &output = contents.motion.output;
    const double seconds = static_cast<double>(output.samples.size()) / output.rate.PerSecond();
    std::string text =
        HtmlHead(contents.title, kReportStyle) + "<main>\n<h1>" + EscapedHtml(contents.title) + "</h1>\n";
    text += "<p>Frames " + std::to_string(output.first_frame) + " to " + std::to_string(output.LastFrame()) + " at " +
            FrameRateText(output.rate) + " frames a second, " + ThreeDigits(seconds) + " seconds. " +
            (contents.preset.empty() ? "" : "Preset: " + EscapedHtml(contents.preset) + ". ") +
            std::to_string(contents.motion.jolts.size()) + (contents.motion.jolts.size() == 1 ? " jolt." : " jolts.") +
            "</p>\n" + Verdict(contents.added);
    text += "<h2>Preview</h2>\n" + Figure("<video controls loop muted playsinline src=\"data:video/mp4;base64," +
                                              Base64(contents.film) + "\"></video>",
                                          "Grey: the input camera. Orange: the shaken camera.");
    text += "<h2>What was added to the camera</h2>\n<div class=\"card\">" + ChannelTable(contents.added.camera) +
            "</div>\n<p>The camera turns by " + ThreeDigits(contents.added.turn_rms) + " degrees a second RMS, " +
            ThreeDigits(contents.added.turn_peak) + " at most, about any axis and with the input's own turning.</p>\n";
    text += "<h2>What that does to the picture</h2>\n<div class=\"card\">" + ChannelTable(contents.added.picture) +
            "</div>\n<p>How far the point in focus leaves the middle of a picture " +
            std::to_string(contents.picture_width) + " pixels wide.</p>\n";
    text += JudgementParts(contents.judgement);
    text +=
        "<h2>Both cameras over time</h2>\n" +
        Figure(Drawing(contents.plots, "Position, angles, focal length and focus distance over time"),
               "Grey: the input camera. Orange: the shaken camera, and below it what was added. Dashed blue: jolts.");
    text += "<h2>From above, and by frequency</h2>\n" +
            Figure(Drawing(contents.spectra, "The path from above, and what was added by frequency"),
                   "Below: the RMS of what was added, in thirds of octaves.");
    text += "<h2>Settings that differ from their defaults</h2>\n" + SettingsTable(contents);
    text += "<p class=\"made\">" + EscapedHtml(contents.made_by) + "</p>\n";
    return text + "</main>\n</html>\n";
}

}  // namespace tremolux
