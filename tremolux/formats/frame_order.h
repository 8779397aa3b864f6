// Frames of a file: whole numbers, each one more than the one before.
#pragma once

#include <cstdint>

#include "tremolux/formats/camera_move.h"
#include "tremolux/formats/source_text.h"

namespace tremolux {

class FrameOrder {
  public:
    explicit FrameOrder(const SourceText &source) : source_(source) {}
    // Refuses what is no frame number, out of order, twice, or after a gap.
    void Add(const Line &line, const Field &field);
    // The move's first frame and its continuous angles; refuses a file without frames or with a cut-off last line.
    void Finish(CameraMove *move) const;

  private:
    const SourceText &source_;
    std::int64_t first_ = 0;
    std::size_t count_ = 0;
};

}  // namespace tremolux
