#include "host/files/safe_write.h"

#include <array>
#include <system_error>

#include "host/files/faults.h"
#include "host/files/folders.h"
#include "host/files/memory_files.h"
#include "host/services/platform.h"
#include "host/value/text.h"

namespace host {

namespace {

constexpr int kMaxLinks = 40;  // one behind the other, as systems have it

// Beside the target, so that taking its place is one step; two programs at once do not meet. Hidden: should the program
// be killed, nobody takes it for a file of the user's.
std::filesystem::path FreeNameBeside(const std::filesystem::path &file) {
    std::error_code ignored;
    for (int i = 0;; ++i) {
        std::filesystem::path name = file.parent_path() / ".";
        name += file.filename();
        name += ".new-" + std::to_string(ProcessId()) + "-" + std::to_string(i);
        if (!std::filesystem::exists(std::filesystem::symlink_status(name, ignored))) return name;
    }
}

bool WriteAll(const std::filesystem::path &file, std::string_view bytes) {
    const FileFault fault = NextFileUse();
    if (fault == FileFault::kFails || fault == FileFault::kGone) return false;
    if (fault == FileFault::kKilled) bytes = bytes.substr(0, bytes.size() / 2);
    OpenFile out = OpenToWrite(file);
    if (!out) return false;
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), out.get()) == bytes.size();
    // What a full disk takes no more is often told only here.
    const bool closed = std::fclose(out.release()) == 0;
    return written && closed && fault == FileFault::kNone;
}

void CleanUp(const std::filesystem::path &fresh) {
    std::error_code ignored;
    if (NextFileUse() == FileFault::kNone) std::filesystem::remove(fresh, ignored);
}

bool IsLink(const std::filesystem::path &file) {
    std::error_code error;
    return std::filesystem::is_symlink(std::filesystem::symlink_status(file, error));
}

}  // namespace

std::optional<std::filesystem::path> FileBehindLinks(const std::filesystem::path &name) {
    std::filesystem::path file = name;
    std::error_code error;
    for (int i = 0; i < kMaxLinks; ++i) {
        if (!IsLink(file)) return file;
        const std::filesystem::path goal = std::filesystem::read_symlink(file, error);
        if (error) return std::nullopt;
        file = goal.is_absolute() ? goal : file.parent_path() / goal;
    }
    return std::nullopt;
}

bool TakePlaceOf(const std::filesystem::path &fresh, const std::filesystem::path &file) {
    if (NextFileUse() != FileFault::kNone) return false;
    if (!IsLink(file)) CopyMode(file, fresh);
    return RenameOver(fresh, file);
}

bool WriteFileSafely(const std::filesystem::path &file, std::string_view bytes, std::string *error) {
    const auto fail = [&](const char *words) {
        *error = PathText(file) + ": " + words;
        return false;
    };
    if (file.filename().empty() || Exists(file, true)) return fail("is a folder, expected a file to write");
    if (memory_files::Holds(file)) {
        if (NextFileUse() == FileFault::kNone && memory_files::Write(file, bytes)) return true;
        return fail("cannot be written, expected a folder that is there");
    }
    std::error_code ignored;
    if (!IsLink(file) && std::filesystem::exists(file, ignored) && !MayBeChanged(file))
        return fail("is write-protected, expected a file that may be changed");
    const std::filesystem::path fresh = FreeNameBeside(file);
    if (!WriteAll(fresh, bytes)) {
        CleanUp(fresh);
        return fail("cannot be written, expected a folder that is there and can be written");
    }
    if (!TakePlaceOf(fresh, file)) {
        CleanUp(fresh);
        return fail("cannot be replaced, expected a file that may be changed");
    }
    return true;
}

bool ReadFile(const std::filesystem::path &file, std::string *bytes, std::string *error) {
    std::error_code ignored;
    const auto fail = [&](const char *words) {
        *error = PathText(file) + ": " + words;
        return false;
    };
    if (NextFileUse() != FileFault::kNone) return fail("cannot be read");
    if (memory_files::Holds(file)) return memory_files::Read(file, bytes) || fail("there is no such file");
    if (!std::filesystem::exists(file, ignored)) return fail("there is no such file");
    if (std::filesystem::is_directory(file, ignored)) return fail("is a folder, expected a file");
    const OpenFile in = OpenToRead(file);
    if (!in) return fail("cannot be opened");
    bytes->clear();
    std::array<char, 65536> part;
    while (const std::size_t size = std::fread(part.data(), 1, part.size(), in.get())) bytes->append(part.data(), size);
    if (std::ferror(in.get()) != 0) return fail("cannot be read");
    return true;
}

}  // namespace host
