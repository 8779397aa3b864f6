#include "library/gyro/mp4_index.h"

#include <algorithm>
#include <iterator>

#include "library/events/byte_reader.h"
#include "library/failure.h"
#include "library/formats/source_text.h"

namespace tremolux {
namespace {

constexpr const char *kNoFilm = "a film (.mp4 or .mov)";
constexpr const char *kMotionFormat = "gpmd", *kPictureHandler = "vide";
// The index of many hours is a few megabytes.
constexpr std::uint64_t kMaxIndexBytes = std::uint64_t{1} << 27;
// A film has a few tracks, a track a few tables.
constexpr std::size_t kMaxBoxes = 1000;
// A payload a second: more than eleven days.
constexpr std::uint64_t kMaxPayloads = 1000000;
// A second's payload is tens of kilobytes.
constexpr std::uint64_t kMaxPayloadBytes = std::uint64_t{1} << 24, kMaxMotionBytes = std::uint64_t{1} << 30;
// What a film begins with.
constexpr std::string_view kFirstBoxes[] = {"ftyp", "moov", "mdat", "free", "skip", "wide", "pnot", "uuid"};
constexpr std::uint64_t kShortHeader = 8, kLongHeader = 16;

// Within the index.
struct FilmBox {
    std::string_view kind, body;
};

class FilmBoxes {
  public:
    explicit FilmBoxes(std::string file) : file_(std::move(file)) {}

    ByteReader Reader(std::string_view body) const { return {file_, body, "a whole index of a film"}; }

    std::vector<FilmBox> In(std::string_view body) const {
        std::vector<FilmBox> boxes;
        ByteReader reader = Reader(body);
        // Some writers end a list with four zeros.
        while (reader.Left() >= kShortHeader) {
            std::uint64_t size = reader.BigEndian(4), header = kShortHeader;
            const std::string_view kind = reader.Take(4);
            if (size == 1) {
                size = reader.BigEndian(8);
                header = kLongHeader;
            }
            const std::uint64_t left = reader.Left();
            if (size == 0) size = header + left;
            if (size < header || size - header > left)
                reader.Refuse(std::to_string(size) + " bytes of " + Quoted(kind), "the size of a box of the index");
            if (boxes.size() == kMaxBoxes) reader.Refuse("another box", "at most " + std::to_string(kMaxBoxes) + " beside each other");
            boxes.push_back({kind, reader.Take(static_cast<std::size_t>(size - header))});
        }
        return boxes;
    }

    // The first of its kind; nothing where there is none.
    std::optional<std::string_view> Find(std::string_view body, std::string_view kind) const {
        for (const FilmBox &box : In(body)) {
            if (box.kind == kind) return box.body;
        }
        return std::nullopt;
    }

    std::string_view Child(std::string_view body, std::string_view kind) const {
        if (const std::optional<std::string_view> found = Find(body, kind)) return *found;
        Refuse("no " + Quoted(kind), "one in each track");
    }

    [[noreturn]] void Refuse(const std::string &found, const std::string &expected) const {
        throw Failure(kExitInput, file_ + ": found " + found + ", expected " + expected);
    }

    // The rows of a table, `bytes` for each, behind version, flags and, `before` bytes on, their count.
    std::uint64_t Count(ByteReader *table, std::size_t before, std::uint64_t bytes) const {
        table->Take(4 + before);
        const std::uint64_t count = table->BigEndian(4);
        if (count > table->Left() / bytes)
            table->Refuse(std::to_string(count) + " rows", "at most " + std::to_string(table->Left() / bytes));
        return count;
    }

