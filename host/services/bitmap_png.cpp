// Pictures as they are.
#include <png.h>

#include <string>

#include "host/files/folders.h"
#include "host/files/safe_write.h"
#include "host/services/bitmap.h"

namespace host {

ImageResult Bitmap::Load(const std::filesystem::path &png) {
    width = height = 0;
    rgba.clear();
    if (!Exists(png, false)) return kImageNotExisting;
    std::string bytes, reason;
    if (!ReadFile(png, &bytes, &reason)) return kImageFileError;
    if (bytes.size() < 8 || png_sig_cmp(reinterpret_cast<png_const_bytep>(bytes.data()), 0, 8) != 0)
        return kImageWrongType;

    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_memory(&image, bytes.data(), bytes.size()) == 0) return kImageFileStructure;
    image.format = PNG_FORMAT_RGBA;
    if (!IsSensible(image.width, image.height)) {
        png_image_free(&image);
        return kImageOutOfMemory;
    }
    std::vector<std::uint8_t> pixels(PNG_IMAGE_SIZE(image));
    if (png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr) == 0) {
        png_image_free(&image);
        return kImageFileStructure;
    }
    width = static_cast<std::int32_t>(image.width);
    height = static_cast<std::int32_t>(image.height);
    rgba = std::move(pixels);
    return kImageOk;
}

}  // namespace host
