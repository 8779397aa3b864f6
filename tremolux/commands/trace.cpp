#include <optional>

#include "library/trace/frame_record.h"
#include "tremolux/commands/commands.h"
#include "tremolux/commands/playback.h"
#include "tremolux/process/output_files.h"

namespace tremolux {
namespace {

struct TraceOptions {
    MoveOptions move;
    std::vector<std::string> outputs;  // at most one; none: the standard output
};

// Text that is not UTF-8 must not break the line.
std::string JsonLine(const Json &record) { return record.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n"; }

void Trace(const TraceOptions &options) {
    Playback playback(options.move);
    OutputFiles files(options.outputs, options.move.InputFiles());
    playback.Start();
    SayBeyondSliders(playback.Settings(), playback.Rate().Whole(), playback.GetStage().CameraTag());
    PrivateState state(playback.GetStage().CameraTag());
    std::string text;
    playback.Play([&](std::int64_t frame) {
        const std::string line = JsonLine(FrameRecord(frame, &playback.GetStage(), &state));
        if (options.outputs.empty()) {
            Print(line);
        } else {
            text += line;
        }
    });
    if (!options.outputs.empty()) files.Write({text});
}

}  // namespace

void AddTraceCommand(Command program, Action *action) {
    const auto options = std::make_shared<TraceOptions>();
    Command command = program.Subcommand("trace", "Prints what happens at each frame, one JSON object a line");
    AddMoveOptions(command, &options->move);
    AddInputFormat(command, &options->move.formats);
    AddTableName(command, &options->move.formats.table);
    command.Add("-o,--output", &options->outputs, "file to write; else the standard output").Once();
    command.OnCall([=] { *action = [options] { Trace(*options); }; });
}

}  // namespace tremolux
