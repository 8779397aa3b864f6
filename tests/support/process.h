// Other programs, run to their end.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "host/services/child_process.h"

namespace test_support {

// The program and its arguments, with nothing to read; what it says goes to the two files. Its exit status; -1 when it
// cannot be run or ends by a signal.
inline int RunProcess(const std::vector<std::string> &command, const std::filesystem::path &out,
                      const std::filesystem::path &err) {
    host::ChildProcess process;
    return process.Start(command, out, err) ? process.Finish() : -1;
}

}  // namespace test_support
