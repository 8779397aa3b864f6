// What ends the program early: one line for the user, and the exit status.
#pragma once

#include <stdexcept>
#include <string>

namespace tremolux {

enum ExitStatus : int {
    kExitSuccess = 0,
    kExitInternal = 1,
    kExitInput = 2,
    kExitModule = 3,
    kExitOutput = 4,
    kExitInterrupted = 130
};

struct ExitMeaning {
    ExitStatus status;
    const char *words;
};
// As a user reads them; every status once.
inline constexpr ExitMeaning kExitMeanings[] = {{kExitSuccess, "everything was done"},
                                                {kExitInternal, "an error of the program itself"},
                                                {kExitInput, "the command line, or a file that was read"},
                                                {kExitModule, "the module could not be loaded, or gave up"},
                                                {kExitOutput, "a result could not be written"},
                                                {kExitInterrupted, "interrupted with Ctrl-C"}};

class Failure : public std::runtime_error {
  public:
    Failure(ExitStatus status, const std::string &line) : std::runtime_error(line), status_(status) {}
    ExitStatus Status() const { return status_; }

  private:
    ExitStatus status_;
};

}  // namespace tremolux
