// For tests: the nth use of the file system fails, or the program is as if it had been killed there.
#pragma once

#include <cstdint>
#include <filesystem>

namespace host {

// kKilled: in the middle of this use, which may leave half of it done; kGone: every use after that.
enum class FileFault { kNone, kFails, kKilled, kGone };

// Counting starts anew; the first use is number 1. After a kill nothing touches the file system any more, not even to
// clean up. With kNone all goes well, and uses are only counted.
void ArmFileFault(std::int64_t nth, FileFault fault);
// Since it was armed.
std::int64_t FileUses();
// As for a file that nobody may delete: removing it fails from now on. An empty path: all may be removed again.
void ProtectFromRemoval(const std::filesystem::path &file);
bool IsProtectedFromRemoval(const std::filesystem::path &file);
// Asked by whatever is about to read or change a file or folder.
FileFault NextFileUse();

}  // namespace host
