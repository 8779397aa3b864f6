#include "library/formats/base64.h"

#include <cstdint>

namespace tremolux {
namespace {

constexpr char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

}  // namespace

std::string Base64(std::string_view bytes) {
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const auto byte = [&](std::size_t at) {
            return at < bytes.size() ? std::uint32_t{static_cast<unsigned char>(bytes[at])} : 0U;
        };
        const std::uint32_t three = byte(i) << 16 | byte(i + 1) << 8 | byte(i + 2);
        for (unsigned digit = 0; digit < 4; ++digit)
            text += i + digit <= bytes.size() ? kDigits[three >> (18 - 6 * digit) & 63] : '=';
    }
    return text;
}

}  // namespace tremolux
