#include "tremolux/program.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <exception>
#include <string>

#include "tremolux/commands/commands.h"
#include "tremolux/failure.h"
#include "tremolux/process/interrupt.h"

namespace tremolux {
namespace {

int Complain(int status, std::string line) {
    for (char &c : line) {
        if (c == '\n' || c == '\r') c = ' ';
    }
    std::fprintf(stderr, "%s\n", line.c_str());
    return status;
}

}  // namespace

int RunProgram(std::vector<std::string> arguments) {
    CLI::App program{"Makes camera moves hand-held with the TremoluxCam module, in an embedded host.", "tremolux"};
    program.require_subcommand(1);
    program.allow_windows_style_options(false);  // a path may begin with "/" there too
    Action action;
    AddShakeCommand(&program, &action);
    AddConvertCommand(&program, &action);
    AddPreviewCommand(&program, &action);
    AddReportCommand(&program, &action);
    AddBatchCommand(&program, &action);
    AddTraceCommand(&program, &action);
    AddPanelCommand(&program, &action);
    AddPresetsCommand(&program, &action);
    AddSceneCommands(&program, &action);
    AddInfoCommand(&program, &action);
    try {
        std::reverse(arguments.begin(), arguments.end());  // as the parser takes them
        program.parse(arguments);
        WatchForInterrupt();
        action();
        return 0;
    } catch (const CLI::ParseError &error) {
        if (error.get_exit_code() == 0) return program.exit(error);  // help was asked for
        return Complain(kExitInput, std::string("tremolux: ") + error.what());
    } catch (const Failure &failure) {
        return Complain(failure.Status(), failure.what());
    } catch (const std::exception &error) {
        return Complain(kExitInternal, std::string("tremolux: ") + error.what());
    }
}

}  // namespace tremolux
