// Where Linux and Windows differ: libraries, the own program file, replacing a file in one step, the
// standard streams.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "platform/table.h"

namespace host {

// A handle of the loaded library; null with the system's own words in `reason`.
void *OpenLibrary(const std::filesystem::path &file, std::string *reason);
void *FindSymbol(void *library, const char *name);
void CloseLibrary(void *library);
// File suffix of a module, with its dot.
const char *ModuleSuffix();

std::filesystem::path ProgramFile();
// `from` takes the place of `to` in one step, or nothing changes.
bool RenameOver(const std::filesystem::path &from, const std::filesystem::path &to);
// Times are local, to the second. Not following a symbolic link.
struct FileInfo {
    bool exists = false;
    std::int64_t size = 0;
    TableFileTime created{}, modified{}, accessed{};
};
FileInfo GetFileInfo(const std::filesystem::path &file);
TableFileTime CurrentTime();
long ProcessId();
// Whether somebody watches the standard error output.
bool ErrorOutputIsTerminal();
// Bytes go to the standard output as they are, line ends included.
void MakeStandardOutputBinary();
// The code that GeGetCurrentOS answers: Windows 1, OS X 2, UNIX 3.
int OperatingSystemCode();

}  // namespace host
