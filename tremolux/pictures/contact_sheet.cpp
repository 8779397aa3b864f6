#include "tremolux/pictures/contact_sheet.h"

#include <algorithm>

#include "tremolux/pictures/lettering.h"

namespace tremolux {
namespace {

constexpr int kPicturesInARow = 3, kSheetGap = 8, kSheetCaptionHeight = kLetterHeight + 8;
constexpr Colour kSheetPaper = {1, 1, 1}, kSheetInk = {0.2F, 0.2F, 0.2F};

}  // namespace

Picture ContactSheetOf(const std::vector<CaptionedPicture> &pictures) {
    const int width = pictures.front().picture.width, height = pictures.front().picture.height;
    const int count = static_cast<int>(pictures.size()), columns = std::min(count, kPicturesInARow),
              rows = (count + columns - 1) / columns;
    Picture sheet(columns * (width + kSheetGap) + kSheetGap,
                  rows * (height + kSheetCaptionHeight + kSheetGap) + kSheetGap, kSheetPaper);
    for (int i = 0; i < count; ++i) {
        const CaptionedPicture &one = pictures[static_cast<std::size_t>(i)];
        const int x = kSheetGap + i % columns * (width + kSheetGap),
                  y = kSheetGap + i / columns * (height + kSheetCaptionHeight + kSheetGap);
        sheet.Paste(one.picture, x, y);
        Write(one.caption, x, y + height + 4, kSheetInk, &sheet);
    }
    return sheet;
}

}  // namespace tremolux
