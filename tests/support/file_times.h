// When files and folders were changed, as tests want it.
#pragma once

#include <filesystem>
#include <system_error>

namespace test_support {

// Some systems let nobody set a folder's time: there it is the one that it has.
inline void SetTime(const std::filesystem::path &path, std::filesystem::file_time_type time) {
    std::error_code refused;
    std::filesystem::last_write_time(path, time, refused);
}

}  // namespace test_support
