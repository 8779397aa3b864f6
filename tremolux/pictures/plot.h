// Motion as drawings, made by gnuplot.
#pragma once

#include <filesystem>
#include <string>

#include "library/measures/motion.h"
#include "library/moves/played_motion.h"

namespace tremolux {

enum class PlotFormat { kSvg, kPng };
// By the extension; throws a Failure for another than .svg and .png.
PlotFormat PlotFormatOf(const std::filesystem::path &file);
// Where the second sheet of a plot lies: beside the first, with "-spectrum" behind its name.
std::filesystem::path SecondSheet(const std::filesystem::path &file);

// Both cameras over time: position (cm), angles (degrees), focal length (mm) and focus distance (cm), with the jolts
// marked. The bytes of the drawing; throws a Failure.
std::string DrawMotion(const PlayedMotion &motion, PlotFormat format);
// The path seen from above, and what was added to position (cm) and angles (degrees) in thirds of octaves (Hz).
std::string DrawSpectrum(const PlayedMotion &motion, const AddedMotion &added, PlotFormat format);

}  // namespace tremolux
