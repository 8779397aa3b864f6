// The command line.
#pragma once

namespace tremolux {

// Does what the arguments ask for; the exit status. Whatever goes wrong is one line on the standard error output.
int RunProgram(int argc, char **argv);

}  // namespace tremolux
