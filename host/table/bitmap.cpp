#include "host/services/bitmap.h"

#include "host/table/entries.h"
#include "host/table/guard.h"
#include "host/value/text.h"

namespace host {

namespace {

Bitmap *AsBitmap(HostBitmap *bitmap) { return static_cast<Bitmap *>(bitmap); }

const Bitmap *AsBitmap(const HostBitmap *bitmap) { return static_cast<const Bitmap *>(bitmap); }

}  // namespace

HostBitmap *BitmapEntries::create() {
    return Guarded<HostBitmap *>(nullptr, [] { return new Bitmap; });
}

void BitmapEntries::release(HostBitmap *bitmap) { delete bitmap; }

std::int32_t BitmapEntries::load(HostBitmap *bitmap, const TableFilename *name, std::int32_t) {
    if (bitmap == nullptr || name == nullptr) return kImageMiscError;
    return Guarded<std::int32_t>(kImageOutOfMemory, [&] { return AsBitmap(bitmap)->Load(ToPath(name)); });
}

std::int32_t BitmapEntries::width(const HostBitmap *bitmap) { return bitmap == nullptr ? 0 : AsBitmap(bitmap)->width; }

std::int32_t BitmapEntries::height(const HostBitmap *bitmap) {
    return bitmap == nullptr ? 0 : AsBitmap(bitmap)->height;
}

}  // namespace host
