#include "tremolux/process/output_files.h"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <unordered_map>

#include "host/files/safe_write.h"
#include "host/services/platform.h"
#include "host/value/text.h"
#include "library/failure.h"
#include "library/parameters/nearest.h"
#include "tremolux/process/streams.h"

namespace tremolux {
namespace {

namespace fs = std::filesystem;

fs::path PlaceOf(const fs::path &file) {
    std::error_code unknown;
    const fs::path canonical = fs::weakly_canonical(file, unknown);
    return unknown ? host::AbsolutePath(file).lexically_normal() : canonical;
}

bool SameFile(const fs::path &a, const fs::path &b) {
    std::error_code error;
    return fs::equivalent(a, b, error) || PlaceOf(a) == PlaceOf(b);
}

// Files to be found again by any of their names, among as many as a farm has.
class KnownFiles {
  public:
    void Add(const fs::path &file) {
        by_place_.emplace(KeyOf(file), file);
        if (HasOtherNames(file)) with_other_names_.push_back(file);
    }
    bool Has(const fs::path &file) const {
        const auto is_it = [&file](const fs::path &known) { return SameFile(file, known); };
        const auto [begin, end] = by_place_.equal_range(KeyOf(file));
        if (std::any_of(begin, end, [&](const auto &known) { return is_it(known.second); })) return true;
        return HasOtherNames(file) && std::any_of(with_other_names_.begin(), with_other_names_.end(), is_it);
    }

  private:
    // The same for names that some system takes for the same.
    static std::string KeyOf(const fs::path &file) { return Folded(PlaceOf(file).u8string()); }
    static bool HasOtherNames(const fs::path &file) {
        std::error_code error;
        const std::uintmax_t names = fs::hard_link_count(file, error);
        return !error && names > 1;
    }
    std::unordered_multimap<std::string, fs::path> by_place_;
    std::vector<fs::path> with_other_names_;
};

[[noreturn]] void RefuseOutput(const fs::path &file, const std::string &reason) {
    throw Failure(kExitOutput, host::PathText(file) + ": cannot be written: " + reason);
}

// Where the bytes of the file that the user named will lie.
fs::path CheckedPlace(const fs::path &named) {
    const std::optional<fs::path> place = host::FileBehindLinks(named);
    if (!place) RefuseOutput(named, "it is a link that leads in a circle");
    std::error_code error;
    const fs::path folder = place->has_parent_path() ? place->parent_path() : fs::path(".");
    if (!fs::is_directory(folder, error)) RefuseOutput(named, "there is no folder " + host::PathText(folder));
    const bool exists = fs::exists(*place, error);
    if (exists && !fs::is_regular_file(*place, error)) RefuseOutput(named, "something that is no file has its name");
    if (exists && !host::MayBeChanged(*place)) RefuseOutput(named, "the file that is there is write-protected");
    if (!host::TakesNewFiles(folder)) RefuseOutput(named, "expected a folder that takes new files");
    return *place;
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
    KnownFiles known_inputs, known_outputs;
    for (const std::string &input : inputs)
        if (!IsStream(input)) known_inputs.Add(fs::u8path(input));
    for (const std::string &name : files) {
        const fs::path file = fs::u8path(name);
        if (IsStream(name)) {
            if (HasStream()) throw Failure(kExitInput, "-: found twice, expected the standard output once");
            files_.push_back(file);
            places_.push_back(file);
            continue;
        }
        if (known_inputs.Has(file))
            throw Failure(kExitInput, name + ": found the input itself, expected another file for the output");
        if (known_outputs.Has(file)) throw Failure(kExitInput, name + ": found twice, expected each output once");
        known_outputs.Add(file);
        places_.push_back(CheckedPlace(file));
        files_.push_back(file);
    }
}

OutputFiles::~OutputFiles() {
    std::error_code ignored;
    for (const fs::path &file : unfinished_) fs::remove(file, ignored);
}

bool OutputFiles::HasStream() const {
    return std::any_of(files_.begin(), files_.end(), [](const fs::path &file) { return IsStream(file.u8string()); });
}

void OutputFiles::Write(const std::vector<std::string> &texts) {
    const std::string *streamed = nullptr;
    for (std::size_t i = 0; i < files_.size(); ++i) {
        if (IsStream(files_[i].u8string())) {
            streamed = &texts[i];
            unfinished_.emplace_back();
            continue;
        }
        unfinished_.push_back(UnfinishedName(places_[i]));
        std::string reason;
        if (!host::WriteFileSafely(unfinished_.back(), texts[i], &reason)) {
            RefuseOutput(files_[i], "expected a folder that takes new files");
        }
    }
    if (streamed != nullptr) Print(*streamed);
    for (std::size_t i = 0; i < files_.size(); ++i) {
        if (unfinished_[i].empty()) continue;
        if (!host::TakePlaceOf(unfinished_[i], places_[i]))
            RefuseOutput(files_[i], "expected a file that may be changed");
    }
    unfinished_.clear();
}

void WriteOrPrint(const std::string &file, const std::vector<std::string> &inputs, const std::string &text) {
    if (file.empty()) {
        Print(text);
    } else {
        OutputFiles({file}, inputs).Write({text});
    }
}

void Print(const std::string &text) {
    const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0;
    if (!written) throw Failure(kExitOutput, "the standard output cannot be written");
}

}  // namespace tremolux
