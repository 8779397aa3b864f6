// Programs of others that draw, encode, listen and read.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <utility>

#include "tests/support/process.h"

namespace test_support {

// Debian's package of a program: mostly of the same name.
inline std::string PackageOf(const std::string &tool) {
    for (const auto &[program, package] : {std::pair("aubioonset", "aubio-tools"), std::pair("gnuplot", "gnuplot-nox"),
                                           std::pair("groff", "groff-base")})
        if (tool == program) return package;
    return tool;
}

inline bool IsInPath(const std::string &tool) {
    const char *path = std::getenv("PATH");
    std::istringstream folders(path != nullptr ? path : "");
    for (std::string folder; std::getline(folders, folder, ':');)
        if (std::filesystem::exists(std::filesystem::path(folder) / tool)) return true;
    return false;
}

// Windows has them for some users only, and Wine not at all. On any other system script/setup installs them, and one
// that is missing fails the test that asks.
inline bool CanRun(const std::string &tool, [[maybe_unused]] const std::filesystem::path &folder) {
#ifdef _WIN32
    return RunProcess({tool, tool == "ffmpeg" ? "-version" : "--version"}, folder / "out", folder / "err") == 0;
#else
    if (!IsInPath(tool)) ADD_FAILURE() << tool << " is missing: install " << PackageOf(tool) << ", or run script/setup";
    return true;
#endif
}

}  // namespace test_support
