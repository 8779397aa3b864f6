// The text itself: memory, comparison, parts.
#include "c4d_string.h"
#include "platform/glue/letters.h"

namespace {

const LONG kLongest = 0x7FFFFFF0;

LONG CutCount(LONG position, LONG count, LONG length) {
    return count < 0 ? 0 : count > length - position ? length - position : count;
}

// By code unit; case_blind folds to lower case first.
LONG CompareUnits(const UWORD *a, LONG a_length, const UWORD *b, LONG b_length, Bool case_blind) {
    for (LONG i = 0; i < a_length && i < b_length; ++i) {
        const LONG left = case_blind ? LowerLetter(a[i]) : a[i], right = case_blind ? LowerLetter(b[i]) : b[i];
        if (left != right) return left - right;
    }
    return a_length < b_length ? -1 : a_length > b_length ? 1 : 0;
}

Bool IsDigit(UWORD unit) { return unit >= '0' && unit <= '9'; }

}  // namespace

String::String(const String &other) : String() { Append(other.text_, other.length_); }

String::String(const UWORD *text) : String() {
    LONG length = 0;
    while (text && length < kLongest && text[length]) ++length;
    Append(text, length);
}

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

void String::CopyTo(String *destination) const {
    if (destination) *destination = *this;
}

// `capacity_` counts the closing 0.
Bool String::Reserve(LONG units) {
    if (units < 0 || units > kLongest) return FALSE;
    if (text_ && units < capacity_) return TRUE;
    LONG room = units + 1;
    // Appending piece by piece must not copy the text every time.
    if (text_ && capacity_ < kLongest / 2 && room < capacity_ * 2) room = capacity_ * 2;
    UWORD *text = static_cast<UWORD *>(GeAllocNC(VLONG(room) * VLONG(sizeof(UWORD))));
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
    return CompareUnits(text_, length_, other.text_, other.length_, FALSE);
}

LONG String::LexCompare(const String &other) const {
    return CompareUnits(text_, length_, other.text_, other.length_, TRUE);
}

LONG String::RelCompare(const String &other) const {
    LONG i = 0, k = 0;
    while (i < length_ && k < other.length_) {
        if (!IsDigit(text_[i]) || !IsDigit(other.text_[k])) {
            const LONG difference = LONG(LowerLetter(text_[i++])) - LONG(LowerLetter(other.text_[k++]));
            if (difference) return difference;
            continue;
        }
        while (i < length_ && text_[i] == '0') ++i;
        while (k < other.length_ && other.text_[k] == '0') ++k;
        LONG left = i, right = k;
        while (left < length_ && IsDigit(text_[left])) ++left;
        while (right < other.length_ && IsDigit(other.text_[right])) ++right;
        // Without leading zeros the longer number is the larger one.
        if (left - i != right - k) return (left - i) - (right - k);
        const LONG difference = CompareUnits(text_ + i, left - i, other.text_ + k, right - k, FALSE);
        if (difference) return difference;
        i = left;
        k = right;
    }
    return i < length_ ? 1 : k < other.length_ ? -1 : 0;
}

LONG String::ComparePart(const String &other, LONG count, LONG position) const {
    return SubStr(position, count).Compare(other);
}

LONG String::LexComparePart(const String &other, LONG count, LONG position) const {
    return SubStr(position, count).LexCompare(other);
}

Bool String::StandsAt(const String &text, LONG position, Bool upper) const {
    for (LONG i = 0; i < text.length_; ++i) {
        const UWORD unit = text_[position + i];
        if ((upper ? UpperLetter(unit) : unit) != text.text_[i]) return FALSE;
    }
    return TRUE;
}

Bool String::Find(const String &text, LONG *position, LONG start, Bool upper) const {
    if (text.length_ == 0) return FALSE;
    for (LONG i = start < 0 ? 0 : start; i <= length_ - text.length_; ++i) {
        if (!StandsAt(text, i, upper)) continue;
        if (position) *position = i;
        return TRUE;
    }
    return FALSE;
}

Bool String::FindBackward(const String &text, LONG *position, LONG start, Bool upper) const {
    if (text.length_ == 0) return FALSE;
    const LONG last = length_ - text.length_;
    for (LONG i = start < 0 || start > last ? last : start; i >= 0; --i) {
        if (!StandsAt(text, i, upper)) continue;
        if (position) *position = i;
        return TRUE;
    }
    return FALSE;
}

Bool String::FindFirst(const String &text, LONG *position, LONG start) const {
    return Find(text, position, start, FALSE);
}
Bool String::FindFirst(UWORD unit, LONG *position, LONG start) const {
    return Find(String(1, unit), position, start, FALSE);
}
Bool String::FindLast(const String &text, LONG *position, LONG start) const {
    return FindBackward(text, position, start, FALSE);
}
Bool String::FindLast(UWORD unit, LONG *position, LONG start) const {
    return FindBackward(String(1, unit), position, start, FALSE);
}
Bool String::FindFirstUpper(const String &text, LONG *position, LONG start) const {
    return Find(text, position, start, TRUE);
}
Bool String::FindLastUpper(const String &text, LONG *position, LONG start) const {
    return FindBackward(text, position, start, TRUE);
}

void String::Delete(LONG position, LONG count) {
    if (position < 0 || position >= length_) return;
    count = CutCount(position, count, length_);
    if (count == length_) {
        *this = String();
        return;
    }
    CopyMemType(text_ + position + count, text_ + position, length_ - position - count + 1);
    length_ -= count;
}

void String::Insert(LONG position, UWORD unit) { Insert(position, String(1, unit)); }

void String::Insert(LONG position, const String &text, LONG start, LONG end) {
    if (start < 0) start = 0;
    if (end < 0 || end >= text.length_) end = text.length_ - 1;
    if (position < 0) position = 0;
    if (position > length_) position = length_;
    if (start > end) return;
    String result = Left(position);
    result += text.SubStr(start, end - start + 1);
    result += SubStr(position, length_ - position);
    *this = result;
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
