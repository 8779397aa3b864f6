#include "tremolux/process/streams.h"

#include <cstdio>

#include "library/failure.h"

namespace tremolux {
namespace {

constexpr std::size_t kBlockBytes = 65536;

std::filesystem::path Named(const char *stream, const std::string &file, const std::string &extension) {
    if (!IsStream(file)) return std::filesystem::u8path(file);
    const bool lacks_dot = !extension.empty() && extension.front() != '.';
    return std::filesystem::u8path(std::string(stream) + (lacks_dot ? "." : "") + extension);
}

}  // namespace

bool IsStream(const std::string &file) { return file == "-"; }

std::string ReadStandardInput(std::uintmax_t most) {
    std::string bytes, block(kBlockBytes, 0);
    while (bytes.size() <= most) {
        const std::size_t count = std::fread(block.data(), 1, block.size(), stdin);
        bytes.append(block, 0, count);
        if (count == 0) break;
    }
    if (std::ferror(stdin) != 0) throw Failure(kExitInput, "-: the standard input cannot be read");
    if (bytes.size() > most) bytes.resize(static_cast<std::size_t>(most) + 1);
    return bytes;
}

std::filesystem::path NamedInput(const std::string &file, const std::string &extension) {
    return Named("stdin", file, extension);
}

std::filesystem::path NamedOutput(const std::string &file, const std::string &extension) {
    return Named("stdout", file, extension);
}

}  // namespace tremolux
