// Images: icons of modules.
#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

struct HostBitmap {
    virtual ~HostBitmap() = default;
};

namespace host {

enum ImageResult : std::int32_t {
    kImageOk = 1,
    kImageNotExisting = -1,
    kImageWrongType = -2,
    kImageOutOfMemory = -3,
    kImageFileError = -4,
    kImageFileStructure = -5,
    kImageMiscError = -6
};

// 8 bit RGBA, rows from the top.
class Bitmap : public HostBitmap {
  public:
    ImageResult Load(
        const std::filesystem::path &png);  // a failed load leaves the image empty; WebAssembly reads the size alone
    static bool IsSensible(std::int64_t width, std::int64_t height);
    ImageResult Init(std::int32_t width, std::int32_t height);
    std::int32_t width = 0, height = 0;
    std::vector<std::uint8_t> rgba;
};

}  // namespace host
