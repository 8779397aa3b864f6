#include "lib_description.h"

namespace {

// 0 is "not said".
Bool Agree(LONG a, LONG b) { return a == b || a == 0 || b == 0; }

}  // namespace

void DescID::PushId(const DescLevel &level) {
    if (depth_ < kLevels) levels_[depth_++] = level;
}

const DescLevel &DescID::operator[](LONG position) const {
    static const DescLevel none(0);
    if (position == -1) position = depth_ - 1;
    return position >= 0 && position < depth_ ? levels_[position] : none;
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
