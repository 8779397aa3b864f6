#include "library/interface/error_line.h"

#include <cstring>

namespace tremolux {

void ErrorLine::Set(const char *line) {
    std::size_t size = strnlen(line, kRoom);
    if (size == kRoom) {
        constexpr unsigned char kContinued = 0x80, kTopBits = 0xC0;
        --size;
        while (size > 0 && (static_cast<unsigned char>(line[size]) & kTopBits) == kContinued) --size;
    }
    std::memcpy(text_, line, size);
    text_[size] = 0;
}

}  // namespace tremolux
