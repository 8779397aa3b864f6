// Which of the module's operations is running.
#pragma once

#include <string>

namespace host {

// Exists while the host is inside of a call to the module; operations may be nested.
class Operation {
  public:
    enum Kind { kOrdinary, kEvaluation };
    // `name` must outlive it.
    explicit Operation(const char *name, Kind kind = kOrdinary);
    ~Operation();
    Operation(const Operation &) = delete;
    Operation &operator=(const Operation &) = delete;

    // From the outermost to the innermost, "Message > Execute"; empty outside of all.
    static std::string Path();
    // Whether the module is asked for a frame, however deep.
    static bool Evaluating();

  private:
    const char *name_;
    bool evaluating_;
    const Operation *outer_;
};

}  // namespace host
