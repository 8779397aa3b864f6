#include "library/formats/frame_order.h"

#include <optional>

#include "library/formats/numbers.h"

namespace tremolux {

std::string FrameOrder::Add(std::optional<std::int64_t> frame) {
    if (!frame || *frame < -kMaxFrameNumber || *frame > kMaxFrameNumber) {
        const std::string limit = std::to_string(kMaxFrameNumber);
        return "a whole frame number from -" + limit + " to " + limit;
    }
    if (count_ == 0) first_ = *frame;
    const std::int64_t due = first_ + static_cast<std::int64_t>(count_);
    if (*frame != due) return "frame " + std::to_string(due) + " (frames follow each other without gaps)";
    if (++count_ > kMaxFrames) return "the end of the file (at most " + std::to_string(kMaxFrames) + " frames)";
    return {};
}

void FrameOrder::Add(const Line &line, const Field &field) {
    if (const std::string expected = Add(ParseWhole(field.text)); !expected.empty())
        source_.RefuseField(line, field, expected);
}

void FrameOrder::Finish(CameraMove *move) const {
    if (count_ == 0) source_.Refuse(source_.Lines().size() + 1, 1, "the end of the file", "at least one frame");
    move->first_frame = first_;
    MakeContinuous(&move->samples);
}

}  // namespace tremolux
