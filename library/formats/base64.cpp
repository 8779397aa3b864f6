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

std::optional<std::string> BytesOfBase64(std::string_view text) {
    for (int padding = 0; padding < 2 && !text.empty() && text.back() == '='; ++padding) text.remove_suffix(1);
    if (text.size() % 4 == 1) return std::nullopt;
    std::string bytes;
    bytes.reserve(text.size() / 4 * 3 + 2);
    std::uint32_t bits = 0;
    unsigned count = 0;
    for (const char c : text) {
        const std::size_t digit = std::string_view(kDigits).find(c);
        if (digit == std::string_view::npos) return std::nullopt;
        bits = bits << 6 | static_cast<std::uint32_t>(digit);
        count += 6;
        if (count < 8) continue;
        count -= 8;
        bytes += static_cast<char>(bits >> count & 255);
    }
    return bytes;
}

}  // namespace tremolux
