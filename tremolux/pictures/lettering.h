// Small letters in pictures: the same on every system, whatever fonts it has.
#pragma once

#include <string>

#include "tremolux/pictures/picture.h"

namespace tremolux {

constexpr int kLetterWidth = 6, kLetterHeight = 9;  // pixels, with the gap between letters

// ASCII, its upper left corner at x, y; what lies outside of the picture is cut off, other characters are question
// marks.
void Write(const std::string &text, int x, int y, const Colour &colour, Picture *picture);
// Wide, in pixels.
int WidthOf(const std::string &text);

}  // namespace tremolux
