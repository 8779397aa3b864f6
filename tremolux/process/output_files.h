// Results: either all of them replace what was there, or none does. A file keeps its mode, and is written where a
// symbolic link leads; "-" is the standard output.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tremolux {

class OutputFiles {
  public:
    // Checks what can be known before the work: throws a Failure for a file that is named twice or is an input itself,
    // and for one that cannot be written where it is to lie or is write-protected. Touches nothing.
    OutputFiles(const std::vector<std::string> &files, const std::vector<std::string> &inputs);
    ~OutputFiles();  // leaves no unfinished file behind
    OutputFiles(const OutputFiles &) = delete;
    OutputFiles &operator=(const OutputFiles &) = delete;

    // One text for each file. Throws a Failure.
    void Write(const std::vector<std::string> &texts);
    bool HasStream() const;
    const std::vector<std::filesystem::path> &Files() const { return files_; }

  private:
    std::vector<std::filesystem::path> files_;   // as they were named
    std::vector<std::filesystem::path> places_;  // where symbolic links lead
    std::vector<std::filesystem::path> unfinished_;
};

// Into the file, or where none is named to the standard output. Throws a Failure.
void WriteOrPrint(const std::string &file, const std::vector<std::string> &inputs, const std::string &text);

// To the standard output, at once; throws a Failure.
void Print(const std::string &text);

}  // namespace tremolux
