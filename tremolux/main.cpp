#include "host/services/platform.h"
#include "tremolux/program.h"

int main(int argc, char **argv) {
    host::MakeStandardStreamsBinary();
    std::vector<std::string> arguments = host::ProgramArguments(argc, argv);
    if (!arguments.empty()) arguments.erase(arguments.begin());
    return tremolux::RunProgram(arguments);
}
