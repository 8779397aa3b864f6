// The text itself: memory, comparison, parts.
#include "c4d_string.h"
#include "platform/glue/letters.h"

namespace {

const LONG kLongest = 0x7FFFFFF0;

LONG CutCount(LONG position, LONG count, LONG length) {
    return count < 0 ? 0 : count > length - position ? length - position : count;
}

}  // namespace

String::String(const String &other) : String() { Append(other.text_, other.length_); }

String::String(LONG count, UWORD fill) : String() {
    if (count <= 0 || !Reserve(count)) return;
    for (LONG i = 0; i < count; ++i) text_[i] = fill;
    text_[count] = 0;
    length_ = count;
}

String::String(const CHAR *text, STRINGENCODING encoding) : String() { SetCString(text, -1, encoding); }

String::~String() { GeFree(text_); }

String &String::operator=(const String &other) {
    if (this == &other) return *this;
    if (other.length_ == 0) {
        GeFree(text_);
        capacity_ = length_ = 0;
        return *this;
    }
    length_ = 0;
    if (text_) text_[0] = 0;
    Append(other.text_, other.length_);
    return *this;
}

// `capacity_` counts the closing 0.
Bool String::Reserve(LONG units) {
    if (units < 0 || units > kLongest) return FALSE;
    if (text_ && units < capacity_) return TRUE;
    LONG room = units + 1;
    // Appending piece by piece must not copy the text every time.
    if (text_ && capacity_ < kLongest / 2 && room < capacity_ * 2) room = capacity_ * 2;
    const std::size_t bytes = static_cast<std::size_t>(room) * sizeof(UWORD);
    UWORD *text = static_cast<UWORD *>(GeAllocNC(static_cast<VLONG>(bytes)));
    if (!text) return FALSE;
    CopyMemType(text_, text, length_);
    text[length_] = 0;
    GeFree(text_);
    text_ = text;
    capacity_ = room;
    return TRUE;
}

void String::Append(const UWORD *units, LONG count) {
    if (!units || count <= 0 || count > kLongest - length_ || !Reserve(length_ + count)) return;
    CopyMemType(units, text_ + length_, count);
    length_ += count;
    text_[length_] = 0;
}

String &String::operator+=(const String &other) {
    if (this == &other) return *this += String(other);
    Append(other.text_, other.length_);
    return *this;
}

LONG String::Compare(const String &other) const {
    for (LONG i = 0; i < length_ && i < other.length_; ++i)
        if (text_[i] != other.text_[i]) return LONG(text_[i]) - LONG(other.text_[i]);
    return length_ < other.length_ ? -1 : length_ > other.length_ ? 1 : 0;
}

Bool String::FindFirst(UWORD unit, LONG *position, LONG start) const {
    for (LONG i = start < 0 ? 0 : start; i < length_; ++i) {
        if (text_[i] != unit) continue;
        if (position) *position = i;
        return TRUE;
    }
    return FALSE;
}

String String::SubStr(LONG start, LONG count) const {
    String part;
    if (start < 0) {
        if (count > 0) count = count + start > 0 ? count + start : 0;
        start = 0;
    }
    if (start < length_) part.Append(text_ + start, CutCount(start, count, length_));
    return part;
}

String String::Left(LONG count) const { return SubStr(0, count); }

String String::Right(LONG count) const {
    const LONG cut = CutCount(0, count, length_);
    return SubStr(length_ - cut, cut);
}

String String::ToUpper() const {
    String result(*this);
    for (LONG i = 0; i < result.length_; ++i) result.text_[i] = UpperLetter(result.text_[i]);
    return result;
}

String String::ToLower() const {
    String result(*this);
    for (LONG i = 0; i < result.length_; ++i) result.text_[i] = LowerLetter(result.text_[i]);
    return result;
}
