// A recording beside what was fitted to it.
#pragma once

#include <string>

#include "library/fit/fit.h"
#include "tremolux/pictures/plot.h"

namespace tremolux {

// For each axis that the recording moves: both spectra (RMS in thirds of octaves over Hz), and a take of each under the
// other, on one scale, without what is slower than the shake. `fitted` is as long as a part of the recording. The bytes
// of the drawing; throws a Failure.
std::string DrawFit(const RecordedShake &recorded, const AxisMotion &fitted, const PlotLook &look);

}  // namespace tremolux
