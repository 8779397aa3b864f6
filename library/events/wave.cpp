#include "library/events/wave.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "library/events/byte_reader.h"

namespace tremolux {
namespace {

constexpr std::uint64_t kWholeNumbers = 1, kFloatingPoint = 3, kExtensible = 0xFFFE, kMaxChannels = 64, kMinRate = 1000, kMaxRate = 768000;

struct Layout {
    std::uint64_t kind = 0, channels = 0, rate = 0, bits = 0;
};

Layout ReadLayout(ByteReader *reader, std::uint64_t size) {
    if (size < 16) reader->Refuse("a format of " + std::to_string(size) + " bytes", "at least 16");
    Layout layout;
    layout.kind = reader->LittleEndian(2);
    layout.channels = reader->LittleEndian(2);
    layout.rate = reader->LittleEndian(4);
    reader->Take(6);
    layout.bits = reader->LittleEndian(2);
    if (layout.kind == kExtensible && size >= 26) {
        reader->Take(8);
        layout.kind = reader->LittleEndian(2);
        reader->Take(size - 26);
    } else {
        reader->Take(size - 16);
    }
    const bool is_whole = layout.kind == kWholeNumbers && layout.bits >= 8 && layout.bits <= 32 && layout.bits % 8 == 0;
    const bool is_float = layout.kind == kFloatingPoint && (layout.bits == 32 || layout.bits == 64);
    if (!is_whole && !is_float)
        reader->Refuse("samples of kind " + std::to_string(layout.kind) + " with " + std::to_string(layout.bits) + " bits",
                       "whole numbers of 8 to 32 bits or floating point");
    if (layout.channels < 1 || layout.channels > kMaxChannels || layout.rate < kMinRate || layout.rate > kMaxRate)
        reader->Refuse(std::to_string(layout.channels) + " channels at " + std::to_string(layout.rate) + " samples a second",
                       "1 to 64 channels at 1000 to 768000");
    return layout;
}

float SampleOf(const Layout &layout, const char *bytes) {
    std::uint64_t number = 0;
    for (std::size_t i = layout.bits / 8; i-- > 0;) number = number << 8 | static_cast<unsigned char>(bytes[i]);
    if (layout.kind == kFloatingPoint) {
        double value;
        if (layout.bits == 64) {
            std::memcpy(&value, &number, sizeof value);
        } else {
            const auto half = static_cast<std::uint32_t>(number);
            float single;
            std::memcpy(&single, &half, sizeof single);
            value = single;
        }
        return std::isfinite(value) ? static_cast<float>(std::clamp(value, -16.0, 16.0)) : 0.0F;
    }
    if (layout.bits == 8) return (static_cast<float>(number) - 128) / 128;  // without a sign, as the format has it
    const std::int64_t range = std::int64_t{1} << layout.bits;
    auto value = static_cast<std::int64_t>(number);
    if (value >= range / 2) value -= range;
    return static_cast<float>(static_cast<double>(value) * 2 / static_cast<double>(range));
}

}  // namespace

Sound ReadWave(const std::string &file, std::string_view bytes) {
    ByteReader reader(file, bytes, "a .wav file");
    if (reader.Take(4) != "RIFF") reader.Refuse("another head", "a .wav file, which begins with RIFF");
    reader.Take(4);
    if (reader.Take(4) != "WAVE") reader.Refuse("another kind of RIFF", "WAVE");
    Layout layout;
    while (reader.Left() >= 8) {
        const std::string_view kind = reader.Take(4);
        std::uint64_t size = reader.LittleEndian(4);
        if (kind == "fmt ") {
            layout = ReadLayout(&reader, size);
        } else if (kind == "data") {
            if (layout.channels == 0) reader.Refuse("samples before their format", "a part 'fmt '");
            // What writes into a pipe cannot go back to say the size.
            size = std::min<std::uint64_t>(size, reader.Left());
            const std::size_t step = layout.bits / 8 * layout.channels, count = size / step;
            const std::string_view data = reader.Take(size);
            Sound sound;
            sound.rate = static_cast<double>(layout.rate);
            sound.samples.reserve(count);
            for (std::size_t i = 0; i < count; ++i) {
                float sum = 0;
                for (std::size_t channel = 0; channel < layout.channels; ++channel)
                    sum += SampleOf(layout, data.data() + i * step + channel * (layout.bits / 8));
                sound.samples.push_back(sum / static_cast<float>(layout.channels));
            }
            return sound;
        } else {
            reader.Take(std::min<std::uint64_t>(size, reader.Left()));
        }
        if (size % 2 == 1 && reader.Left() > 0) reader.Take(1);
    }
    reader.Refuse("no samples", "a part 'data'");
}

}  // namespace tremolux
