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
    StringUnit &operator=(const StringUnit &other) { return *this = UWORD(other); }

  private:
    UWORD *unit_;
};

class String {
  public:
    String() : capacity_(0), length_(0), text_(NULL), reserved_(NULL) {}
    String(const String &other);
    // Implicit, so that "text" converts.
    String(const CHAR *text, STRINGENCODING encoding = STRINGENCODING_XBIT);
    String(const UWORD *text);
    String(LONG count, UWORD fill);
    ~String();
    String &operator=(const String &other);

    LONG GetLength() const { return length_; }
    // Not empty.
    Bool Content() const { return length_ > 0; }
    void CopyTo(String *destination) const;

    // < 0, 0, > 0 by code unit.
    LONG Compare(const String &other) const;
    // Without regard to case.
    LONG LexCompare(const String &other) const;
    // Like LexCompare, but runs of digits compare by their value.
    LONG RelCompare(const String &other) const;
    // The `count` units from `position` on against `other`.
    LONG ComparePart(const String &other, LONG count, LONG position) const;
    LONG LexComparePart(const String &other, LONG count, LONG position) const;

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
    Bool FindFirst(const String &text, LONG *position, LONG start = 0) const;
    Bool FindFirst(UWORD unit, LONG *position, LONG start = 0) const;
    // Last place at or before `start`; -1 = from the end.
    Bool FindLast(const String &text, LONG *position, LONG start = -1) const;
    Bool FindLast(UWORD unit, LONG *position, LONG start = -1) const;
    // The same without regard to case; the argument is upper case.
    Bool FindFirstUpper(const String &text, LONG *position, LONG start = 0) const;
    Bool FindLastUpper(const String &text, LONG *position, LONG start = -1) const;

    void Delete(LONG position, LONG count);
    void Insert(LONG position, UWORD unit);
    // The units start to end of `text` (both included); -1 stands for its first and its last.
    void Insert(LONG position, const String &text, LONG start = -1, LONG end = -1);
    String SubStr(LONG start, LONG count) const;
    String Left(LONG count) const;
    String Right(LONG count) const;

    // Latin with its common accents, Greek and Cyrillic.
    String ToUpper() const;
    String ToLower() const;

    // Value of an arithmetic expression ("1+2" is 3); 0 and a nonzero `error` when the text is none. ToLong cuts
    // toward zero and to the range of a LONG.
    LONG ToLong(LONG *error = NULL) const;
    Real ToReal(LONG *error = NULL) const;

    // Bytes without the closing 0.
    LONG GetCStringLen(STRINGENCODING encoding = STRINGENCODING_XBIT) const;
    // Writes at most `bytes` bytes, the closing 0 included; the number of bytes written without it.
    LONG GetCString(CHAR *buffer, LONG bytes, STRINGENCODING encoding = STRINGENCODING_XBIT) const;
    // Free it with GeFree; NULL for the empty text.
    CHAR *GetCStringCopy(STRINGENCODING encoding = STRINGENCODING_XBIT) const;
    // count -1 = up to the closing 0. Bytes that are no valid UTF-8 become U+FFFD.
    void SetCString(const CHAR *text, LONG count = -1, STRINGENCODING encoding = STRINGENCODING_XBIT);
    // Copies at most `count` units, without a closing 0.
    void GetUcBlock(UWORD *buffer, LONG count) const;
    // Copies at most `count` units, the closing 0 included.
    void GetUcBlockNull(UWORD *buffer, LONG count) const;
    void SetUcBlock(const UWORD *text, LONG count);

    StringUnit operator[](LONG position) {
        return StringUnit(position >= 0 && position < length_ ? text_ + position : NULL);
    }
    UWORD operator[](LONG position) const { return position >= 0 && position < length_ ? text_[position] : UWORD(0); }

  private:
    Bool Reserve(LONG units);
    void Append(const UWORD *units, LONG count);
    Bool StandsAt(const String &text, LONG position, Bool upper) const;
    Bool Find(const String &text, LONG *position, LONG start, Bool upper) const;
    Bool FindBackward(const String &text, LONG *position, LONG start, Bool upper) const;

    LONG capacity_, length_;
    UWORD *text_;  // NULL for the empty text, else `length_` units and a 0
    void *reserved_;
};

String LongToString(LONG value);
String LLongToString(LLONG value);
// For display. `before` and `after` count the digits on either side of the point: before -1 = as needed, else filled
// up at the front with `fill`; after -1 = rounded to three, trailing zeros and a bare point dropped. `exponent` allows
// the form 1.5e+20 where the plain one would be long. The same text on every platform and in every language.
String RealToString(Real value, LONG before = -1, LONG after = -1, Bool exponent = FALSE, UWORD fill = '0');
