// Motion as drawings, made by gnuplot.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "library/events/onsets.h"
#include "library/measures/motion.h"
#include "library/moves/played_motion.h"

namespace tremolux {

enum class PlotFormat { kSvg, kPng };
// By the extension; throws a Failure for another than .svg and .png.
PlotFormat PlotFormatOf(const std::filesystem::path &file);
// Where the second sheet of a plot lies: beside the first, with "-spectrum" behind its name.
std::filesystem::path SecondSheet(const std::filesystem::path &file);

struct PlotLook {
    PlotFormat format = PlotFormat::kSvg;
    std::string title;                     // what was played
    bool dark = false;                     // light lines on dark ground
    std::optional<OnsetCurve> heard = {};  // of the sound that jolts come from: drawn below the curves
};

// Both cameras over time, in seconds and frames: position (cm), angles (degrees), focal length (mm) and focus distance
// (cm), and below each what was added to it, with the jolts marked. The bytes of the drawing; throws a Failure.
std::string DrawMotion(const PlayedMotion &motion, const PlotLook &look);
// The path seen from above, what was added to it enlarged, and what was added to position (cm) and angles (degrees) in
// thirds of octaves (Hz).
std::string DrawSpectrum(const PlayedMotion &motion, const AddedMotion &added, const PlotLook &look);

}  // namespace tremolux
