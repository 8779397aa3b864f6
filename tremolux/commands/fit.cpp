#include "library/fit/fit.h"

#include <filesystem>
#include <memory>

#include "library/failure.h"
#include "library/fit/envelope.h"
#include "library/fit/nearest_presets.h"
#include "library/presets/pair.h"
#include "library/presets/saved_preset.h"
#include "library/shots/embedded_host.h"
#include "tremolux/commands/commands.h"
#include "tremolux/commands/move_options.h"
#include "tremolux/commands/option_values.h"
#include "tremolux/pictures/fit_plot.h"
#include "tremolux/pictures/gnuplot.h"
#include "tremolux/process/interrupt.h"
#include "tremolux/process/output_files.h"
#include "tremolux/process/progress.h"
#include "tremolux/process/streams.h"
#include "tremolux/process/temporary_folder.h"
#include "tremolux/words/fit_text.h"

namespace tremolux {
namespace {

constexpr std::int64_t kProgressSteps = 1000;

struct FitOptions {
    HostOptions host;
    FormatChoices formats;
    std::string recording, output, name, plot, envelope, frames, layers = "1";
    bool quiet = false, json = false;
};

// A part of the whole work, from one share of it to another.
std::function<void(double)> PartOfProgress(Progress *progress, double from, double to) {
    return [=](double share) {
        CheckForInterrupt();
        progress->Done(static_cast<std::int64_t>(kProgressSteps * (from + share * (to - from))));
    };
}

CameraMove ReadRecording(const FitOptions &options) {
    FormatOptions formats = options.formats.Options();
    formats.frames = FramesOption(options.frames);
    return ReadMoveFile(options.recording, formats);
}

// Fitted to each half, and judged by the other.
std::vector<double> JudgeByHalves(const RecordedShake &recorded, std::int64_t cameras,
                                  const std::function<void(double)> &progress) {
    std::vector<double> distances;
    if (recorded.Frames() < 2 * kLeastFrames) return distances;
    const RecordedShake halves[] = {HalfOf(recorded, false), HalfOf(recorded, true)};
    Fitter fitter(recorded.rate, halves[0].Frames(),
                  [&](double share) { progress((static_cast<double>(distances.size()) + share) / 2); });
    for (int half = 0; half < 2; ++half) {
        const ShakeLevels seen = halves[half].Levels();
        const ShakeLevels found = cameras == 1 ? fitter.Levels(fitter.Search(seen), kJudgedTakes)
                                               : fitter.Levels(fitter.FitPair(seen), kJudgedTakes);
        distances.push_back(DistanceOf(found, halves[1 - half].Levels()));
    }
    return distances;
}

void TellSettings(const ShakeSettings &settings, FitReport *report) { report->settings = SettingTexts(settings); }

void TellSettings(const PairSettings &settings, FitReport *report) {
    report->settings = SettingTexts(settings.first);
    report->second_settings = SettingTexts(settings.second);
}

// What the found settings, of one camera or two, play.
template <typename Found>
void Finish(Fitter *fitter, const Found &settings, FitReport *report, AxisMotion *take) {
    TellSettings(settings, report);
    report->after = fitter->Levels(settings, kJudgedTakes);
    report->after_seed = fitter->LevelsOfSeed(settings);
    *take = fitter->TakeOf(settings);
}

std::string NameOf(const FitOptions &options) {
    return options.name.empty() ? std::filesystem::u8path(options.output).stem().u8string() : options.name;
}

void Fit(const FitOptions &options) {
    std::vector<std::string> places = {options.output};
    PlotLook look;
    if (!options.plot.empty()) {
        look.format = PlotFormatOf(std::filesystem::u8path(options.plot));
        places.push_back(options.plot);
    }
    if (!options.envelope.empty()) places.push_back(options.envelope);
    OutputFiles files(places, {options.recording});
    if (!options.plot.empty()) RequireGnuplot();
    const std::int64_t cameras = WholeOption("--layers", options.layers, 1, 2);
    const CameraMove move = ReadRecording(options);
    const TemporaryFolder folder;
    FitReport report;
    report.recording = options.recording;
    report.preset = options.output;
    report.recorded = CutIntoParts(move, options.recording);
    report.wanted = report.recorded.Levels();
    AxisMotion take;
    {
        Progress progress(kProgressSteps, options.quiet);
        const EmbeddedHost host(options.host.ModuleFile(), folder.Path() / "fit");
        const std::vector<NearPreset> near =
            NearestPresets(report.recorded, host.ModuleFile(), PartOfProgress(&progress, 0, 0.3));
        if (!near.empty()) report.before = near.front();
        Fitter fitter(report.recorded.rate, report.recorded.Frames(), PartOfProgress(&progress, 0.3, 0.7));
        if (cameras == 1)
            Finish(&fitter, fitter.Fit(report.wanted), &report, &take);
        else
            Finish(&fitter, fitter.FitPair(report.wanted), &report, &take);
        report.halves = JudgeByHalves(report.recorded, cameras, PartOfProgress(&progress, 0.7, 1));
    }
    const auto saved = [&](const std::vector<std::string> &settings) {
        return SavedPreset(options.host.ModuleFile(), folder.Path() / "save", NameOf(options), settings,
                           report.recorded.rate.Whole());
    };
    host::Container preset = saved(report.settings);
    if (cameras == 2) preset = WithSecond(preset, saved(report.second_settings));
    std::vector<std::string> texts = {BytesOfPreset(preset)};
    if (!options.plot.empty()) {
        look.title = std::filesystem::u8path(options.recording).filename().u8string() + ", fitted";
        texts.push_back(DrawFit(report.recorded, take, look));
    }
    if (!options.envelope.empty()) texts.push_back(WriteEnvelope(MeasureEnvelope(move)));
    files.Write(texts);
    const std::string text = options.json ? FitJson(report) : FitText(report);
    if (files.HasStream())
        std::fputs(text.c_str(), stderr);
    else
        Print(text);
}

void Nearest(const FitOptions &options) {
    const CameraMove move = ReadRecording(options);
    const EmbeddedHost host(options.host.ModuleFile(), options.host.Home());
    std::vector<NearPreset> near;
    {
        Progress progress(kProgressSteps, options.quiet);
        near =
            NearestPresets(CutIntoParts(move, options.recording), host.ModuleFile(), PartOfProgress(&progress, 0, 1));
    }
    Print(options.json ? NearestJson(options.recording, near) : NearestText(near));
}

void AddRecording(Command command, FitOptions *options) {
    command.Add("RECORDING", &options->recording, "camera move that was recorded, " + KnownExtensions(FormatUse::kRead))
        .Required();
    command.Add("--frames", &options->frames, "FIRST:LAST: the frames to look at");
    AddFormatOptions(command, &options->formats);
    AddInputFormat(command, &options->formats);
    command.Add("--quiet", &options->quiet, "show no progress");
}

}  // namespace

void AddFitCommand(Command program, Action *action) {
    const auto options = std::make_shared<FitOptions>();
    Command command = program.Subcommand(
        "fit", "Finds the settings whose shake comes nearest to a recording, and saves them as a preset");
    AddRecording(command, options.get());
    command
        .Add("-o,--output", &options->output,
             "preset file to write; shake --preset takes it by its path, and presets import for good")
        .Required();
    command.Add("--name", &options->name, "the preset's name; else the file's");
    command
        .Add("--layers", &options->layers,
             "1, or 2: a second camera behind the first, for motion that one balance for all axes cannot make: walks, "
             "runs, "
             "vehicles")
        .ShowDefault();
    command.Add("--plot", &options->plot, "drawing of both spectra, and of a take of each, .svg or .png");
    command.Add(
        "--envelope", &options->envelope,
        "table, .csv, of how uneven the recording is over time, for shake --envelope: presets alone are a little too "
        "even");
    command.Add("--json", &options->json, "print what was found as one JSON object");
    AddHostOptions(command, &options->host);
    command.OnCall([=] { *action = [options] { Fit(*options); }; });
}

void AddNearestCommand(Command presets, Action *action) {
    const auto options = std::make_shared<FitOptions>();
    Command command = presets.Subcommand("nearest", "Lists the presets by how near their motion is to a recording");
    AddRecording(command, options.get());
    command.Add("--json", &options->json, "the list as one JSON object");
    AddHostOptions(command, &options->host);
    command.OnCall([=] { *action = [options] { Nearest(*options); }; });
}

}  // namespace tremolux
