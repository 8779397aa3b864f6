#include "tremolux/pictures/picture.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace tremolux {
namespace {

unsigned char Byte(float value) { return static_cast<unsigned char>(std::lrint(std::clamp(value, 0.0F, 1.0F) * 255)); }

}  // namespace

Picture::Picture(int columns, int rows, const Colour &colour)
    : width(columns), height(rows), rgb(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows) * 3, '\0') {
    const char bytes[] = {static_cast<char>(Byte(colour.r)), static_cast<char>(Byte(colour.g)),
                          static_cast<char>(Byte(colour.b))};
    for (std::size_t at = 0; at < rgb.size(); at += 3) std::copy(std::begin(bytes), std::end(bytes), &rgb[at]);
}

void Picture::Set(int x, int y, const Colour &colour) {
    const std::size_t at =
        (static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)) * 3;
    rgb[at] = static_cast<char>(Byte(colour.r));
    rgb[at + 1] = static_cast<char>(Byte(colour.g));
    rgb[at + 2] = static_cast<char>(Byte(colour.b));
}

void Picture::Blend(int x, int y, const Colour &colour, double amount) {
    if (x < 0 || y < 0 || x >= width || y >= height || amount <= 0) return;
    const std::size_t at =
        (static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)) * 3;
    const auto mixed = [&](std::size_t part, float goal) {
        const float now = static_cast<float>(static_cast<unsigned char>(rgb[at + part])) / 255;
        return now + (goal - now) * static_cast<float>(std::min(amount, 1.0));
    };
    Set(x, y, {mixed(0, colour.r), mixed(1, colour.g), mixed(2, colour.b)});
}

void Picture::Paste(const Picture &other, int x, int y) {
    const std::size_t row = static_cast<std::size_t>(other.width) * 3;
    for (int line = 0; line < other.height; ++line) {
        const std::size_t from = static_cast<std::size_t>(line) * row;
        const std::size_t to =
            (static_cast<std::size_t>(y + line) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)) * 3;
        rgb.replace(to, row, other.rgb, from, row);
    }
}

void Picture::DrawLine(double x0, double y0, double x1, double y1, double thickness, const Colour &colour) {
    const double reach = thickness / 2 + 1;
    const auto pixel = [](double value, int end) { return static_cast<int>(std::clamp(value, 0.0, end - 1.0)); };
    const double along_x = x1 - x0, along_y = y1 - y0, squared = along_x * along_x + along_y * along_y;
    for (int y = pixel(std::min(y0, y1) - reach, height); y <= pixel(std::max(y0, y1) + reach, height); ++y) {
        for (int x = pixel(std::min(x0, x1) - reach, width); x <= pixel(std::max(x0, x1) + reach, width); ++x) {
            const double dx = x + 0.5 - x0, dy = y + 0.5 - y0;
            const double share = squared > 0 ? std::clamp((dx * along_x + dy * along_y) / squared, 0.0, 1.0) : 0;
            const double distance = std::hypot(dx - share * along_x, dy - share * along_y);
            Blend(x, y, colour, thickness / 2 + 0.5 - distance);
        }
    }
}

}  // namespace tremolux
