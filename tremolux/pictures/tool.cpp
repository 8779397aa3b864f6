#include "tremolux/pictures/tool.h"

#include <chrono>
#include <thread>

#include "host/files/safe_write.h"
#include "library/failure.h"

namespace tremolux {
namespace {

namespace fs = std::filesystem;

// The last line that is not empty: programs say there what was wrong.
std::string LastLine(std::string text) {
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r' || text.back() == ' ')) text.pop_back();
    return text.substr(text.find_last_of('\n') + 1);
}

std::string Contents(const fs::path &file) {
    std::string bytes, error;
    host::ReadFile(file, &bytes, &error);
    return bytes;
}

}  // namespace

Tool::Tool(const std::vector<std::string> &command, const char *package, const TemporaryFolder &folder)
    : name_(command.front()), out_(folder.Path() / "out"), err_(folder.Path() / "err") {
    if (process_.Start(command, out_, err_)) return;
    throw Failure(kExitOutput, name_ + " is missing: install it (on Debian the package " + package + ")");
}

void Tool::Fail() const { throw Failure(kExitOutput, name_ + " failed: " + LastLine(Contents(err_))); }

void Tool::Write(std::string_view bytes) {
    if (process_.Write(bytes)) return;
    process_.Finish();
    Fail();
}

std::string Tool::FinishWith(const std::function<void(const std::string &)> &meanwhile) {
    constexpr std::chrono::milliseconds kPause{20};
    process_.EndInput();
    while (!process_.HasEnded()) {
        meanwhile(Contents(out_));
        std::this_thread::sleep_for(kPause);
    }
    meanwhile(Contents(out_));
    return Finish();
}

std::string Tool::Finish() {
    if (process_.Finish() != 0) Fail();
    return Contents(out_);
}

}  // namespace tremolux
