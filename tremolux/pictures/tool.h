// Other programs that draw and encode.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "host/services/child_process.h"
#include "tremolux/process/temporary_folder.h"

namespace tremolux {

// A program that reads from this one and leaves a file.
class Tool {
  public:
    // Starts it; `folder` takes what it says. `package` is where it comes from. Throws a Failure when it is missing.
    Tool(const std::vector<std::string> &command, const char *package, const TemporaryFolder &folder);
    // Throws a Failure when the program has given up.
    void Write(std::string_view bytes);
    // Waits for the program, and meanwhile calls `meanwhile` with what it has written to its standard output; then the
    // same as Finish. What that throws ends the program.
    std::string FinishWith(const std::function<void(const std::string &)> &meanwhile);
    // Waits for the program; what it wrote to its standard output. Throws a Failure, with what the program said, when
    // it failed.
    std::string Finish();

  private:
    [[noreturn]] void Fail() const;
    const std::string name_;
    const std::filesystem::path out_, err_;
    host::ChildProcess process_;
};

}  // namespace tremolux
