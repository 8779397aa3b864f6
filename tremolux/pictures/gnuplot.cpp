#include "tremolux/pictures/gnuplot.h"

#include "library/formats/numbers.h"
#include "tremolux/pictures/tool.h"

namespace tremolux {
namespace {

struct PlotTheme {
    const char *ground, *ink, *grid, *input, *shaken, *blue, *green;
};
// Colours that people tell apart whatever their eyes (Okabe and Ito), and dashes and widths besides.
constexpr PlotTheme kLight = {"#ffffff", "#333333", "#dddddd", "#8c9196", "#d55e00", "#0072b2", "#009e73"};
constexpr PlotTheme kDark = {"#16191d", "#d5d9de", "#343a41", "#7f868d", "#ff8a3d", "#56b4e9", "#2fc79a"};

std::string PlotStyle(const PlotTheme &theme) {
    const auto colour = [](const char *name) { return " linecolor \"" + std::string(name) + "\""; };
    const std::string ink = " textcolor \"" + std::string(theme.ink) + "\"";
    return "set encoding utf8\nset grid" + colour(theme.grid) + "\nset border 3" + colour(theme.ink) +
           "\nset tics nomirror" + ink + "\nset xlabel" + ink + "\nset ylabel" + ink + "\nset x2label" + ink +
           "\nset key" + ink + "\nset style line 1" + colour(theme.input) + " linewidth 3.5\nset style line 2" +
           colour(theme.shaken) + " linewidth 1.4\nset style line 3" + colour(theme.blue) +
           " linewidth 1.2 dashtype (4,4)\nset style line 4" + colour(theme.blue) +
           " linewidth 1.8 dashtype 1 pointtype 5 pointsize 0.6\nset style line 5" + colour(theme.shaken) +
           " linewidth 1.8 dashtype (8,4) pointtype 7 pointsize 0.6\nset style line 6" + colour(theme.green) +
           " linewidth 1.8 dashtype (2,3) pointtype 9 pointsize 0.7\n";
}

const PlotTheme &ThemeOf(const PlotLook &look) { return look.dark ? kDark : kLight; }

// Gnuplot's own quotes, in which nothing but a quote means something.
std::string PlotText(const std::string &text) {
    std::string quoted = "'";
    for (const char c : text) quoted += c == '\'' ? "''" : std::string(1, c == '\n' || c == '\r' ? ' ' : c);
    return quoted + "'";
}

}  // namespace

const char *PlotInk(const PlotLook &look) { return ThemeOf(look).ink; }

std::string PlotHead(const PlotLook &look, int height) {
    const std::string size = std::to_string(kPlotWidth) + "," + std::to_string(height);
    const std::string terminal = look.format == PlotFormat::kSvg ? "svg dynamic" : "pngcairo";
    return "set terminal " + terminal + " noenhanced background \"" + ThemeOf(look).ground + "\" size " + size +
           " font \"sans,13\"\n" + "INK = \"rgb '" + ThemeOf(look).ink + "'\"\n" + PlotStyle(ThemeOf(look)) +
           "set label 9 " + PlotText(look.title) + " at screen 0.015, screen " + FormatNumber(1 - 20.0 / height) +
           " textcolor \"" + ThemeOf(look).ink + "\" font \"sans,15\"\n";
}

constexpr const char *kPackage = "gnuplot-nox";

void RequireGnuplot() {
    const TemporaryFolder folder;
    Tool({"gnuplot", "--version"}, kPackage, folder).Finish();
}

std::string RunGnuplot(const std::string &script) {
    const TemporaryFolder folder;
    Tool gnuplot({"gnuplot"}, kPackage, folder);
    gnuplot.Write(script);
    return gnuplot.Finish();
}

// Shares of the sheet.
std::string PlotMargins(double left, double right, double bottom, double top) {
    return "set lmargin at screen " + FormatNumber(left) + "\nset rmargin at screen " + FormatNumber(right) +
           "\nset bmargin at screen " + FormatNumber(bottom) + "\nset tmargin at screen " + FormatNumber(top) + "\n";
}

}  // namespace tremolux
