#include "library/formats/usd/package.h"

#include <cstdint>

#include "library/failure.h"
#include "library/formats/source_text.h"

namespace tremolux {
namespace {

constexpr std::string_view kLocalMark = "PK\x03\x04", kCentralMark = "PK\x01\x02", kEndMark = "PK\x05\x06";
constexpr std::size_t kLocalSize = 30, kCentralSize = 46, kEndSize = 22, kMaxComment = 65535;
constexpr std::uint32_t kEncrypted = 1;
constexpr std::size_t kLongestFileName = 1000;

[[noreturn]] void Refuse(const std::string &file, const std::string &found, const std::string &expected) {
    throw Failure(kExitInput, file + ": found " + found + ", expected " + expected);
}

// A part of the bytes that is there, little-endian.
class Record {
  public:
    Record(const std::string &file, std::string_view bytes, std::size_t at, std::size_t size, std::string_view mark)
        : file_(file) {
        if (at > bytes.size() || bytes.size() - at < size || bytes.substr(at, mark.size()) != mark)
            Refuse(file, "no zip record at byte " + std::to_string(at), "a whole .usdz package");
        bytes_ = bytes.substr(at);
    }
    std::uint32_t Number(std::size_t at, std::size_t size) const {
        std::uint32_t number = 0;
        for (std::size_t i = size; i-- > 0;) number = number << 8 | static_cast<unsigned char>(bytes_[at + i]);
        return number;
    }
    std::string_view Bytes(std::size_t at, std::size_t size) const {
        if (at > bytes_.size() || bytes_.size() - at < size)
            Refuse(file_, "the end of the file", "a whole .usdz package");
        return bytes_.substr(at, size);
    }

  private:
    const std::string &file_;
    std::string_view bytes_;
};

// From the end on: a comment may follow the record.
std::size_t EndRecord(const std::string &file, std::string_view bytes) {
    const std::size_t at = bytes.rfind(kEndMark);
    if (at == std::string_view::npos || bytes.size() - at > kEndSize + kMaxComment)
        Refuse(file, "a zip without its directory", "a whole .usdz package");
    return at;
}

}  // namespace

bool IsUsdPackage(std::string_view bytes) { return bytes.substr(0, kLocalMark.size()) == kLocalMark; }

PackagedFile FirstFileOf(const std::string &file, std::string_view bytes) {
    const Record end(file, bytes, EndRecord(file, bytes), kEndSize, kEndMark);
    if (end.Number(10, 2) == 0) Refuse(file, "an empty package", "a layer in it");
    const Record central(file, bytes, end.Number(16, 4), kCentralSize, kCentralMark);
    const Record local(file, bytes, central.Number(42, 4), kLocalSize, kLocalMark);
    const std::size_t name_size = local.Number(26, 2), size = central.Number(24, 4);
    const std::string name(local.Bytes(kLocalSize, name_size).substr(0, kLongestFileName));
    if (name != central.Bytes(kCentralSize, central.Number(28, 2)).substr(0, kLongestFileName))
        Refuse(file, Quoted(name), "the name that the package's directory says");
    if ((central.Number(8, 2) & kEncrypted) != 0) Refuse(file, "an encrypted file in the package", "a plain one");
    if (central.Number(10, 2) != 0 || local.Number(8, 2) != 0 || central.Number(20, 4) != size)
        Refuse(file, "a compressed file in the package", "files that are stored, as .usdz packages have them");
    // Writers that stream leave the sizes of the local record 0.
    if (local.Number(22, 4) != size && local.Number(22, 4) != 0)
        Refuse(file, "two sizes for " + Quoted(name), "one");
    return {name, local.Bytes(kLocalSize + name_size + local.Number(28, 2), size)};
}

}  // namespace tremolux
