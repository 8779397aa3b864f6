#include "library/events/byte_reader.h"

#include "library/failure.h"

namespace tremolux {

std::string_view ByteReader::Take(std::size_t count) {
    if (count > Left()) Refuse("the end of the file", expected_);
    const std::string_view taken = bytes_.substr(at_, count);
    at_ += count;
    return taken;
}

std::uint64_t ByteReader::BigEndian(std::size_t bytes) {
    std::uint64_t number = 0;
    for (const char c : Take(bytes)) number = number << 8 | static_cast<unsigned char>(c);
    return number;
}

std::uint64_t ByteReader::LittleEndian(std::size_t bytes) {
    const std::string_view taken = Take(bytes);
    std::uint64_t number = 0;
    for (std::size_t i = taken.size(); i-- > 0;) number = number << 8 | static_cast<unsigned char>(taken[i]);
    return number;
}

void ByteReader::Refuse(const std::string &found, const std::string &expected) const {
    throw Failure(kExitInput, file_ + ": byte " + std::to_string(at_) + ": found " + found + ", expected " + expected);
}

}  // namespace tremolux
