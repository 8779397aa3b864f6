#include "tests/program/gyro/payload_writer.h"

#include <cstring>

namespace gyro_test {
namespace {

std::string Table(const std::string &kind, const std::string &rows) { return FilmBoxOf(kind, BigEndian(0, 4) + rows); }

std::string SampleTable(const std::vector<std::string> &payloads, const FilmShape &shape, std::uint64_t first_byte) {
    std::string sizes, offsets;
    std::uint64_t chunks = 0, offset = first_byte;
    for (std::size_t i = 0; i < payloads.size(); ++i) {
        sizes += BigEndian(payloads[i].size(), 4);
        if (i % static_cast<std::size_t>(shape.payloads_in_chunk) == 0) {
            offsets += BigEndian(offset, shape.wide_offsets ? 8 : 4);
            ++chunks;
        }
        offset += payloads[i].size();
    }
    const std::string format = BigEndian(16, 4) + shape.motion_format + std::string(8, '\0');
    return FilmBoxOf(
        "stbl",
        Table("stsd", BigEndian(1, 4) + format) +
            Table("stts", BigEndian(1, 4) + BigEndian(payloads.size(), 4) + BigEndian(shape.payload_ticks, 4)) +
            Table("stsc", BigEndian(1, 4) + BigEndian(1, 4) +
                              BigEndian(static_cast<std::uint64_t>(shape.payloads_in_chunk), 4) + BigEndian(1, 4)) +
            Table("stsz", BigEndian(0, 4) + BigEndian(payloads.size(), 4) + sizes) +
            Table(shape.wide_offsets ? "co64" : "stco", BigEndian(chunks, 4) + offsets));
}

std::string Track(unsigned ticks_per_second, const std::string &handler, const std::string &samples) {
    const std::string header = Table("mdhd", BigEndian(0, 8) + BigEndian(ticks_per_second, 4) + BigEndian(0, 8));
    return FilmBoxOf("trak",
                     FilmBoxOf("mdia", header + Table("hdlr", BigEndian(0, 4) + handler + std::string(13, '\0')) +
                                           FilmBoxOf("minf", samples)));
}

std::string PictureTrack(const FilmShape &shape) {
    const std::string format = BigEndian(16, 4) + "avc1" + std::string(8, '\0');
    return Track(shape.picture_ticks_per_second, "vide",
                 FilmBoxOf("stbl", Table("stsd", BigEndian(1, 4) + format) +
                                       Table("stts", BigEndian(1, 4) + BigEndian(shape.frames, 4) +
                                                         BigEndian(shape.frame_ticks, 4))));
}

}  // namespace

std::string BigEndian(std::uint64_t number, int bytes) {
    std::string text;
    for (int i = bytes - 1; i >= 0; --i) text += static_cast<char>(number >> (8 * i) & 0xFF);
    return text;
}

std::string Item(const std::string &key, char type, int size, int count, const std::string &data) {
    std::string item = key + type + static_cast<char>(size) + BigEndian(static_cast<std::uint64_t>(count), 2) + data;
    while (item.size() % 4 != 0) item += '\0';
    return item;
}

std::string TextItem(const std::string &key, const std::string &text) {
    return Item(key, 'c', 1, static_cast<int>(text.size()), text);
}

std::string ShortsItem(const std::string &key, int columns, const std::vector<int> &numbers) {
    std::string data;
    for (const int number : numbers) data += BigEndian(static_cast<std::uint16_t>(number), 2);
    return Item(key, 's', 2 * columns, static_cast<int>(numbers.size()) / columns, data);
}

std::string FloatsItem(const std::string &key, int columns, const std::vector<float> &numbers) {
    std::string data;
    for (const float number : numbers) {
        std::uint32_t bits = 0;
        std::memcpy(&bits, &number, sizeof bits);
        data += BigEndian(bits, 4);
    }
    return Item(key, 'f', 4 * columns, static_cast<int>(numbers.size()) / columns, data);
}

std::string Nested(const std::string &key, const std::string &items) {
    return Item(key, '\0', 1, static_cast<int>(items.size()), items);
}

std::string Device(unsigned id, const std::string &name, const std::string &streams) {
    return Nested("DEVC", Item("DVID", 'L', 4, 1, BigEndian(id, 4)) + TextItem("DVNM", name) + streams);
}

std::string FilmBoxOf(const std::string &kind, const std::string &body, bool is_long) {
    if (is_long) return BigEndian(1, 4) + kind + BigEndian(body.size() + 16, 8) + body;
    return BigEndian(body.size() + 8, 4) + kind + body;
}

WrittenFilm WriteFilm(const std::vector<std::string> &payloads, const FilmShape &shape) {
    std::string motion;
    for (const std::string &payload : payloads) motion += payload;
    const std::string type = FilmBoxOf("ftyp", "isom" + BigEndian(0, 4));
    const std::uint64_t size = 16 + motion.size() + shape.pictures;
    const std::string front = type + BigEndian(1, 4) + "mdat" + BigEndian(size, 8) + motion;
    const std::string index =
        FilmBoxOf("moov",
                  FilmBoxOf("mvhd", std::string(100, '\0')) + PictureTrack(shape) +
                      Track(shape.ticks_per_second, "meta",
                            FilmBoxOf("gmhd", "") + SampleTable(payloads, shape, type.size() + 16)),
                  shape.long_boxes);
    return {front, index};
}

std::string FilmBytes(const std::vector<std::string> &payloads, const FilmShape &shape) {
    const WrittenFilm film = WriteFilm(payloads, shape);
    return film.front + film.index;
}

}  // namespace gyro_test
