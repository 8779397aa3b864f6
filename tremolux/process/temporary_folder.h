// A place for files that nobody asked for.
#pragma once

#include <filesystem>

namespace tremolux {

// A folder for what other programs write, which goes with the object.
class TemporaryFolder {
  public:
    TemporaryFolder();  // throws a Failure
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder &) = delete;
    TemporaryFolder &operator=(const TemporaryFolder &) = delete;
    const std::filesystem::path &Path() const { return path_; }

  private:
    std::filesystem::path path_;
};

}  // namespace tremolux
