#include "host/services/platform.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <windows.h>
// After windows.h, which it needs.
#include <shellapi.h>

#include <cwchar>
#else
#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <ctime>
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

// The arguments of main are in the system's own code page, which has few of the letters of file names.
std::vector<std::string> ProgramArguments(int argc, char **argv) {
    int count = 0;
    wchar_t **wide = CommandLineToArgvW(GetCommandLineW(), &count);
    if (wide == nullptr) return std::vector<std::string>(argv, argv + argc);
    std::vector<std::string> arguments;
    for (int i = 0; i < count; ++i) arguments.push_back(std::filesystem::path(wide[i]).u8string());
    LocalFree(wide);
    return arguments;
}

std::string EnvironmentText(const char *variable) {
    const wchar_t *value = _wgetenv(std::filesystem::u8path(variable).c_str());
    return value != nullptr ? std::filesystem::path(value).u8string() : std::string();
}

OpenFile OpenToRead(const std::filesystem::path &file) { return OpenFile(_wfopen(file.c_str(), L"rb")); }

OpenFile OpenToWrite(const std::filesystem::path &file) { return OpenFile(_wfopen(file.c_str(), L"wb")); }

bool GoToByte(std::FILE *file, std::int64_t place) { return _fseeki64(file, place, SEEK_SET) == 0; }

bool RenameOver(const std::filesystem::path &from, const std::filesystem::path &to) {
    return MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING) != 0;
}

bool MayBeChanged(const std::filesystem::path &file) {
    const DWORD attributes = GetFileAttributesW(file.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) == 0;
}

// A folder's attribute says nothing about the files in it.
bool TakesNewFiles(const std::filesystem::path &) { return true; }

void CopyMode(const std::filesystem::path &from, const std::filesystem::path &to) {
    const DWORD attributes = GetFileAttributesW(from.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES) SetFileAttributesW(to.c_str(), attributes);
}

namespace {

TableFileTime LocalTime(const FILETIME &time) {
    SYSTEMTIME universal, local;
    if (!FileTimeToSystemTime(&time, &universal) || !SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local))
        return {};
    return {local.wYear, local.wMonth, local.wDay, local.wHour, local.wMinute, local.wSecond};
}

}  // namespace

FileInfo GetFileInfo(const std::filesystem::path &file) {
    FileInfo info;
    WIN32_FILE_ATTRIBUTE_DATA data;
    if (!GetFileAttributesExW(file.c_str(), GetFileExInfoStandard, &data)) return info;
    info.exists = true;
    info.size = static_cast<std::int64_t>(data.nFileSizeHigh) << 32 | data.nFileSizeLow;
    info.created = LocalTime(data.ftCreationTime);
    info.modified = LocalTime(data.ftLastWriteTime);
    info.accessed = LocalTime(data.ftLastAccessTime);
    return info;
}

// The standard library takes a machine's name for a folder.
std::filesystem::path AbsolutePath(const std::filesystem::path &path) {
    std::wstring absolute(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    const DWORD size = static_cast<DWORD>(absolute.size());
    const DWORD length = GetFullPathNameW(path.c_str(), size, absolute.data(), nullptr);
    return length > 0 && length < size ? std::filesystem::path(absolute.substr(0, length)) : path;
}

// The standard library lists no folder whose path has more than 260 letters.
std::vector<std::filesystem::path> NamesIn(const std::filesystem::path &folder) {
    std::vector<std::filesystem::path> names;
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileW((folder / L"*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return names;
    do {
        const std::filesystem::path name = found.cFileName;
        if (name != L"." && name != L"..") names.push_back(name);
    } while (FindNextFileW(search, &found));
    FindClose(search);
    return names;
}

TableFileTime CurrentTime() {
    FILETIME now;
    GetSystemTimeAsFileTime(&now);
    return LocalTime(now);
}

long ProcessId() { return static_cast<long>(GetCurrentProcessId()); }

int OperatingSystemCode() { return 1; }

bool ErrorOutputIsTerminal() { return _isatty(_fileno(stderr)) != 0; }

void MakeStandardStreamsBinary() {
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
}

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

std::vector<std::string> ProgramArguments(int argc, char **argv) { return {argv, argv + argc}; }

std::string EnvironmentText(const char *variable) {
    const char *value = std::getenv(variable);
    return value != nullptr ? value : "";
}

OpenFile OpenToRead(const std::filesystem::path &file) { return OpenFile(std::fopen(file.c_str(), "rb")); }

OpenFile OpenToWrite(const std::filesystem::path &file) { return OpenFile(std::fopen(file.c_str(), "wb")); }

bool GoToByte(std::FILE *file, std::int64_t place) { return fseeko(file, place, SEEK_SET) == 0; }

bool RenameOver(const std::filesystem::path &from, const std::filesystem::path &to) {
    return std::rename(from.c_str(), to.c_str()) == 0;
}

bool MayBeChanged(const std::filesystem::path &file) {
    struct stat data;
    const mode_t anybody = S_IWUSR | S_IWGRP | S_IWOTH;
    return stat(file.c_str(), &data) == 0 && (data.st_mode & anybody) != 0 && access(file.c_str(), W_OK) == 0;
}

bool TakesNewFiles(const std::filesystem::path &folder) { return access(folder.c_str(), W_OK | X_OK) == 0; }

void CopyMode(const std::filesystem::path &from, const std::filesystem::path &to) {
    struct stat data;
    if (stat(from.c_str(), &data) != 0) return;
    constexpr mode_t kModeBits = 07777, kRunAsOwner = S_ISUID | S_ISGID;
    // The owner first: a change of it takes rights away. Whoever gets the file as somebody else's gives no right to run
    // as them.
    const bool same_owner = chown(to.c_str(), data.st_uid, data.st_gid) == 0;
    chmod(to.c_str(), data.st_mode & (same_owner ? kModeBits : kModeBits & ~kRunAsOwner));
}

namespace {

TableFileTime LocalTime(std::time_t time) {
    std::tm parts{};
    if (localtime_r(&time, &parts) == nullptr) return {};
    const auto part = [](int number) { return static_cast<std::uint16_t>(number); };
    return {part(parts.tm_year + 1900), part(parts.tm_mon + 1), part(parts.tm_mday),
            part(parts.tm_hour),        part(parts.tm_min),     part(parts.tm_sec)};
}

}  // namespace

FileInfo GetFileInfo(const std::filesystem::path &file) {
    FileInfo info;
    struct stat data;
    if (lstat(file.c_str(), &data) != 0) return info;
    info.exists = true;
    info.size = data.st_size;
    info.created = LocalTime(data.st_ctime);
    info.modified = LocalTime(data.st_mtime);
    info.accessed = LocalTime(data.st_atime);
    return info;
}

std::filesystem::path AbsolutePath(const std::filesystem::path &path) {
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(path, error);
    return error ? path : absolute;
}

std::vector<std::filesystem::path> NamesIn(const std::filesystem::path &folder) {
    std::vector<std::filesystem::path> names;
    std::error_code error;
    for (std::filesystem::directory_iterator i(folder, error), end; !error && i != end; i.increment(error))
        names.push_back(i->path().filename());
    return names;
}

TableFileTime CurrentTime() { return LocalTime(std::time(nullptr)); }

long ProcessId() { return static_cast<long>(getpid()); }

bool ErrorOutputIsTerminal() { return isatty(STDERR_FILENO) != 0; }

void MakeStandardStreamsBinary() {}

int OperatingSystemCode() {
#ifdef __APPLE__
    return 2;
#else
    return 3;
#endif
}

#endif

}  // namespace host
