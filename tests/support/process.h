// Other programs, run to their end.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "host/services/child_process.h"

namespace test_support {

// The program and its arguments, with `input` to read; what it says goes to the two files. Its exit status; -1 when it
// cannot be run or ends by a signal.
inline int RunProcess(const std::vector<std::string> &command, const std::filesystem::path &out,
                      const std::filesystem::path &err, std::string_view input = "") {
    host::ChildProcess process;
    if (!process.Start(command, out, err)) return -1;
    // A program may end without having read all of it.
    if (!input.empty()) process.Write(input);
    return process.Finish();
}

}  // namespace test_support
