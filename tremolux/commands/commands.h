// The program's commands. Each adds itself to the command line; what it does throws a Failure.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>

namespace tremolux {

using Action = std::function<void()>;

// Sets `action` when the command line asks for the command.
void AddShakeCommand(CLI::App *program, Action *action);
void AddConvertCommand(CLI::App *program, Action *action);
void AddPreviewCommand(CLI::App *program, Action *action);
void AddReportCommand(CLI::App *program, Action *action);
void AddBatchCommand(CLI::App *program, Action *action);
void AddTraceCommand(CLI::App *program, Action *action);
void AddPanelCommand(CLI::App *program, Action *action);
void AddPresetsCommand(CLI::App *program, Action *action);
// press, bake, apply and keys, on saved scenes
void AddSceneCommands(CLI::App *program, Action *action);
void AddInfoCommand(CLI::App *program, Action *action);

}  // namespace tremolux
