#include "host/services/platform.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <cstdio>
#include <vector>
#else
#include <dlfcn.h>
#include <unistd.h>

#include <cstdio>
#endif

namespace host {

#ifdef _WIN32

void *OpenLibrary(const std::filesystem::path &file, std::string *reason) {
    HMODULE library = LoadLibraryW(file.c_str());
    if (library == nullptr) *reason = "Windows error " + std::to_string(GetLastError());
    return reinterpret_cast<void *>(library);
}

void *FindSymbol(void *library, const char *name) {
    return reinterpret_cast<void *>(GetProcAddress(static_cast<HMODULE>(library), name));
}

void CloseLibrary(void *library) { FreeLibrary(static_cast<HMODULE>(library)); }

const char *ModuleSuffix() { return ".cdl64"; }

std::filesystem::path ProgramFile() {
    std::vector<wchar_t> name(32768);
    const DWORD length = GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()));
    return std::filesystem::path(std::wstring(name.data(), length));
}

bool ReplaceFile(const std::filesystem::path &from, const std::filesystem::path &to) {
    return MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING) != 0;
}

long ProcessId() { return static_cast<long>(GetCurrentProcessId()); }

int OperatingSystemCode() { return 1; }

bool ErrorOutputIsTerminal() { return _isatty(_fileno(stderr)) != 0; }

void MakeStandardOutputBinary() { _setmode(_fileno(stdout), _O_BINARY); }

#else

void *OpenLibrary(const std::filesystem::path &file, std::string *reason) {
    void *library = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) {
        const char *words = dlerror();
        *reason = words != nullptr ? words : "unknown reason";
    }
    return library;
}

void *FindSymbol(void *library, const char *name) { return dlsym(library, name); }

void CloseLibrary(void *library) { dlclose(library); }

const char *ModuleSuffix() { return ".so"; }

std::filesystem::path ProgramFile() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error);
}

bool ReplaceFile(const std::filesystem::path &from, const std::filesystem::path &to) {
    return std::rename(from.c_str(), to.c_str()) == 0;
}

long ProcessId() { return static_cast<long>(getpid()); }

bool ErrorOutputIsTerminal() { return isatty(STDERR_FILENO) != 0; }

void MakeStandardOutputBinary() {}

int OperatingSystemCode() {
#ifdef __APPLE__
    return 2;
#else
    return 3;
#endif
}

#endif

}  // namespace host
