// Runs the built program as a user would, with a settings folder of its own.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/temporary_folder.h"

namespace program_test {

struct Outcome {
    int status = -1;
    std::string out, err;
};

// A folder that goes with the object.
class Workplace {
  public:
    std::string Path(const std::string &name) const { return (folder_ / name).string(); }
    // Its path.
    std::string Write(const std::string &name, const std::string &text) const {
        return folder_.Write(name, text).string();
    }
    // "(missing)" when it is not there.
    std::string Read(const std::string &name) const { return folder_.Read(name); }
    // Sorted.
    std::vector<std::string> Names() const { return folder_.Names(); }

    // Unless the arguments say otherwise, with settings apart from the files, so that Names shows what the program left
    // among them, and with a module that has no presets: a new tag is at its defaults.
    Outcome Run(const std::vector<std::string> &arguments) const;
    // As the arguments are, with the text at the standard input.
    Outcome RunBare(const std::vector<std::string> &arguments, const std::string &input = "") const;
    const std::filesystem::path &Settings() const { return settings_.Path(); }

  private:
    test_support::TemporaryFolder folder_, settings_;
};

}  // namespace program_test
