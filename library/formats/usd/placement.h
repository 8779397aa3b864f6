// Where a camera of a scene description stands on each frame, and which frames there are.
#pragma once

#include "library/formats/usd/cameras.h"
#include "library/formats/usd/ops.h"
#include "library/formats/usd/stage.h"

namespace tremolux {

class UsdPlacement {
  public:
    // Throws a Failure for ops that there are not.
    UsdPlacement(const SourceText &source, const UsdCamera &camera, const UsdStage &stage);
    // Gives the move its frames, each where the camera stands, with notes on what is lost. Throws a Failure.
    void SetFrames(const FormatOptions &options, CameraMove *move);

  private:
    struct Range {
        double first, last;  // frames
    };
    std::optional<Range> SampledRange() const;
    Range FrameRange(const FormatOptions &options, std::vector<std::string> *notes) const;
    void CheckLength(const Range &range) const;
    host::Matrix WorldAt(double time_code) const;
    host::Matrix CameraAt(double frame);

    const SourceText &source_;
    const UsdCamera &camera_;
    const UsdStage &stage_;
    std::vector<UsdTransform> transforms_;  // the camera's own first, up to what resets
    std::vector<host::Matrix> still_;       // of those that do not change
    bool is_stretched_ = false, is_mirrored_ = false;
};

}  // namespace tremolux
