// The program's commands. Each adds itself to the command line; what it does throws a Failure.
#pragma once

#include <functional>
#include <string>

#include "tremolux/command_line.h"

namespace tremolux {

using Action = std::function<void()>;

// Sets `action` when the command line asks for the command.
void AddShakeCommand(Command program, Action *action);
void AddConvertCommand(Command program, Action *action);
void AddInspectCommand(Command program, Action *action);
void AddImportCommand(Command program, Action *action);
void AddPreviewCommand(Command program, Action *action);
// Names the command line, whose arguments these are, in the report.
void AddReportCommand(Command program, const std::vector<std::string> &arguments, Action *action);
// Starts the program again, with the arguments and more.
void AddBatchCommand(Command program, const std::vector<std::string> &arguments, Action *action);
void AddTraceCommand(Command program, Action *action);
void AddPanelCommand(Command program, Action *action);
// Splits a move and scales its shake.
void AddSteadyCommand(Command program, Action *action);
// Fits a preset to a recording.
void AddFitCommand(Command program, Action *action);
// Among those of `presets`.
void AddNearestCommand(Command presets, Action *action);
void AddPresetsCommand(Command program, Action *action);
// press, bake, apply and keys, on saved scenes
void AddSceneCommands(Command program, Action *action);
void AddInfoCommand(Command program, Action *action);
// The program's version line and the module's; throws a Failure where no module can be loaded.
std::string VersionText();

}  // namespace tremolux
