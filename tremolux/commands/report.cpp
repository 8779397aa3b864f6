#include "generated/module_version.h"
#include "host/value/descid.h"
#include "host/value/text.h"
#include "library/failure.h"
#include "library/formats/source_text.h"
#include "library/parameters/parameter.h"
#include "tremolux/commands/commands.h"
#include "tremolux/commands/judging_options.h"
#include "tremolux/commands/playback.h"
#include "tremolux/pictures/film.h"
#include "tremolux/pictures/plot.h"
#include "tremolux/pictures/report_page.h"
#include "tremolux/process/interrupt.h"
#include "tremolux/process/output_files.h"
#include "tremolux/process/progress.h"
#include "tremolux/process/streams.h"

namespace tremolux {
namespace {

struct ReportOptions {
    MoveOptions move;
    JudgingChoices judging;
    std::string output;
    std::string command_line;
};

// Against the defaults that the parameters declare; where one declares none, against a new tag.
std::vector<ReportContents::Setting> Differences(host::Tag *tag) {
    CameraMove still;
    still.samples.emplace_back();
    const Stage fresh(still);
    for (const Parameter &parameter : DescribedParameters(fresh.CameraTag())) {
        if (parameter.usual) fresh.CameraTag().SetParameter(host::MakeId(parameter.id), *parameter.usual);
    }
    const std::vector<ShownValue> usual = PanelValues(&fresh.CameraTag()), now = PanelValues(tag);
    std::vector<ReportContents::Setting> settings;
    for (const ShownValue &value : now) {
        for (const ShownValue &old : usual) {
            if (old.id == value.id && old.value != value.value)
                settings.push_back({value.label, value.value, old.value});
        }
    }
    return settings;
}

void CheckPageName(const std::filesystem::path &file) {
    const std::string extension = host::PathText(file.extension());
    if (extension == ".html") return;
    throw Failure(kExitInput, host::PathText(file) + ": found the extension " + Quoted(extension) + ", expected .html");
}

void Report(const ReportOptions &options) {
    if (!IsStream(options.output)) CheckPageName(std::filesystem::u8path(options.output));
    Playback playback(options.move);
    JudgingChoices judging = options.judging;
    ReportContents contents;
    contents.judgement = judging.Read(playback.Formats());
    OutputFiles files({options.output}, options.move.InputFiles());
    playback.Start();
    SayBeyondSliders(playback.Settings(), playback.Rate().Whole(), playback.GetStage().CameraTag());
    contents.title = std::filesystem::u8path(options.move.input).filename().u8string();
    contents.preset = playback.Preset();
    contents.motion = playback.Record();
    judging.Judge(contents.motion, &contents.judgement);
    contents.picture_width = playback.Formats().width;
    contents.settings = Differences(&playback.GetStage().CameraTag());
    contents.added = MeasureAddedMotion(contents.motion.input, contents.motion.output, contents.picture_width);
    for (const bool dark : {false, true}) {
        const PlotLook look{PlotFormat::kSvg, TitleOf(playback), dark, playback.Jolts().curve};
        (dark ? contents.plots.dark : contents.plots.light) = DrawMotion(contents.motion, look);
        (dark ? contents.spectra.dark : contents.spectra.light) = DrawSpectrum(contents.motion, contents.added, look);
    }
    contents.made_by = "Made by: " + options.command_line + " (TremoluxCam " + TREMOLUX_VERSION_TEXT + ")";
    Progress progress(static_cast<std::int64_t>(contents.motion.output.samples.size()), options.move.quiet);
    contents.film =
        MakeFilm(contents.motion, FilmFormat::kMp4,
                 {PreviewSize(playback.Formats().width, playback.Formats().height), false, CaptionOf(playback)},
                 [&](std::int64_t frames) {
                     CheckForInterrupt();
                     progress.Done(frames);
                 });
    files.Write({ReportPage(contents)});
}

// As a shell takes it.
std::string CommandLineOf(const std::vector<std::string> &arguments) {
    std::string line = "tremolux";
    for (const std::string &argument : arguments) {
        const bool is_plain = !argument.empty() && argument.find_first_of(" \t\"'$&|;<>()*?!`\\") == std::string::npos;
        line += " ";
        if (is_plain) {
            line += argument;
            continue;
        }
        line += "'";
        for (const char c : argument) line += c == '\'' ? "'\\''" : std::string(1, c);
        line += "'";
    }
    return line;
}

}  // namespace

void AddReportCommand(Command program, const std::vector<std::string> &arguments, Action *action) {
    const auto options = std::make_shared<ReportOptions>();
    options->command_line = CommandLineOf(arguments);
    Command command = program.Subcommand(
        "report", "Writes one page about a shaken move: figures, plots, a preview, and a warning of slow sway");
    AddMoveOptions(command, &options->move);
    AddDirectionOptions(command, &options->move.direction);
    AddJudgingOptions(command, &options->judging);
    AddInputFormat(command, &options->move.formats);
    AddTableName(command, &options->move.formats.table);
    command.Add("-o,--output", &options->output, "page to write, .html").Required();
    command.OnCall([=] { *action = [options] { Report(*options); }; });
}

}  // namespace tremolux
