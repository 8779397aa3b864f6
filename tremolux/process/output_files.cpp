#include "tremolux/process/output_files.h"

#include <cstdio>

#include "host/files/safe_write.h"
#include "host/services/platform.h"
#include "host/value/text.h"
#include "library/failure.h"

namespace tremolux {
namespace {

namespace fs = std::filesystem;

bool SameFile(const fs::path &a, const fs::path &b) {
    std::error_code error;
    if (fs::equivalent(a, b, error)) return true;
    const auto place = [](const fs::path &file) {
        std::error_code unknown;
        const fs::path canonical = fs::weakly_canonical(file, unknown);
        return unknown ? host::AbsolutePath(file).lexically_normal() : canonical;
    };
    return place(a) == place(b);
}

[[noreturn]] void RefuseOutput(const fs::path &file, const std::string &reason) {
    throw Failure(kExitOutput, host::PathText(file) + ": cannot be written: " + reason);
}

void CheckPlace(const fs::path &file) {
    std::error_code error;
    const fs::path folder = file.has_parent_path() ? file.parent_path() : fs::path(".");
    if (!fs::is_directory(folder, error)) RefuseOutput(file, "there is no folder " + host::PathText(folder));
    if (fs::exists(file, error) && !fs::is_regular_file(file, error)) {
        RefuseOutput(file, "something that is no file has its name");
    }
}

// A name beside the file that nobody uses.
fs::path UnfinishedName(const fs::path &file) {
    std::error_code error;
    for (int number = 0;; ++number) {
        fs::path name = file;
        name += number == 0 ? ".part" : ".part" + std::to_string(number);
        if (!fs::exists(name, error)) return name;
    }
}

}  // namespace

OutputFiles::OutputFiles(const std::vector<std::string> &files, const std::vector<std::string> &inputs) {
    for (const std::string &name : files) {
        const fs::path file = fs::u8path(name);
        for (const std::string &input : inputs) {
            if (!SameFile(file, fs::u8path(input))) continue;
            throw Failure(kExitInput, name + ": found the input itself, expected another file for the output");
        }
        for (const fs::path &other : files_) {
            if (SameFile(file, other)) throw Failure(kExitInput, name + ": found twice, expected each output once");
        }
        CheckPlace(file);
        files_.push_back(file);
    }
}

OutputFiles::~OutputFiles() {
    std::error_code ignored;
    for (const fs::path &file : unfinished_) fs::remove(file, ignored);
}

void OutputFiles::Write(const std::vector<std::string> &texts) {
    for (std::size_t i = 0; i < files_.size(); ++i) {
        unfinished_.push_back(UnfinishedName(files_[i]));
        std::string reason;
        if (!host::WriteFileSafely(unfinished_.back(), texts[i], &reason)) {
            RefuseOutput(files_[i], "expected a folder that takes new files");
        }
    }
    for (std::size_t i = 0; i < files_.size(); ++i) {
        if (!host::RenameOver(unfinished_[i], files_[i]))
            RefuseOutput(files_[i], "expected a file that may be changed");
    }
    unfinished_.clear();
}

void Print(const std::string &text) {
    const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0;
    if (!written) throw Failure(kExitOutput, "the standard output cannot be written");
}

}  // namespace tremolux
