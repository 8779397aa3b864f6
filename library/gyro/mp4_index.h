// Where the motion lies in a film: by the film's index, without reading its pictures.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "library/gyro/byte_source.h"
#include "library/moves/frame_rate.h"

namespace tremolux {

// A payload of the metadata track.
struct FilmPayload {
    std::uint64_t offset, size;  // bytes of the file; all of them are there
    double start, duration;      // seconds
};

struct FilmIndex {
    std::vector<FilmPayload> payloads;
    std::optional<FrameRate> frame_rate;  // of the pictures
};

// Throws a Failure for what is no film, is cut off, or has no track of motion. `file` is the name for messages.
FilmIndex ReadFilmIndex(const std::string &file, ByteSource *source);

}  // namespace tremolux
