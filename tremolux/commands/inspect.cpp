#include "library/failure.h"
#include "tremolux/commands/commands.h"
#include "tremolux/commands/move_options.h"
#include "tremolux/commands/option_values.h"
#include "tremolux/process/output_files.h"
#include "tremolux/process/streams.h"
#include "tremolux/words/inspect_text.h"
#include "tremolux/words/recorded_text.h"

namespace tremolux {
namespace {

struct InspectOptions {
    std::string input;
    FormatChoices formats;
    bool json = false;
    std::string samples;  // of a recording; empty: what is in the file
};

void Inspect(const InspectOptions &options) {
    if (!options.samples.empty() && !AreKnownSamples(options.samples))
        RefuseOption("--samples", options.samples, KnownSamples());
    const CameraMove move = ReadInput(options.input, options.formats.Options());
    if (!options.samples.empty() && !move.recorded)
        throw Failure(kExitInput,
                      options.input + ": found a camera move, expected a recording of a sensor for --samples");
    if (!options.samples.empty()) return Print(SamplesText(*move.recorded, options.samples));
    const std::filesystem::path file = NamedInput(options.input, options.formats.format);
    const InspectedFile inspected{options.input, FormatOf(file, FormatUse::kRead).extension, move};
    Print(options.json ? InspectJson(inspected) : InspectText(inspected));
}

}  // namespace

void AddInspectCommand(Command program, Action *action) {
    const auto options = std::make_shared<InspectOptions>();
    Command command =
        program.Subcommand("inspect", "Tells what is in a camera file, and what each format would lose of it");
    command.Add("INPUT", &options->input, "camera file to read, " + KnownExtensions(FormatUse::kRead)).Required();
    command.Add("--json", &options->json, "as one JSON object");
    command.Add("--samples", &options->samples,
                "of a sensor's recording, instead: a table of its samples on the picture's axes: " + KnownSamples());
    AddFormatOptions(command, &options->formats);
    AddInputFormat(command, &options->formats);
    command.OnCall([=] { *action = [options] { Inspect(*options); }; });
}

}  // namespace tremolux
