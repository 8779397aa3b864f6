#include "host/services/child_process.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#endif

#include <algorithm>

namespace host {

ChildProcess::~ChildProcess() {
    if (process_ == kNone) return;
#ifdef _WIN32
    TerminateProcess(reinterpret_cast<HANDLE>(process_), 1);
#else
    kill(static_cast<pid_t>(process_), SIGKILL);
#endif
    Finish();
}

#ifdef _WIN32

namespace {

// As a program takes its command line apart again: a quote and the backslashes before it are escaped.
std::wstring Quoted(const std::wstring &word) {
    std::wstring quoted = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t c : word) {
        if (c == L'"') quoted.append(backslashes + 1, L'\\');
        backslashes = c == L'\\' ? backslashes + 1 : 0;
        quoted += c;
    }
    return quoted.append(backslashes, L'\\') + L"\"";
}

HANDLE OpenForWriting(const std::filesystem::path &file) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return CreateFileW(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, CREATE_ALWAYS,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

// Wine gives up a start in some thousands with this error, which Windows does not know here; the next try succeeds.
constexpr int kTries = 5;

bool CreateTheProcess(const std::wstring &line, STARTUPINFOW *start, PROCESS_INFORMATION *process) {
    for (int i = 0; i < kTries; ++i) {
        std::wstring words = line;  // the call may write into it
        if (CreateProcessW(nullptr, words.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, start, process))
            return true;
        if (GetLastError() != ERROR_INTERNAL_ERROR) return false;
    }
    return false;
}

}  // namespace

bool ChildProcess::Start(const std::vector<std::string> &command, const std::filesystem::path &out,
                         const std::filesystem::path &err) {
    std::wstring line;
    for (const std::string &word : command) line += Quoted(std::filesystem::u8path(word).wstring()) + L" ";
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    HANDLE reading, writing;
    if (!CreatePipe(&reading, &writing, &inherited, 0)) return false;
    SetHandleInformation(writing, HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = reading;
    start.hStdOutput = OpenForWriting(out);
    start.hStdError = OpenForWriting(err);
    PROCESS_INFORMATION process{};
    const bool started = CreateTheProcess(line, &start, &process);
    for (const HANDLE handle : {reading, start.hStdOutput, start.hStdError}) CloseHandle(handle);
    if (!started) {
        CloseHandle(writing);
        return false;
    }
    CloseHandle(process.hThread);
    process_ = reinterpret_cast<std::intptr_t>(process.hProcess);
    input_ = reinterpret_cast<std::intptr_t>(writing);
    return true;
}

bool ChildProcess::Write(std::string_view bytes) {
    while (!bytes.empty()) {
        const DWORD count = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1 << 20));
        DWORD written = 0;
        if (!WriteFile(reinterpret_cast<HANDLE>(input_), bytes.data(), count, &written, nullptr)) return false;
        bytes.remove_prefix(written);
    }
    return true;
}

void ChildProcess::EndInput() {
    if (input_ != kNone) CloseHandle(reinterpret_cast<HANDLE>(input_));
    input_ = kNone;
}

bool ChildProcess::HasEnded() const {
    return WaitForSingleObject(reinterpret_cast<HANDLE>(process_), 0) != WAIT_TIMEOUT;
}

int ChildProcess::Finish() {
    EndInput();
    const HANDLE process = reinterpret_cast<HANDLE>(process_);
    DWORD status = static_cast<DWORD>(-1);
    WaitForSingleObject(process, INFINITE);
    GetExitCodeProcess(process, &status);
    CloseHandle(process);
    process_ = kNone;
    return static_cast<int>(status);
}

#else

bool ChildProcess::Start(const std::vector<std::string> &command, const std::filesystem::path &out,
                         const std::filesystem::path &err) {
    std::vector<char *> words;
    words.reserve(command.size() + 1);
    for (const std::string &word : command) words.push_back(const_cast<char *>(word.c_str()));
    words.push_back(nullptr);
    // A socket, not a pipe: writing to a program that has ended then is an error and no signal.
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) return false;
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    const int flags = O_WRONLY | O_CREAT | O_TRUNC;
    posix_spawn_file_actions_adddup2(&files, ends[1], STDIN_FILENO);
    posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, out.c_str(), flags, 0644);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, err.c_str(), flags, 0644);
    pid_t child = 0;
    const bool started = posix_spawnp(&child, words[0], &files, nullptr, words.data(), environ) == 0;
    posix_spawn_file_actions_destroy(&files);
    close(ends[1]);
    if (!started) {
        close(ends[0]);
        return false;
    }
    process_ = child;
    input_ = ends[0];
    return true;
}

bool ChildProcess::Write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = send(static_cast<int>(input_), bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

void ChildProcess::EndInput() {
    if (input_ != kNone) close(static_cast<int>(input_));
    input_ = kNone;
}

bool ChildProcess::HasEnded() const {
    siginfo_t ended{};
    // It stays to be waited for.
    const int result = waitid(P_PID, static_cast<id_t>(process_), &ended, WEXITED | WNOHANG | WNOWAIT);
    return result == 0 ? ended.si_pid != 0 : errno != EINTR;
}

int ChildProcess::Finish() {
    EndInput();
    int status = 0;
    pid_t ended;
    do {
        ended = waitpid(static_cast<pid_t>(process_), &status, 0);
    } while (ended < 0 && errno == EINTR);
    process_ = kNone;
    return ended > 0 && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

#endif

}  // namespace host
