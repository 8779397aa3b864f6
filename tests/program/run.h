// Runs the built program as a user would, with a settings folder of its own.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace program_test {

struct Outcome {
    int status = -1;
    std::string out, err;
};

// A folder that goes with the object.
class Workplace {
  public:
    Workplace();
    ~Workplace();
    Workplace(const Workplace &) = delete;
    Workplace &operator=(const Workplace &) = delete;
    std::string Path(const std::string &name) const { return (folder_ / name).string(); }
    std::string Write(const std::string &name, const std::string &text) const;  // its path
    std::string Read(const std::string &name) const;                            // "(missing)" when it is not there
    std::vector<std::string> Names() const;                                     // sorted

    // Unless the arguments say otherwise, with settings apart from the files, so that Names shows what the program left
    // among them, and with a module that has no presets: a new tag is at its defaults.
    Outcome Run(const std::vector<std::string> &arguments) const;
    // As the arguments are.
    Outcome RunBare(const std::vector<std::string> &arguments) const;
    const std::filesystem::path &Settings() const { return settings_; }

  private:
    std::filesystem::path folder_, settings_;
};

}  // namespace program_test
