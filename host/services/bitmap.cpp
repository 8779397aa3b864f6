#include "host/services/bitmap.h"

namespace host {
namespace {

// More than any icon needs, little enough for memory.
constexpr std::int64_t kLargestSide = 16384;
constexpr std::int64_t kMostPixels = std::int64_t{64} * 1024 * 1024;

}  // namespace

bool Bitmap::IsSensible(std::int64_t width, std::int64_t height) {
    return width > 0 && height > 0 && width <= kLargestSide && height <= kLargestSide && width * height <= kMostPixels;
}

ImageResult Bitmap::Init(std::int32_t new_width, std::int32_t new_height) {
    if (!IsSensible(new_width, new_height)) return kImageOutOfMemory;
    width = new_width;
    height = new_height;
    rgba.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4, 0);
    return kImageOk;
}

}  // namespace host
