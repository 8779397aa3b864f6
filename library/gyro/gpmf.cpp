#include "library/gyro/gpmf.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <iterator>

#include "library/events/byte_reader.h"
#include "library/formats/source_text.h"

namespace tremolux {
namespace {

constexpr std::size_t kItemHeader = 8, kItemAlignment = 4;
constexpr std::string_view kDevice = "DEVC", kPaddingKey("\0\0\0\0", 4);
constexpr char kNested = '\0', kText = 'c';

// A key with its data, or with the items within it.
struct GpmfItem {
    std::string key;
    char type;
    std::size_t size;  // of one structure
    std::string_view data;
    std::size_t end;  // of the data in the payload
};

double SignedOf(std::uint64_t bits, std::size_t bytes) {
    const std::uint64_t sign = std::uint64_t{1} << (8 * bytes - 1);
    return (bits & sign) == 0 ? static_cast<double>(bits) : -static_cast<double>((sign - 1 - (bits & (sign - 1))) + 1);
}

template <typename Float, typename Bits>
double FloatOf(std::uint64_t bits) {
    const Bits narrow = static_cast<Bits>(bits);
    Float number;
    static_assert(sizeof number == sizeof narrow);
    std::memcpy(&number, &narrow, sizeof number);
    return static_cast<double>(number);
}

struct NumberType {
    char letter;
    std::size_t bytes;
    double (*of)(std::uint64_t bits);
};
constexpr NumberType kNumberTypes[] = {
    {'b', 1, [](std::uint64_t bits) { return SignedOf(bits, 1); }},
    {'B', 1, [](std::uint64_t bits) { return static_cast<double>(bits); }},
    {'s', 2, [](std::uint64_t bits) { return SignedOf(bits, 2); }},
    {'S', 2, [](std::uint64_t bits) { return static_cast<double>(bits); }},
    {'l', 4, [](std::uint64_t bits) { return SignedOf(bits, 4); }},
    {'L', 4, [](std::uint64_t bits) { return static_cast<double>(bits); }},
    {'f', 4, FloatOf<float, std::uint32_t>},
    {'d', 8, FloatOf<double, std::uint64_t>},
    {'j', 8, [](std::uint64_t bits) { return SignedOf(bits, 8); }},
    {'J', 8, [](std::uint64_t bits) { return static_cast<double>(bits); }},
    {'q', 4, [](std::uint64_t bits) { return SignedOf(bits, 4) / 65536; }},
    {'Q', 8, [](std::uint64_t bits) { return SignedOf(bits, 8) / 4294967296.0; }},
};

GpmfItem TakeItem(ByteReader *reader, std::size_t end) {
    if (end - reader->Place() < kItemHeader)
        reader->Refuse(std::to_string(end - reader->Place()) + " bytes", "a key with its type, size and count");
    GpmfItem item;
    item.key = std::string(reader->Take(4));
    item.type = reader->Take(1).front();
    item.size = static_cast<std::size_t>(reader->BigEndian(1));
    const std::size_t bytes = item.size * static_cast<std::size_t>(reader->BigEndian(2));
    const std::size_t left = end - reader->Place();
    if (bytes > left) {
        reader->Refuse(std::to_string(left) + " bytes",
                       std::to_string(bytes) + " bytes of " + Quoted(item.key) + " here");
    }
    item.end = reader->Place() + bytes;
    if (item.type != kNested) {
        item.data = reader->Take(bytes);
        reader->Take(std::min(left - bytes, (kItemAlignment - bytes % kItemAlignment) % kItemAlignment));
    }
    return item;
}

// What is nested begins here; what follows it begins behind its padding.
void SkipTo(ByteReader *reader, std::size_t place, std::size_t end) {
    reader->Take(std::min(end, (place + kItemAlignment - 1) / kItemAlignment * kItemAlignment) - reader->Place());
}

// Payloads are filled up with zeros.
bool IsPadding(const GpmfItem &item) { return item.key == kPaddingKey; }

std::vector<double> NumbersOf(const ByteReader &reader, const GpmfItem &item) {
    const auto type = std::find_if(std::begin(kNumberTypes), std::end(kNumberTypes),
                                   [&](const NumberType &known) { return known.letter == item.type; });
    if (type == std::end(kNumberTypes) || item.size % type->bytes != 0)
        reader.Refuse(Quoted(item.key) + " of type " + Quoted(std::string(1, item.type)) + " and " +
                          std::to_string(item.size) + " bytes",
                      "numbers");
    ByteReader numbers("", item.data, "");
    std::vector<double> values(item.data.size() / type->bytes);
    for (double &value : values) {
        value = type->of(numbers.BigEndian(type->bytes));
        if (!std::isfinite(value)) reader.Refuse("a number that is none in " + Quoted(item.key), "finite numbers");
    }
    return values;
}

std::size_t ColumnsOf(const GpmfItem &item, const std::vector<double> &values) {
    const std::size_t rows = item.size == 0 ? 0 : item.data.size() / item.size;
    return rows == 0 ? 0 : values.size() / rows;
}

std::string TextOf(const GpmfItem &item) {
    if (item.type != kText) return {};
    const std::string_view text = item.data.substr(0, item.data.find('\0'));
    return std::string(text);
}

struct SensorKey {
    std::string_view key;
    std::size_t columns;
};
constexpr SensorKey kSensorKeys[] = {{"GYRO", 3}, {"ACCL", 3}, {"CORI", 4}, {"GRAV", 3}};

void Scale(const ByteReader &reader, const std::vector<double> &scales, GpmfStream *stream) {
    if (scales.empty()) return;
    const bool usable = std::none_of(scales.begin(), scales.end(), [](double scale) { return scale == 0; });
    if (!usable || (scales.size() != 1 && scales.size() != stream->columns))
        reader.Refuse(std::to_string(scales.size()) + " scales for '" + stream->key + "'",
                      "one, or one for each column, none of them 0");
    for (std::size_t i = 0; i < stream->values.size(); ++i)
        stream->values[i] /= scales[scales.size() == 1 ? 0 : i % stream->columns];
}

void ReadStream(ByteReader *reader, std::size_t end, GpmfDevice *device) {
    GpmfStream stream;
    std::vector<double> scales;
    while (reader->Place() < end) {
        const GpmfItem item = TakeItem(reader, end);
        if (IsPadding(item)) break;
        if (item.type == kNested) {
            SkipTo(reader, item.end, end);
        } else if (item.key == "SCAL") {
            scales = NumbersOf(*reader, item);
        } else if (item.key == "ORIN") {
            stream.axes = TextOf(item);
        } else if (item.key == "ORIO") {
            stream.wanted_axes = TextOf(item);
        } else if (item.key == "MTRX") {
            stream.matrix = NumbersOf(*reader, item);
        } else if (item.key == "STMP" && item.data.size() == 8) {
            stream.time = ByteReader("", item.data, "").BigEndian(8);
        }
        for (const SensorKey &sensor : kSensorKeys) {
            if (item.key != sensor.key || item.data.empty()) continue;
            stream.key = item.key;
            stream.values = NumbersOf(*reader, item);
            stream.columns = ColumnsOf(item, stream.values);
            if (stream.columns != sensor.columns)
                reader->Refuse(std::to_string(stream.columns) + " columns of '" + item.key + "'",
                               std::to_string(sensor.columns));
        }
    }
    if (stream.key.empty()) return;
    Scale(*reader, scales, &stream);
    device->streams.push_back(std::move(stream));
}

void ReadDevice(ByteReader *reader, std::size_t end, GpmfDevice *device) {
    while (reader->Place() < end) {
        const GpmfItem item = TakeItem(reader, end);
        if (IsPadding(item)) return;
        if (item.key == "DVID" && item.data.size() == 4) device->id = ByteReader("", item.data, "").BigEndian(4);
        if (item.key == "DVNM") device->name = TextOf(item);
        if (item.type != kNested) continue;
        if (item.key == "STRM") ReadStream(reader, item.end, device);
        SkipTo(reader, item.end, end);
    }
}

}  // namespace

std::vector<GpmfDevice> ReadGpmf(const std::string &file, std::string_view payload) {
    ByteReader reader(file, payload, "a payload of a camera's metadata");
    std::vector<GpmfDevice> devices;
    while (reader.Left() > 0) {
        const std::string_view key = payload.substr(reader.Place(), kDevice.size());
        if (key != kDevice && key != kPaddingKey)
            reader.Refuse(Quoted(key), "a device ('DEVC'): the file is no payload of a camera's metadata");
        const GpmfItem item = TakeItem(&reader, payload.size());
        if (IsPadding(item)) break;
        if (item.type != kNested) reader.Refuse("a device that is none", "streams within it");
        ReadDevice(&reader, item.end, &devices.emplace_back());
        SkipTo(&reader, item.end, payload.size());
    }
    return devices;
}

}  // namespace tremolux
