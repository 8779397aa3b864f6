// What a batch has done, so that another one needs not do it again.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace tremolux {

// FNV-1a of 64 bits over texts and files, with the length of each.
class Fingerprint {
  public:
    Fingerprint &Add(std::string_view text);
    // A file that cannot be read counts as a missing one.
    Fingerprint &AddFile(const std::filesystem::path &file);
    std::string Text() const;  // 16 hexadecimal digits

  private:
    std::uint64_t hash_ = 14695981039346656037ULL;
};

// One small file for each shot in the folder .tremolux-batch beside the outputs.
class BatchRecords {
  public:
    explicit BatchRecords(const std::filesystem::path &folder) : folder_(folder / ".tremolux-batch") {}
    // The row of the table, where the output was made of the same and is as it was then.
    std::optional<std::string> Row(const std::filesystem::path &output, const std::string &made_of) const;
    // Throws a Failure.
    void Keep(const std::filesystem::path &output, const std::string &made_of, const std::string &row) const;

  private:
    std::filesystem::path FileOf(const std::filesystem::path &output) const;
    const std::filesystem::path folder_;
};

}  // namespace tremolux
