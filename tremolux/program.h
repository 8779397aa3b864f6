// The command line.
#pragma once

#include <string>
#include <vector>

namespace tremolux {

// Does what the arguments, UTF-8 and without the program's name, ask for; the exit status. Whatever goes wrong is one
// line on the standard error output.
int RunProgram(const std::vector<std::string> &arguments);

}  // namespace tremolux
