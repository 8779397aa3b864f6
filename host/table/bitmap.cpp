#include "host/services/bitmap.h"

#include "host/table/guard.h"
#include "host/table/internal.h"
#include "host/value/text.h"

namespace host {

namespace {

constexpr std::int32_t kDepth = 32;

Bitmap *AsBitmap(HostBitmap *bitmap) { return static_cast<Bitmap *>(bitmap); }
const Bitmap *AsBitmap(const HostBitmap *bitmap) { return static_cast<const Bitmap *>(bitmap); }

HostBitmap *Create() {
    return Guarded<HostBitmap *>(nullptr, [] { return new Bitmap; });
}

void ReleaseBitmap(HostBitmap *bitmap) { delete bitmap; }

std::int32_t Load(HostBitmap *bitmap, const TableFilename *name, std::int32_t) {
    if (bitmap == nullptr || name == nullptr) return kImageMiscError;
    return Guarded<std::int32_t>(kImageOutOfMemory, [&] { return AsBitmap(bitmap)->Load(ToPath(name)); });
}

std::int32_t Init(HostBitmap *bitmap, std::int32_t width, std::int32_t height, std::int32_t) {
    if (bitmap == nullptr) return kImageMiscError;
    return Guarded<std::int32_t>(kImageOutOfMemory, [&] { return AsBitmap(bitmap)->Init(width, height); });
}

std::int32_t Width(const HostBitmap *bitmap) { return bitmap == nullptr ? 0 : AsBitmap(bitmap)->width; }
std::int32_t Height(const HostBitmap *bitmap) { return bitmap == nullptr ? 0 : AsBitmap(bitmap)->height; }
std::int32_t Depth(const HostBitmap *bitmap) { return Width(bitmap) == 0 ? 0 : kDepth; }

HostBitmap *Clone(const HostBitmap *bitmap) {
    if (bitmap == nullptr) return nullptr;
    return Guarded<HostBitmap *>(nullptr, [&] { return new Bitmap(*AsBitmap(bitmap)); });
}

void GetPixel(const HostBitmap *bitmap, std::int32_t x, std::int32_t y, std::uint16_t *r, std::uint16_t *g,
              std::uint16_t *b) {
    std::uint16_t color[3] = {0, 0, 0};
    if (x >= 0 && y >= 0 && x < Width(bitmap) && y < Height(bitmap)) {
        const Bitmap &image = *AsBitmap(bitmap);
        const std::size_t pixel =
            (static_cast<std::size_t>(y) * static_cast<std::size_t>(image.width) + static_cast<std::size_t>(x)) * 4;
        for (std::size_t i = 0; i < 3; ++i) color[i] = image.rgba[pixel + i];
    }
    if (r != nullptr) *r = color[0];
    if (g != nullptr) *g = color[1];
    if (b != nullptr) *b = color[2];
}

}  // namespace

const BitmapTable *BitmapEntries() {
    static const BitmapTable table = {Create, ReleaseBitmap, Load, Init, Width, Height, Depth, Clone, GetPixel};
    return &table;
}

}  // namespace host
