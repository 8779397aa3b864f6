// A folder that goes with the object.
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "host/services/platform.h"

namespace host::testing {

class TemporaryFolder {
  public:
    TemporaryFolder() {
        static int count = 0;
        path_ = std::filesystem::temp_directory_path() /
                ("tremolux-host-" + std::to_string(ProcessId()) + "-" + std::to_string(count++));
        std::filesystem::create_directories(path_);
    }
    ~TemporaryFolder() { std::filesystem::remove_all(path_); }
    TemporaryFolder(const TemporaryFolder &) = delete;
    TemporaryFolder &operator=(const TemporaryFolder &) = delete;

    const std::filesystem::path &Path() const { return path_; }
    std::filesystem::path operator/(const std::string &name) const { return path_ / name; }
    std::filesystem::path Write(const std::string &name, const std::string &bytes) const {
        std::ofstream(path_ / name, std::ios::binary) << bytes;
        return path_ / name;
    }
    std::string Read(const std::string &name) const {
        std::ifstream in(path_ / name, std::ios::binary);
        std::ostringstream bytes;
        bytes << in.rdbuf();
        return in ? bytes.str() : "(missing)";
    }
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

}  // namespace host::testing
