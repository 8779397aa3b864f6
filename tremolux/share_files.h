// What shells and the manual read of the program.
#pragma once

#include "tremolux/command_line.h"
#include "tremolux/commands/commands.h"

namespace tremolux {

// Adds a hidden command that writes them.
void AddShareFilesCommand(const CommandLine &line, Action *action);

}  // namespace tremolux
