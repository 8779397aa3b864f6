// Of a picture's file the size alone: where nobody looks at icons, what unpacks them would be a tenth of all the code.
#include <string>

#include "host/files/folders.h"
#include "host/files/safe_write.h"
#include "host/services/bitmap.h"

namespace host {
namespace {

constexpr char kSignature[] = "\x89PNG\r\n\x1A\n";
constexpr std::size_t kWidthAt = 16, kHeightAt = 20, kHeader = 24;  // of the first chunk, which is the header

std::int64_t BigEndian(const std::string &bytes, std::size_t at) {
    std::int64_t number = 0;
    for (std::size_t i = at; i < at + 4; ++i) number = number * 256 + static_cast<unsigned char>(bytes[i]);
    return number;
}

}  // namespace

ImageResult Bitmap::Load(const std::filesystem::path &png) {
    width = height = 0;
    rgba.clear();
    if (!Exists(png, false)) return kImageNotExisting;
    std::string bytes, reason;
    if (!ReadFile(png, &bytes, &reason)) return kImageFileError;
    if (bytes.compare(0, sizeof(kSignature) - 1, kSignature) != 0) return kImageWrongType;
    if (bytes.size() < kHeader) return kImageFileStructure;
    const std::int64_t wide = BigEndian(bytes, kWidthAt), high = BigEndian(bytes, kHeightAt);
    if (!IsSensible(wide, high)) return kImageOutOfMemory;
    return Init(static_cast<std::int32_t>(wide), static_cast<std::int32_t>(high));
}

}  // namespace host
