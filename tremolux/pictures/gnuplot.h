// What all drawings by gnuplot share.
#pragma once

#include <string>

#include "tremolux/pictures/plot.h"

namespace tremolux {

constexpr int kPlotWidth = 1200;  // of a sheet in pixels

// The terminal, the styles of lines 1 to 6 (input or recorded, shaken, jolts, then three of a kind) and the title of a
// sheet of that height, in pixels; @INK is the colour of texts.
std::string PlotHead(const PlotLook &look, int height);
// The colour of texts, as gnuplot takes it between quotes.
const char *PlotInk(const PlotLook &look);
// Where the next panel lies: shares of the sheet from its lower left corner.
std::string PlotMargins(double left, double right, double bottom, double top);
// Throws a Failure where there is none: before long work, whose end would be the wrong time to learn of it.
void RequireGnuplot();
// What the script draws. Throws a Failure.
std::string RunGnuplot(const std::string &script);

}  // namespace tremolux
