#include "presets/stamps.h"

#include <cstdlib>
#include <cstring>

namespace {

Bool SameTime(const LocalFileTime &a, const LocalFileTime &b) { return std::memcmp(&a, &b, sizeof(a)) == 0; }

LONG SecondOfDay(const LocalFileTime &time) { return (time.hour * 60 + time.minute) * 60 + time.second; }

}  // namespace

// File times count seconds, or two of them, and their clock may lag behind or run ahead a little. Two times of day are
// enough to tell: on another day it only means reading once more.
Bool IsLongPast(const LocalFileTime &changed) {
    constexpr LONG kDay = 24 * 60 * 60, kClocksApart = 5;
    LocalFileTime now = LocalFileTime();
    GeGetCurrentTime(&now);
    const LONG since = std::abs(SecondOfDay(now) - SecondOfDay(changed));
    return since > kClocksApart && since < kDay - kClocksApart;
}

Bool FileStamp::operator==(const FileStamp &other) const {
    return size == other.size && SameTime(changed, other.changed);
}

FolderStamp::FolderStamp(const Filename &folder) : folder_(folder), changed_(LocalFileTime()) {
    exists_ = GeGetFileTime(folder, GE_FILETIME_MODIFIED, &changed_);
    is_certain_ = !exists_ || IsLongPast(changed_);
}

Bool FolderStamp::operator==(const FolderStamp &other) const {
    return is_certain_ && other.is_certain_ && exists_ == other.exists_ && SameTime(changed_, other.changed_) &&
           folder_ == other.folder_;
}
