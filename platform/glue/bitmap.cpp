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

LONG BaseBitmap::GetBw() const { return Table()->width(ToHost(this)); }
LONG BaseBitmap::GetBh() const { return Table()->height(ToHost(this)); }

AutoBitmap::AutoBitmap(const String &file) : bitmap_(NULL) {
    if (host_table) BaseBitmap::Init(bitmap_, GeGetPluginPath() + "res" + file);
}
