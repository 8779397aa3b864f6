// "-" in the place of a file: the standard input or the standard output.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace tremolux {

bool IsStream(const std::string &file);
// What comes of the standard input up to its end; of more bytes than `most` one more than that. Throws a Failure.
std::string ReadStandardInput(std::uintmax_t most);
// The file; of a stream a name for messages, which says the format: "stdin.csv". The extension is taken with and
// without its dot.
std::filesystem::path NamedInput(const std::string &file, const std::string &extension);
std::filesystem::path NamedOutput(const std::string &file, const std::string &extension);

}  // namespace tremolux
