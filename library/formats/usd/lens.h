// The lens, the film back and what else a camera of a scene description says beside its motion.
#pragma once

#include "library/formats/usd/cameras.h"
#include "library/formats/usd/stage.h"

namespace tremolux {

// What a camera has that does not say it, scene units.
constexpr double kFallbackNearClip = 1, kFallbackFarClip = 1000000;

// Of the move whose frames and rate are known: focal lengths, focus distances, film back and traits, with notes on what
// had to be decided. Throws a Failure.
void ReadLens(const SourceText &source, const UsdPrim &camera, const UsdStage &stage, CameraMove *move);

}  // namespace tremolux
