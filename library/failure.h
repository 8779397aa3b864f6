// What ends the program early: one line for the user, and the exit status.
#pragma once

#include <stdexcept>
#include <string>

namespace tremolux {

enum ExitStatus : int {
    kExitInternal = 1,
    kExitInput = 2,   // the command line, or a file that was read
    kExitModule = 3,  // the module could not be loaded, or gave up
    kExitOutput = 4,  // a result could not be written
    kExitInterrupted = 130
};

class Failure : public std::runtime_error {
  public:
    Failure(ExitStatus status, const std::string &line) : std::runtime_error(line), status_(status) {}
    ExitStatus Status() const { return status_; }

  private:
    ExitStatus status_;
};

}  // namespace tremolux
