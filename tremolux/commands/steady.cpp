#include <filesystem>
#include <memory>

#include "library/formats/numbers.h"
#include "library/recorded/split.h"
#include "tremolux/commands/commands.h"
#include "tremolux/commands/move_options.h"
#include "tremolux/commands/option_values.h"
#include "tremolux/process/output_files.h"

namespace tremolux {
namespace {

constexpr double kMostKept = 2, kLeastSplit = 0.01;

struct SteadyOptions {
    FormatChoices formats;
    std::string input, keep = "0", split = "0.3", frames;
    std::vector<std::string> outputs;
};

// "30%", "0.3"; up to twice.
double KeptShare(const std::string &text) {
    const bool is_percent = !text.empty() && text.back() == '%';
    const std::string number = is_percent ? text.substr(0, text.size() - 1) : text;
    const double most = is_percent ? 100 * kMostKept : kMostKept;
    const std::optional<double> value = ParseNumber(number);
    if (!value || *value < 0 || *value > most) RefuseOption("--keep", text, "a share from 0 to 2, or 0 to 200%");
    return is_percent ? *value / 100 : *value;
}

void Steady(const SteadyOptions &options) {
    FormatOptions formats = options.formats.Options();
    formats.frames = FramesOption(options.frames);
    const double keep = KeptShare(options.keep);
    OutputFiles files(options.outputs, {options.input});
    std::vector<std::filesystem::path> names;
    for (const std::string &file : options.outputs) {
        names.push_back(options.formats.OutputName(file));
        FormatOf(names.back(), FormatUse::kWrite);
    }
    const CameraMove move = ReadMoveFile(options.input, formats);
    const double split = NumberOption("--split", options.split, kLeastSplit, move.rate.PerSecond() / 2);
    const CameraMove steadied = Joined(Split(move, split), keep);
    std::vector<std::string> texts;
    texts.reserve(names.size());
    for (const std::filesystem::path &name : names) texts.push_back(TextForFile(name, steadied, formats));
    files.Write(texts);
}

}  // namespace

void AddSteadyCommand(Command program, Action *action) {
    const auto options = std::make_shared<SteadyOptions>();
    Command command = program.Subcommand("steady", "Makes a tracked or recorded move shake less, or more");
    command.Add("INPUT", &options->input, "camera file to read, " + KnownExtensions(FormatUse::kRead)).Required();
    command
        .Add("-o,--output", &options->outputs,
             "camera file to write, " + KnownExtensions(FormatUse::kWrite) + "; may be given again")
        .Required()
        .Repeatable();
    command
        .Add("--keep", &options->keep,
             "how much of the shake stays, 0 to 200%: 0 is the slow path alone, 100% the move as it is")
        .ShowDefault();
    command
        .Add("--split", &options->split,
             "hertz: what is quicker is shake, what is slower the way that was meant; at most half the frame rate")
        .ShowDefault();
    command.Add("--frames", &options->frames,
                "FIRST:LAST: of a camera that stands still in its file, those that there are");
    AddFormatOptions(command, &options->formats);
    AddStreamFormats(command, &options->formats);
    command.OnCall([=] { *action = [options] { Steady(*options); }; });
}

}  // namespace tremolux