  private:
    std::string file_;
};

struct TimeRun {
    std::uint64_t samples, ticks;  // how many, and how long each lasts
};
std::vector<TimeRun> ReadTimes(const FilmBoxes &boxes, std::string_view samples) {
    ByteReader table = boxes.Reader(boxes.Child(samples, "stts"));
    std::vector<TimeRun> runs(static_cast<std::size_t>(boxes.Count(&table, 0, 8)));
    for (TimeRun &run : runs) {
        run.samples = table.BigEndian(4);
        run.ticks = table.BigEndian(4);
    }
    return runs;
}

std::uint64_t TicksPerSecond(const FilmBoxes &boxes, std::string_view media) {
    ByteReader header = boxes.Reader(boxes.Child(media, "mdhd"));
    const bool is_long = header.BigEndian(1) == 1;
    header.Take(is_long ? 19 : 11);
    const std::uint64_t ticks = header.BigEndian(4);
    if (ticks == 0) header.Refuse("no ticks a second", "at least one");
    return ticks;
}

std::vector<std::uint64_t> ReadSizes(const FilmBoxes &boxes, std::string_view samples, std::uint64_t file_size) {
    ByteReader table = boxes.Reader(boxes.Child(samples, "stsz"));
    table.Take(4);
    const std::uint64_t same = table.BigEndian(4), count = table.BigEndian(4);
    if (count > kMaxPayloads || (same == 0 && count > table.Left() / 4))
        table.Refuse(std::to_string(count) + " sizes of payloads", "those that are there, at most " + std::to_string(kMaxPayloads));
    std::vector<std::uint64_t> sizes(static_cast<std::size_t>(count), same);
    std::uint64_t left = std::min(file_size, kMaxMotionBytes);
    for (std::uint64_t &size : sizes) {
        if (same == 0) size = table.BigEndian(4);
        if (size > kMaxPayloadBytes || size > left)
            table.Refuse("a payload of " + std::to_string(size) + " bytes",
                         "payloads that have their places in the file");
        left -= size;
    }
    return sizes;
}

std::vector<std::uint64_t> ReadChunks(const FilmBoxes &boxes, std::string_view samples) {
    const std::optional<std::string_view> narrow = boxes.Find(samples, "stco");
    const std::size_t bytes = narrow ? 4 : 8;
    ByteReader table = boxes.Reader(narrow ? *narrow : boxes.Child(samples, "co64"));
    std::vector<std::uint64_t> chunks(static_cast<std::size_t>(boxes.Count(&table, 0, bytes)));
    for (std::uint64_t &chunk : chunks) chunk = table.BigEndian(bytes);
    return chunks;
}

struct ChunkRun {
    std::uint64_t first, samples;  // the chunk from which on there are so many in each
};
std::vector<ChunkRun> ReadChunkRuns(const FilmBoxes &boxes, std::string_view samples) {
    ByteReader table = boxes.Reader(boxes.Child(samples, "stsc"));
    std::vector<ChunkRun> runs(static_cast<std::size_t>(boxes.Count(&table, 0, 12)));
    std::uint64_t last = 0;
    for (ChunkRun &run : runs) {
        run.first = table.BigEndian(4);
        run.samples = table.BigEndian(4);
        table.Take(4);
        if (run.first <= last) table.Refuse("chunk " + std::to_string(run.first), "rising numbers from 1 on");
        last = run.first;
    }
    return runs;
}

std::vector<FilmPayload> ReadPlaces(const FilmBoxes &boxes, std::string_view samples, std::uint64_t file_size) {
    const std::vector<std::uint64_t> sizes = ReadSizes(boxes, samples, file_size);
    const std::vector<std::uint64_t> chunks = ReadChunks(boxes, samples);
    const std::vector<ChunkRun> runs = ReadChunkRuns(boxes, samples);
    std::vector<FilmPayload> payloads;
    std::size_t run = 0;
    for (std::size_t chunk = 0; chunk < chunks.size() && payloads.size() < sizes.size(); ++chunk) {
        while (run + 1 < runs.size() && runs[run + 1].first <= chunk + 1) ++run;
        const std::uint64_t count = run < runs.size() && runs[run].first <= chunk + 1 ? runs[run].samples : 0;
        std::uint64_t offset = chunks[chunk];
        for (std::uint64_t i = 0; i < count && payloads.size() < sizes.size(); ++i) {
            const std::uint64_t size = sizes[payloads.size()];
            if (offset > file_size || size > file_size - offset)
                boxes.Refuse("payload " + std::to_string(payloads.size() + 1) + " at byte " + std::to_string(offset),
                             std::to_string(size) + " bytes there (the film may be cut off)");
            payloads.push_back({offset, size, 0, 0});
            offset += size;
        }
    }
    if (payloads.size() != sizes.size())
        boxes.Refuse("places of " + std::to_string(payloads.size()) + " payloads",
                     "of all " + std::to_string(sizes.size()));
    return payloads;
}

void SetTimes(const FilmBoxes &boxes, const std::vector<TimeRun> &runs, double ticks_per_second,
              std::vector<FilmPayload> *payloads) {
    std::size_t run = 0;
    std::uint64_t used = 0;
    double ticks = 0;
    for (FilmPayload &payload : *payloads) {
        while (run < runs.size() && used >= runs[run].samples) {
            used = 0;
            ++run;
        }
        if (run == runs.size()) boxes.Refuse("times of fewer payloads", "of all " + std::to_string(payloads->size()));
        const auto duration = static_cast<double>(runs[run].ticks);
        payload.start = ticks / ticks_per_second;
        payload.duration = duration / ticks_per_second;
        ticks += duration;
        ++used;
    }
}

// The mean; where all frames but the last are equally long that is their rate, as a fraction.
std::optional<FrameRate> RateOfPictures(const std::vector<TimeRun> &runs, std::uint64_t ticks_per_second) {
    const auto longest = std::max_element(runs.begin(), runs.end(), [](const TimeRun &a, const TimeRun &b) { return a.samples < b.samples; });
    if (longest == runs.end()) return std::nullopt;
    double frames = 0, ticks = 0;
    for (const TimeRun &run : runs) {
        frames += static_cast<double>(run.samples);
        ticks += static_cast<double>(run.samples) * static_cast<double>(run.ticks);
    }
    if (static_cast<double>(longest->samples) + 1 >= frames)
        return MakeFrameRate(static_cast<std::int64_t>(ticks_per_second), static_cast<std::int64_t>(longest->ticks));
    return ticks > 0 ? FrameRateOf(frames * static_cast<double>(ticks_per_second) / ticks) : std::nullopt;
}

// The film's index, "moov"; of everything else only the size is read.
std::string ReadIndexBox(const std::string &file, ByteSource *source) {
    const auto refuse = [&file](std::uint64_t place, const std::string &found, const std::string &expected) {
        throw Failure(kExitInput, file + ": byte " + std::to_string(place) + ": found " + found + ", expected " + expected);
    };
    std::uint64_t place = 0;
    while (source->Size() - place >= kShortHeader) {
        const std::string start = source->Read(place, std::min(kLongHeader, source->Size() - place));
        ByteReader reader(file, start, kNoFilm);
        std::uint64_t size = reader.BigEndian(4), header = kShortHeader;
        const std::string kind(reader.Take(4));
        if (size == 1) {
            size = reader.BigEndian(8);
            header = kLongHeader;
        }
        const std::uint64_t left = source->Size() - place;
        if (size == 0) size = left;
        const bool is_film = place > 0 || std::find(std::begin(kFirstBoxes), std::end(kFirstBoxes), kind) != std::end(kFirstBoxes);
        if (!is_film || size < header) refuse(place, Quoted(kind), kNoFilm);
        if (size > left)
            refuse(place, std::to_string(left) + " bytes of " + Quoted(kind),
                   std::to_string(size) + " (the film may be cut off)");
        if (kind == "moov") {
            if (size > kMaxIndexBytes) refuse(place, "an index of " + std::to_string(size) + " bytes", "at most " + std::to_string(kMaxIndexBytes));
            return source->Read(place + header, size - header);
        }
        place += size;
    }
    refuse(place, "the end of the file", std::string(kNoFilm) + " with its index ('moov')");
    return {};
}

std::string FirstFormat(const FilmBoxes &boxes, std::string_view samples) {
    ByteReader table = boxes.Reader(boxes.Child(samples, "stsd"));
    if (boxes.Count(&table, 0, kShortHeader) == 0) return {};
    table.Take(4);
    return std::string(table.Take(4));
}

std::string HandlerOf(const FilmBoxes &boxes, std::string_view media) {
    ByteReader handler = boxes.Reader(boxes.Child(media, "hdlr"));
    handler.Take(8);
    return std::string(handler.Take(4));
}

}  // namespace

FilmIndex ReadFilmIndex(const std::string &file, ByteSource *source) {
    const std::string bytes = ReadIndexBox(file, source);
    const FilmBoxes boxes(file + ": index");
    FilmIndex index;
    bool has_motion = false;
    for (const FilmBox &track : boxes.In(bytes)) {
        if (track.kind != "trak") continue;
        const std::string_view media = boxes.Child(track.body, "mdia");
        const std::string_view samples = boxes.Child(boxes.Child(media, "minf"), "stbl");
        const bool is_motion = !has_motion && FirstFormat(boxes, samples) == kMotionFormat;
        const bool is_film = !index.frame_rate && HandlerOf(boxes, media) == kPictureHandler;
        if (!is_motion && !is_film) continue;
        const std::vector<TimeRun> times = ReadTimes(boxes, samples);
        const std::uint64_t ticks_per_second = TicksPerSecond(boxes, media);
        if (is_film) index.frame_rate = RateOfPictures(times, ticks_per_second);
        if (!is_motion) continue;
        has_motion = true;
        index.payloads = ReadPlaces(boxes, samples, source->Size());
        SetTimes(boxes, times, static_cast<double>(ticks_per_second), &index.payloads);
    }
    if (!has_motion)
        throw Failure(kExitInput, file + ": found a film without a track of motion, expected one of '" +
                                      std::string(kMotionFormat) + "', as action cameras write it");
    return index;
}

}  // namespace tremolux
