// Symbolic links, where the system has them.
#pragma once

#include <filesystem>

namespace test_support {

// Whether a link can be made: some systems have none, or leave them to the administrator.
inline bool CanLink(const std::filesystem::path &folder) {
    std::error_code error;
    const std::filesystem::path link = folder / "link of a test";
    std::filesystem::create_symlink(folder, link, error);
    if (error) return false;
    std::filesystem::remove(link, error);
    return true;
}

}  // namespace test_support
