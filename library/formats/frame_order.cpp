#include "library/formats/frame_order.h"

#include <optional>

#include "library/formats/numbers.h"
#include "library/moves/between_frames.h"

namespace tremolux {
namespace {

// Straight from one value to the next.
std::vector<double> FilledTrait(const std::vector<double> &values, std::int64_t step) {
    std::vector<double> filled;
    for (std::size_t i = 0; i + 1 < values.size(); ++i) {
        for (std::int64_t part = 0; part < step; ++part) {
            const double share = static_cast<double>(part) / static_cast<double>(step);
            filled.push_back(values[i] + (values[i + 1] - values[i]) * share);
        }
    }
    filled.push_back(values.back());
    return filled;
}

void FillGaps(std::int64_t step, CameraMove *move) {
    CameraMove sparse;
    sparse.samples.swap(move->samples);
    const std::int64_t frames = step * sparse.LastFrame() + 1;
    for (std::int64_t i = 0; i < frames; ++i)
        move->samples.push_back(WithinLimits(SampleBetween(sparse, static_cast<double>(i) / static_cast<double>(step))));
    for (std::vector<double> &values : move->traits.channels)
        if (values.size() > 1) values = FilledTrait(values, step);
    move->notes.push_back("holds every " + std::to_string(step) + ". frame; those between them are interpolated");
}

}  // namespace

std::string FrameOrder::Add(std::optional<std::int64_t> frame) {
    if (!frame || *frame < -kMaxFrameNumber || *frame > kMaxFrameNumber) {
        const std::string limit = std::to_string(kMaxFrameNumber);
        return "a whole frame number from -" + limit + " to " + limit;
    }
    if (count_ == 0) first_ = *frame;
    if (count_ == 1 && fills_gaps_ && *frame > first_) step_ = *frame - first_;
    const std::int64_t due = first_ + step_ * static_cast<std::int64_t>(count_);
    if (*frame != due) {
        const bool first_gap = count_ == 1 && *frame > due;
        return "frame " + std::to_string(due) +
               (step_ > 1 ? " (as far from the one before as the first two are)"
                          : std::string(" (frames follow each other without gaps") +
                                (first_gap ? "; --retime fills equal ones)" : ")"));
    }
    const std::int64_t frames = step_ * static_cast<std::int64_t>(count_++) + 1;
    if (frames > static_cast<std::int64_t>(kMaxFrames)) return "the end of the file (at most " + std::to_string(kMaxFrames) + " frames)";
    return {};
}

void FrameOrder::Add(const Line &line, const Field &field) {
    if (const std::string expected = Add(ParseTableWhole(field.text)); !expected.empty())
        source_.RefuseField(line, field, expected);
}

void FrameOrder::Finish(CameraMove *move) const {
    if (count_ == 0) source_.Refuse(source_.Lines().size() + 1, 1, "the end of the file", "at least one frame");
    move->first_frame = first_;
    MakeContinuous(&move->samples);
    if (step_ > 1) FillGaps(step_, move);
}

}  // namespace tremolux
