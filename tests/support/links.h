// Symbolic links, where the system has them.
#pragma once

#include <filesystem>

namespace test_support {

// Windows has them only for some users, and Wine not at all; on any other system a link that cannot be made is a
// failure.
inline bool CanLink([[maybe_unused]] const std::filesystem::path &folder) {
#ifdef _WIN32
    std::error_code error;
    const std::filesystem::path link = folder / "link of a test";
    std::filesystem::create_symlink(folder, link, error);
    if (error) return false;
    std::filesystem::remove(link, error);
#endif
    return true;
}

}  // namespace test_support
