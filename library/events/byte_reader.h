// Numbers out of a file's bytes, none beyond its end.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tremolux {

class ByteReader {
  public:
    // `expected` is what the file should be, for messages.
    ByteReader(std::string file, std::string_view bytes, std::string expected)
        : file_(std::move(file)), bytes_(bytes), expected_(std::move(expected)) {}
    std::size_t Place() const { return at_; }
    std::size_t Left() const { return bytes_.size() - at_; }
    // The next bytes; each throws a Failure at the file's end.
    std::string_view Take(std::size_t count);
    std::uint64_t BigEndian(std::size_t bytes);
    std::uint64_t LittleEndian(std::size_t bytes);
    // "file: byte 12: found ..., expected ...".
    [[noreturn]] void Refuse(const std::string &found, const std::string &expected) const;

  private:
    const std::string file_;
    const std::string_view bytes_;
    const std::string expected_;
    std::size_t at_ = 0;
};

}  // namespace tremolux
