// A folder that goes with the object.
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "host/files/folders.h"

namespace test_support {

// The bytes of a file; "(missing)" when it is not there.
inline std::string BytesOf(const std::filesystem::path &file) {
    std::ifstream in(file, std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return in ? bytes.str() : "(missing)";
}

class TemporaryFolder {
  public:
    // Tests run side by side, in several processes.
    TemporaryFolder() {
        std::random_device random;
        path_ = std::filesystem::temp_directory_path() /
                ("tremolux-test-" + std::to_string(random()) + std::to_string(random()));
        std::filesystem::create_directories(path_);
    }
    // What lies in it may be write-protected.
    ~TemporaryFolder() { host::RemoveFile(path_, host::kRemoveFolder | host::kRemoveRecursive); }
    TemporaryFolder(const TemporaryFolder &) = delete;
    TemporaryFolder &operator=(const TemporaryFolder &) = delete;

    const std::filesystem::path &Path() const { return path_; }
    std::filesystem::path operator/(const std::string &name) const { return path_ / name; }
    std::filesystem::path Write(const std::string &name, const std::string &bytes) const {
        std::ofstream(path_ / name, std::ios::binary) << bytes;
        return path_ / name;
    }
    std::string Read(const std::string &name) const { return BytesOf(path_ / name); }
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto &entry : std::filesystem::directory_iterator(path_))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

  private:
    std::filesystem::path path_;
};

}  // namespace test_support
