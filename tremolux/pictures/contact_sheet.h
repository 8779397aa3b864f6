// Several pictures on one page.
#pragma once

#include <string>
#include <vector>

#include "tremolux/pictures/picture.h"

namespace tremolux {

struct CaptionedPicture {
    Picture picture;
    std::string caption;  // ASCII
};

// Rows of at most three, all pictures of one size, each with its caption below it. At least one.
Picture ContactSheetOf(const std::vector<CaptionedPicture> &pictures);

}  // namespace tremolux
