#include "tremolux/commands/commands.h"
#include "tremolux/commands/move_options.h"
#include "tremolux/process/output_files.h"

namespace tremolux {
namespace {

struct ConvertOptions {
    std::string input;
    std::vector<std::string> outputs;
    FormatChoices formats;
    std::string to_unit, to_order;  // empty: as they are read
};

void Convert(const ConvertOptions &options) {
    const FormatOptions from = options.formats.Options();
    FormatChoices choices = options.formats;
    if (!options.to_unit.empty()) choices.unit = options.to_unit;
    if (!options.to_order.empty()) choices.rotation_order = options.to_order;
    const FormatOptions to = choices.Options();
    OutputFiles files(options.outputs, {options.input});
    for (const std::filesystem::path &file : files.Files()) FormatOf(file, FormatUse::kWrite);
    const CameraMove move = ReadMove(std::filesystem::u8path(options.input), from);
    std::vector<std::string> texts;
    for (const std::filesystem::path &file : files.Files()) texts.push_back(TextForFile(file, move, to));
    files.Write(texts);
}

}  // namespace

void AddConvertCommand(Command program, Action *action) {
    const auto options = std::make_shared<ConvertOptions>();
    Command command = program.Subcommand("convert", "Writes a camera file as files of other kinds");
    command.Add("INPUT", &options->input, "camera file to read, " + KnownExtensions(FormatUse::kRead)).Required();
    command.Add("OUTPUT", &options->outputs, "camera file to write, " + KnownExtensions(FormatUse::kWrite)).Required();
    AddFormatOptions(command, &options->formats);
    command.Add("--to-unit", &options->to_unit, "length unit of a .chan file that is written; else --unit");
    command.Add("--to-rotation-order", &options->to_order,
                "rotation order of a .chan file that is written; else --rotation-order");
    command.OnCall([=] { *action = [options] { Convert(*options); }; });
}

}  // namespace tremolux
