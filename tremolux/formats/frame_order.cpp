#include "tremolux/formats/frame_order.h"

#include <optional>

#include "tremolux/formats/numbers.h"

namespace tremolux {

void FrameOrder::Add(const Line &line, const Field &field) {
    const std::optional<std::int64_t> frame = ParseWhole(field.text);
    if (!frame || *frame < -kMaxFrameNumber || *frame > kMaxFrameNumber) {
        const std::string limit = std::to_string(kMaxFrameNumber);
        source_.RefuseField(line, field, "a whole frame number from -" + limit + " to " + limit);
    }
    if (count_ == 0) first_ = *frame;
    const std::int64_t due = first_ + static_cast<std::int64_t>(count_);
    if (*frame != due) {
        source_.RefuseField(line, field, "frame " + std::to_string(due) + " (frames follow each other without gaps)");
    }
    if (++count_ > kMaxFrames) {
        source_.RefuseField(line, field, "the end of the file (at most " + std::to_string(kMaxFrames) + " frames)");
    }
}

void FrameOrder::Finish(CameraMove *move) const {
    if (count_ == 0) source_.Refuse(source_.Lines().size() + 1, 1, "the end of the file", "at least one frame");
    source_.CheckEnd();
    move->first_frame = first_;
    MakeContinuous(&move->samples);
}

}  // namespace tremolux
