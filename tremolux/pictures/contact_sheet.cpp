#include "tremolux/pictures/contact_sheet.h"

#include <algorithm>

#include "tremolux/pictures/lettering.h"

namespace tremolux {
namespace {

constexpr int kColumns = 3, kGap = 8, kCaptionHeight = kLetterHeight + 8;
constexpr Colour kPaper = {1, 1, 1}, kInk = {0.2F, 0.2F, 0.2F};

}  // namespace

Picture ContactSheetOf(const std::vector<CaptionedPicture> &pictures) {
    const int width = pictures.front().picture.width, height = pictures.front().picture.height;
    const int count = static_cast<int>(pictures.size()), columns = std::min(count, kColumns),
              rows = (count + columns - 1) / columns;
    Picture sheet(columns * (width + kGap) + kGap, rows * (height + kCaptionHeight + kGap) + kGap, kPaper);
    for (int i = 0; i < count; ++i) {
        const CaptionedPicture &one = pictures[static_cast<std::size_t>(i)];
        const int x = kGap + i % columns * (width + kGap), y = kGap + i / columns * (height + kCaptionHeight + kGap);
        sheet.Paste(one.picture, x, y);
        Write(one.caption, x, y + height + 4, kInk, &sheet);
    }
    return sheet;
}

}  // namespace tremolux
