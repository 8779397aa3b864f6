// Frames of a file: whole numbers, each one more than the one before; or, where that is wanted, all as far apart as the first
// two.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "library/formats/source_text.h"
#include "library/moves/camera_move.h"

namespace tremolux {

class FrameOrder {
  public:
    explicit FrameOrder(const SourceText &source, bool fills_gaps = false)
        : source_(source), fills_gaps_(fills_gaps) {}
    // Refuses what is no frame number, out of order, twice, or after a gap.
    void Add(const Line &line, const Field &field);
    // The same for a frame that stands alone, of a number that is perhaps none: what was expected instead, empty when
    // it is right.
    std::string Add(std::optional<std::int64_t> frame);
    // The move's first frame and its continuous angles, and the frames between those of the file; refuses a file without
    // frames.
    void Finish(CameraMove *move) const;

  private:
    const SourceText &source_;
    const bool fills_gaps_;
    std::int64_t first_ = 0, step_ = 1;
    std::size_t count_ = 0;
};

}  // namespace tremolux
