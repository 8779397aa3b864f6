// Other programs, run to their end.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace test_support {

// The program and its arguments, UTF-8, without a shell in between; what it says goes to the two files. Its exit
// status; -1 when it cannot be run or ends by a signal.
int RunProcess(const std::vector<std::string> &command, const std::filesystem::path &out,
               const std::filesystem::path &err);

}  // namespace test_support
