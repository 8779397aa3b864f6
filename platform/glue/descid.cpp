#include "lib_description.h"

namespace {

// 0 is "not said".
Bool Agree(LONG a, LONG b) { return a == b || a == 0 || b == 0; }

}  // namespace

void DescID::SetId(const DescLevel &level) {
    const DescLevel kept(level);
    depth_ = 0;
    PushId(kept);
}

void DescID::PushId(const DescLevel &level) {
    if (depth_ < kLevels) levels_[depth_++] = level;
}

void DescID::PopId() {
    if (depth_ > 0) levels_[--depth_] = DescLevel(0);
}

const DescLevel &DescID::operator[](LONG position) const {
    static const DescLevel none(0);
    if (position == -1) position = depth_ - 1;
    return position >= 0 && position < depth_ ? levels_[position] : none;
}

Bool DescID::operator==(const DescID &other) const {
    if (depth_ != other.depth_) return FALSE;
    for (LONG i = 0; i < depth_; ++i)
        if (levels_[i] != other.levels_[i]) return FALSE;
    return TRUE;
}

const DescID &DescID::operator+=(const DescID &other) {
    const DescID kept(other);
    for (LONG i = 0; i < kept.depth_; ++i) PushId(kept.levels_[i]);
    return *this;
}

const DescID DescID::operator<<(LONG shift) const {
    DescID rest;
    for (LONG i = shift > 0 ? shift : 0; i < depth_; ++i) rest.PushId(levels_[i]);
    return rest;
}

Bool DescID::IsPartOf(const DescID &compare, LONG *position) const {
    LONG same = 0;
    while (same < depth_ && same < compare.depth_) {
        const DescLevel &a = levels_[same], &b = compare.levels_[same];
        if (a.id != b.id || !Agree(a.dtype, b.dtype) || !Agree(a.creator, b.creator)) break;
        ++same;
    }
    if (position) *position = same;
    return same == depth_;
}
