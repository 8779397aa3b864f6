// Where Linux and Windows differ: libraries, the own program file and what it was started with, files and folders,
// the standard streams.
#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "platform/table.h"

namespace host {

// A handle of the loaded library; null with the system's own words in `reason`.
void *OpenLibrary(const std::filesystem::path &file, std::string *reason);
void *FindSymbol(void *library, const char *name);
void CloseLibrary(void *library);
// File suffix of a module, with its dot.
const char *ModuleSuffix();

std::filesystem::path ProgramFile();
// The command line and the environment, UTF-8. A variable that is not set is empty.
std::vector<std::string> ProgramArguments(int argc, char **argv);
std::string EnvironmentText(const char *variable);
// Bytes as they are. Null where the file cannot be opened. Streams would bring along the standard library's locales,
// which every page with the library would have to fetch.
struct CloseFile {
    void operator()(std::FILE *file) const { std::fclose(file); }
};
using OpenFile = std::unique_ptr<std::FILE, CloseFile>;
OpenFile OpenToRead(const std::filesystem::path &file);
OpenFile OpenToWrite(const std::filesystem::path &file);
// To a byte of the file, beyond 4 GB too; false where there is no such place.
bool GoToByte(std::FILE *file, std::int64_t place);
// `from` takes the place of `to` in one step, or nothing changes.
bool RenameOver(const std::filesystem::path &from, const std::filesystem::path &to);
// Whether this program may change the file: neither its mode nor its owner, nor on Windows its attribute, forbids it.
// Even where the system lets an administrator do so, a file that nobody may write stays as it is.
bool MayBeChanged(const std::filesystem::path &file);
// Whether this program may make files in the folder.
bool TakesNewFiles(const std::filesystem::path &folder);
// Gives `to` the mode and, where that is allowed, the owner of `from`; on Windows its attributes.
void CopyMode(const std::filesystem::path &from, const std::filesystem::path &to);
// Times are local, to the second. Not following a symbolic link.
struct FileInfo {
    bool exists = false;
    std::int64_t size = 0;
    TableFileTime created{}, modified{}, accessed{};
};
FileInfo GetFileInfo(const std::filesystem::path &file);
// From the present folder, from a drive, or from a machine in the network.
std::filesystem::path AbsolutePath(const std::filesystem::path &path);
// Of files and folders, without "." and ".."; none where there is no folder.
std::vector<std::filesystem::path> NamesIn(const std::filesystem::path &folder);
TableFileTime CurrentTime();
long ProcessId();
// Whether somebody watches the standard error output.
bool ErrorOutputIsTerminal();
// Bytes come and go on the three standard streams as they are, line ends included.
void MakeStandardStreamsBinary();
// The code that GeGetCurrentOS answers: Windows 1, OS X 2, UNIX 3.
int OperatingSystemCode();

}  // namespace host
