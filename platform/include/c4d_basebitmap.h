#pragma once

#include "c4d_filename.h"
#include "ge_prepass.h"

class BaseBitmap {
  public:
    static BaseBitmap *Alloc();
    static void Free(BaseBitmap *&bitmap);

    // Loads an image file.
    IMAGERESULT Init(const Filename &name, LONG frame = -1, Bool *ismovie = NULL);
    // Makes a bitmap of the image file; `bitmap` is NULL when that failed.
    static IMAGERESULT Init(BaseBitmap *&bitmap, const Filename &name, LONG frame = -1, Bool *ismovie = NULL);

    // Width and height in pixels, bits of a pixel.
    LONG GetBw() const;
    LONG GetBh() const;

  private:
    BaseBitmap();
    ~BaseBitmap();
};

// The image `file` of the module's folder "res"; NULL when it could not be loaded.
class AutoBitmap {
  public:
    AutoBitmap(const String &file);
    ~AutoBitmap() { BaseBitmap::Free(bitmap_); }
    AutoBitmap(const AutoBitmap &) = delete;
    AutoBitmap &operator=(const AutoBitmap &) = delete;

    operator BaseBitmap *() const { return bitmap_; }

  private:
    BaseBitmap *bitmap_;
};

// A rectangle of a bitmap that serves as an icon.
struct IconData {
    BaseBitmap *bmp;
    LONG x, y, w, h;
    ICONDATAFLAGS flags;

    IconData() : bmp(NULL), x(0), y(0), w(0), h(0), flags(ICONDATAFLAGS_0) {}
    IconData(BaseBitmap *bmp_, LONG x_, LONG y_, LONG w_, LONG h_)
        : bmp(bmp_), x(x_), y(y_), w(w_), h(h_), flags(ICONDATAFLAGS_0) {}
};
