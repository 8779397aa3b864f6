#include "tremolux/system.h"

#include <cstdlib>

#ifdef _WIN32
#include <io.h>
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace tremolux {
namespace {

namespace fs = std::filesystem;

// Empty when it is not set.
fs::path FolderFromEnvironment(const char *variable) {
    const char *value = std::getenv(variable);
    return value != nullptr ? fs::path(value) : fs::path();
}

}  // namespace

#ifdef _WIN32

fs::path ProgramFolder() {
    wchar_t file[32768];
    const DWORD length = GetModuleFileNameW(nullptr, file, 32768);
    return length > 0 && length < 32768 ? fs::path(std::wstring(file, length)).parent_path() : fs::path();
}

bool ErrorOutputIsTerminal() { return _isatty(2) != 0; }

const char *ModuleFileName() { return "TremoluxCam.cdl64"; }

#else

fs::path ProgramFolder() {
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error).parent_path();
}

bool ErrorOutputIsTerminal() { return isatty(STDERR_FILENO) != 0; }

const char *ModuleFileName() { return "TremoluxCam.so"; }

#endif

fs::path DefaultHome() {
    if (const fs::path folder = FolderFromEnvironment("APPDATA"); !folder.empty()) return folder / "tremolux";
    if (const fs::path folder = FolderFromEnvironment("XDG_CONFIG_HOME"); !folder.empty()) return folder / "tremolux";
    if (const fs::path folder = FolderFromEnvironment("HOME"); !folder.empty()) return folder / ".config" / "tremolux";
    std::error_code error;
    return fs::temp_directory_path(error) / "tremolux";
}

}  // namespace tremolux
