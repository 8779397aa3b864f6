// Text of 16-bit code units, by value. Never NULL; positions and counts out of range are cut.
#pragma once

#include "c4d_memory.h"
#include "ge_prepass.h"

// One place in a text, to read and to write.
class StringUnit {
  public:
    StringUnit(UWORD *unit) : unit_(unit) {}
    operator UWORD() const { return unit_ ? *unit_ : UWORD(0); }
    StringUnit &operator=(UWORD value) {
        if (unit_) *unit_ = value;
        return *this;
    }
    StringUnit(const StringUnit &) = default;
    StringUnit &operator=(const StringUnit &other) { return this == &other ? *this : *this = UWORD(other); }

  private:
    UWORD *unit_;
};

class String {
  public:
    String() : capacity_(0), length_(0), text_(NULL), reserved_(NULL) {}
    String(const String &other);
    // Implicit, so that "text" converts.
    String(const CHAR *text, STRINGENCODING encoding = STRINGENCODING_XBIT);
    String(LONG count, UWORD fill);
    ~String();
    String &operator=(const String &other);

    LONG GetLength() const { return length_; }
    // Not empty.
    Bool Content() const { return length_ > 0; }

    // < 0, 0, > 0 by code unit.
    LONG Compare(const String &other) const;

    Bool operator==(const String &other) const { return Compare(other) == 0; }
    Bool operator!=(const String &other) const { return Compare(other) != 0; }
    Bool operator<(const String &other) const { return Compare(other) < 0; }
    Bool operator>(const String &other) const { return Compare(other) > 0; }
    Bool operator<=(const String &other) const { return Compare(other) <= 0; }
    Bool operator>=(const String &other) const { return Compare(other) >= 0; }
    Bool operator==(const CHAR *other) const { return Compare(String(other)) == 0; }
    Bool operator!=(const CHAR *other) const { return Compare(String(other)) != 0; }

    friend const String operator+(const String &a, const String &b) {
        String sum(a);
        sum += b;
        return sum;
    }
    String &operator+=(const String &other);

    // `position` is filled only when something was found.
    Bool FindFirst(UWORD unit, LONG *position, LONG start = 0) const;

    String SubStr(LONG start, LONG count) const;
    String Left(LONG count) const;
    String Right(LONG count) const;

    // Latin with its common accents, Greek and Cyrillic.
    String ToUpper() const;
    String ToLower() const;

    // Bytes without the closing 0.
    LONG GetCStringLen(STRINGENCODING encoding = STRINGENCODING_XBIT) const;
    // Writes at most `bytes` bytes, the closing 0 included; the number of bytes written without it.
    LONG GetCString(CHAR *buffer, LONG bytes, STRINGENCODING encoding = STRINGENCODING_XBIT) const;
    // count -1 = up to the closing 0. Bytes that are no valid UTF-8 become U+FFFD.
    void SetCString(const CHAR *text, LONG count = -1, STRINGENCODING encoding = STRINGENCODING_XBIT);
    void SetUcBlock(const UWORD *text, LONG count);

    StringUnit operator[](LONG position) {
        return StringUnit(position >= 0 && position < length_ ? text_ + position : NULL);
    }
    UWORD operator[](LONG position) const { return position >= 0 && position < length_ ? text_[position] : UWORD(0); }

  private:
    Bool Reserve(LONG units);
    void Append(const UWORD *units, LONG count);

    LONG capacity_, length_;
    UWORD *text_;  // NULL for the empty text, else `length_` units and a 0
    void *reserved_;
};

String LongToString(LONG value);
// For display. `before` and `after` count the digits on either side of the point: before -1 = as needed, else filled
// up at the front with `fill`; after -1 = rounded to three, trailing zeros and a bare point dropped. `exponent` allows
// the form 1.5e+20 where the plain one would be long. The same text on every platform and in every language.
String RealToString(Real value, LONG before = -1, LONG after = -1, Bool exponent = FALSE, UWORD fill = '0');
