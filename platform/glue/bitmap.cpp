#include "c4d_basebitmap.h"
#include "c4d_file.h"
#include "platform/glue/handles.h"

namespace {

const BitmapTable *Table() { return host_table->bitmap; }

}  // namespace

BaseBitmap *BaseBitmap::Alloc() { return FromHost(Table()->create()); }

void BaseBitmap::Free(BaseBitmap *&bitmap) {
    if (bitmap) Table()->release(ToHost(bitmap));
    bitmap = NULL;
}

IMAGERESULT BaseBitmap::Init(const Filename &name, LONG frame, Bool *ismovie) {
    // The host reads still images only.
    if (ismovie) *ismovie = FALSE;
    return static_cast<IMAGERESULT>(Table()->load(ToHost(this), ToTable(&name), frame));
}

IMAGERESULT BaseBitmap::Init(BaseBitmap *&bitmap, const Filename &name, LONG frame, Bool *ismovie) {
    bitmap = Alloc();
    if (!bitmap) return IMAGERESULT_OUTOFMEMORY;
    const IMAGERESULT result = bitmap->Init(name, frame, ismovie);
    if (result != IMAGERESULT_OK) Free(bitmap);
    return result;
}

IMAGERESULT BaseBitmap::Init(LONG width, LONG height, LONG depth, INITBITMAPFLAGS) {
    return static_cast<IMAGERESULT>(Table()->init(ToHost(this), width, height, depth));
}

LONG BaseBitmap::GetBw() const { return Table()->width(ToHost(this)); }
LONG BaseBitmap::GetBh() const { return Table()->height(ToHost(this)); }
LONG BaseBitmap::GetBt() const { return Table()->depth(ToHost(this)); }
BaseBitmap *BaseBitmap::GetClone() const { return FromHost(Table()->clone(ToHost(this))); }

void BaseBitmap::GetPixel(LONG x, LONG y, UWORD *r, UWORD *g, UWORD *b) const {
    UWORD red = 0, green = 0, blue = 0;
    Table()->get_pixel(ToHost(this), x, y, &red, &green, &blue);
    if (r) *r = red;
    if (g) *g = green;
    if (b) *b = blue;
}

AutoBitmap::AutoBitmap(const String &file) : bitmap_(NULL) {
    if (host_table) BaseBitmap::Init(bitmap_, GeGetPluginPath() + "res" + file);
}
