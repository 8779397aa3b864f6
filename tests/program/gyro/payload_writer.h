// Writes what an action camera writes: keys of four letters with numbers, in streams, devices and films.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace gyro_test {

std::string BigEndian(std::uint64_t number, int bytes);
// A key of a payload; `data` is filled up to four bytes.
std::string Item(const std::string &key, char type, int size, int count, const std::string &data);
std::string TextItem(const std::string &key, const std::string &text);
std::string ShortsItem(const std::string &key, int columns, const std::vector<int> &numbers);
std::string FloatsItem(const std::string &key, int columns, const std::vector<float> &numbers);
std::string Nested(const std::string &key, const std::string &items);
inline std::string Stream(const std::string &items) { return Nested("STRM", items); }
std::string Device(unsigned id, const std::string &name, const std::string &streams);

struct FilmShape {
    bool wide_offsets = false;  // co64 instead of stco
    bool long_boxes = false;    // sizes of 64 bits
    int payloads_in_chunk = 1;
    std::uint64_t pictures = 0;  // bytes between the payloads and the index, that are not written
    unsigned payload_ticks = 1001, ticks_per_second = 1000;
    unsigned frames = 30, frame_ticks = 1001, picture_ticks_per_second = 30000;
    std::string motion_format = "gpmd";
};
std::string FilmBoxOf(const std::string &kind, const std::string &body, bool is_long = false);
// The payloads come first, then the pictures, then the index, which says where they are.
struct WrittenFilm {
    std::string front, index;  // what stands before and behind the pictures
};
WrittenFilm WriteFilm(const std::vector<std::string> &payloads, const FilmShape &shape);
// Of a film without pictures.
std::string FilmBytes(const std::vector<std::string> &payloads, const FilmShape &shape = {});

}  // namespace gyro_test
