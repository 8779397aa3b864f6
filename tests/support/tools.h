// Programs of others that draw and encode.
#pragma once

#include <filesystem>
#include <string>

#include "tests/support/process.h"

namespace test_support {

// Windows has gnuplot and ffmpeg for some users only, and Wine not at all; on any other system, where script/setup
// installs them, one that is missing is a failure of what it draws.
inline bool CanRun([[maybe_unused]] const std::string &tool, [[maybe_unused]] const std::filesystem::path &folder) {
#ifdef _WIN32
    return RunProcess({tool, tool == "ffmpeg" ? "-version" : "--version"}, folder / "out", folder / "err") == 0;
#else
    return true;
#endif
}

}  // namespace test_support
