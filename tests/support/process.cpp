#include "tests/support/process.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace test_support {

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

HANDLE Open(const std::filesystem::path &file, DWORD access, DWORD disposition) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return CreateFileW(file.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, disposition,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

}  // namespace

int RunProcess(const std::vector<std::string> &command, const std::filesystem::path &out,
               const std::filesystem::path &err) {
    std::wstring line;
    for (const std::string &word : command) line += Quoted(std::filesystem::u8path(word).wstring()) + L" ";
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = Open("NUL", GENERIC_READ, OPEN_EXISTING);
    start.hStdOutput = Open(out, GENERIC_WRITE, CREATE_ALWAYS);
    start.hStdError = Open(err, GENERIC_WRITE, CREATE_ALWAYS);
    PROCESS_INFORMATION process{};
    DWORD status = static_cast<DWORD>(-1);
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &process)) {
        WaitForSingleObject(process.hProcess, INFINITE);
        GetExitCodeProcess(process.hProcess, &status);
        CloseHandle(process.hProcess);
        CloseHandle(process.hThread);
    }
    for (const HANDLE handle : {start.hStdInput, start.hStdOutput, start.hStdError}) CloseHandle(handle);
    return static_cast<int>(status);
}

#else

int RunProcess(const std::vector<std::string> &command, const std::filesystem::path &out,
               const std::filesystem::path &err) {
    std::vector<char *> words;
    for (const std::string &word : command) words.push_back(const_cast<char *>(word.c_str()));
    words.push_back(nullptr);
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    const int flags = O_WRONLY | O_CREAT | O_TRUNC;
    posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, out.c_str(), flags, 0644);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, err.c_str(), flags, 0644);
    pid_t child = 0;
    const bool started = posix_spawn(&child, words[0], &files, nullptr, words.data(), environ) == 0;
    posix_spawn_file_actions_destroy(&files);
    int status = 0;
    if (!started || waitpid(child, &status, 0) != child) return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

#endif

}  // namespace test_support
