// Another program, run to its end, with this one at its standard input.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace host {

class ChildProcess {
  public:
    ChildProcess() = default;
    ~ChildProcess();  // one that still runs is ended
    ChildProcess(const ChildProcess &) = delete;
    ChildProcess &operator=(const ChildProcess &) = delete;

    // The program, looked for where the system looks for programs, and its arguments, UTF-8, without a shell in
    // between; what it says goes to the two files. false when it cannot be started.
    bool Start(const std::vector<std::string> &command, const std::filesystem::path &out,
               const std::filesystem::path &err);
    // To its standard input; false when it reads no more. After a successful Start.
    bool Write(std::string_view bytes);
    void EndInput();
    // Whether it has ended by itself. After a successful Start.
    bool HasEnded() const;
    // Ends its input and waits for it: its exit status, -1 when it ended by a signal.
    int Finish();

  private:
    static constexpr std::intptr_t kNone = -1;
    std::intptr_t process_ = kNone, input_ = kNone;  // the system's handles
};

}  // namespace host
