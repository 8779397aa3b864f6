#include "tests/program/run.h"

#include <algorithm>

#include "tests/support/process.h"

namespace program_test {

namespace fs = std::filesystem;

Outcome Workplace::Run(const std::vector<std::string> &arguments) const {
    std::vector<std::string> command = arguments;
    if (!arguments.empty() && arguments.front().rfind("--", 0) != 0) {
        const auto add = [&](const char *option, const std::string &value) {
            if (std::find(arguments.begin(), arguments.end(), option) == arguments.end())
                command.insert(command.end(), {option, value});
        };
        add("--user-folder", (settings_ / "home").string());
        add("--module", TREMOLUX_MODULE_FILE);
    }
    return RunBare(command);
}

Outcome Workplace::RunBare(const std::vector<std::string> &arguments, const std::string &input) const {
    const fs::path out = settings_ / "out.txt", err = settings_ / "err.txt";
    std::vector<std::string> command = {TREMOLUX_PROGRAM_FILE};
    command.insert(command.end(), arguments.begin(), arguments.end());
    const int status = test_support::RunProcess(command, out, err, input);
    return {status, test_support::BytesOf(out), test_support::BytesOf(err)};
}

}  // namespace program_test
