#include "library/failure.h"
#include "library/formats/source_text.h"
#include "library/moves/cut.h"
#include "tremolux/commands/commands.h"
#include "tremolux/commands/move_options.h"
#include "tremolux/process/output_files.h"

namespace tremolux {
namespace {

struct ConvertOptions {
    std::string input;
    std::vector<std::string> outputs, more_outputs;  // by option, and as arguments
    FormatChoices formats;
    std::string frames;
    std::string to_unit, to_order, to_axes;  // empty: as they are read
};

CameraMove AskedFrames(const CameraMove &move, const std::string &frames) {
    const FrameNumbers range = FramesOption(frames);
    if (!range) return move;
    if (range->first < move.first_frame || range->second > move.LastFrame()) {
        throw Failure(kExitInput, "--frames: found " + Quoted(frames) + ", expected frames of the move, " +
                                      std::to_string(move.first_frame) + " to " + std::to_string(move.LastFrame()));
    }
    return CutMove(move, range->first, range->second);
}

void Convert(const ConvertOptions &options) {
    FormatOptions from = options.formats.Options();
    from.frames = FramesOption(options.frames);
    FormatChoices choices = options.formats;
    if (!options.to_unit.empty()) choices.unit = options.to_unit;
    if (!options.to_order.empty()) choices.rotation_order = options.to_order;
    choices.table = {};
    choices.table.axes = options.to_axes.empty() ? options.formats.table.axes : options.to_axes;
    const FormatOptions to = choices.Options();
    if (options.outputs.empty() && options.more_outputs.empty())
        throw Failure(kExitInput, "convert: found no output, expected -o FILE");
    std::vector<std::string> outputs = options.outputs;
    outputs.insert(outputs.end(), options.more_outputs.begin(), options.more_outputs.end());
    OutputFiles files(outputs, {options.input});
    std::vector<std::filesystem::path> names;
    names.reserve(outputs.size());
    for (const std::string &file : outputs) names.push_back(choices.OutputName(file));
    for (const std::filesystem::path &name : names) FormatOf(name, FormatUse::kWrite);
    const CameraMove move = AskedFrames(ReadMoveFile(options.input, from), options.frames);
    std::vector<std::string> texts;
    texts.reserve(names.size());
    for (const std::filesystem::path &name : names) texts.push_back(TextForFile(name, move, to));
    files.Write(texts);
}

}  // namespace

void AddConvertCommand(Command program, Action *action) {
    const auto options = std::make_shared<ConvertOptions>();
    Command command = program.Subcommand("convert", "Writes a camera file as files of other kinds");
    command.Add("INPUT", &options->input, "camera file to read, " + KnownExtensions(FormatUse::kRead)).Required();
    command.Add("OUTPUT", &options->more_outputs, "the same as -o");
    command
        .Add("-o,--output", &options->outputs,
             "camera file to write, " + KnownExtensions(FormatUse::kWrite) + "; may be given again")
        .Repeatable();
    AddFormatOptions(command, &options->formats);
    AddStreamFormats(command, &options->formats);
    command.Add("--frames", &options->frames,
                "FIRST:LAST: the frames to write; of a camera that stands still in its file, those that there are");
    AddTableName(command, &options->formats.table);
    command.Add("--to-unit", &options->to_unit, "length unit of a file that is written and states none; else --unit");
    command.Add("--to-axes", &options->to_axes, "axes of a .chan file that is written; else --axes");
    command.Add("--to-rotation-order", &options->to_order,
                "rotation order of a .chan file that is written; else --rotation-order");
    command.OnCall([=] { *action = [options] { Convert(*options); }; });
}

}  // namespace tremolux
