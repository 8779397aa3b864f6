#include "tremolux/program.h"

#include <cstdio>
#include <exception>
#include <string>

#include "library/failure.h"
#include "tremolux/command_line.h"
#include "tremolux/commands/commands.h"
#include "tremolux/process/interrupt.h"
#include "tremolux/share_files.h"

namespace tremolux {
namespace {

constexpr std::size_t kExitCodeWidth = 6;

int Complain(int status, std::string line) {
    for (char &c : line) {
        if (c == '\n' || c == '\r') c = ' ';
    }
    std::fprintf(stderr, "%s\n", line.c_str());
    return status;
}

std::string ExitTable() {
    std::string text = "Exit codes:";
    for (const ExitMeaning &meaning : kExitMeanings) {
        std::string code = std::to_string(meaning.status);
        code.resize(kExitCodeWidth, ' ');
        text += "\n  " + code + meaning.words;
    }
    return text;
}

}  // namespace

int RunProgram(const std::vector<std::string> &arguments) {
    CommandLine line("tremolux", "Makes camera moves hand-held with the TremoluxCam module, in an embedded host.");
    line.OnVersion(VersionText);
    line.Footer(ExitTable());
    const Command program = line.Program();
    Action action;
    AddShakeCommand(program, &action);
    AddConvertCommand(program, &action);
    AddInspectCommand(program, &action);
    AddImportCommand(program, &action);
    AddPreviewCommand(program, &action);
    AddReportCommand(program, arguments, &action);
    AddBatchCommand(program, arguments, &action);
    AddTraceCommand(program, &action);
    AddPanelCommand(program, &action);
    AddPresetsCommand(program, &action);
    AddFitCommand(program, &action);
    AddSteadyCommand(program, &action);
    AddSceneCommands(program, &action);
    AddInfoCommand(program, &action);
    AddShareFilesCommand(line, &action);
    try {
        if (!line.Parse(arguments)) return 0;
        WatchForInterrupt();
        action();
        return 0;
    } catch (const Failure &failure) {
        return Complain(failure.Status(), failure.what());
    } catch (const std::exception &error) {
        return Complain(kExitInternal, std::string("tremolux: ") + error.what());
    }
}

}  // namespace tremolux
