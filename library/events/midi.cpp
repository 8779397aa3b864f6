// Standard MIDI files (RP-001 of the MIDI Association).
#include <algorithm>
#include <map>

#include "library/events/byte_reader.h"
#include "library/events/events.h"

namespace tremolux {
namespace {

constexpr double kUsualTempo = 500000;  // microseconds a quarter
constexpr int kNoteOn = 0x9, kMeta = 0xFF, kTempo = 0x51, kMostVelocity = 127;

struct Music {
    std::map<std::uint64_t, double> tempos;  // by tick, microseconds a quarter
    std::map<std::uint64_t, int> notes;      // by tick, the greatest velocity
};

std::uint64_t VariableLength(ByteReader *reader) {
    std::uint64_t number = 0;
    for (int i = 0; i < 4; ++i) {
        const std::uint64_t byte = reader->BigEndian(1);
        number = number << 7 | (byte & 0x7F);
        if ((byte & 0x80) == 0) return number;
    }
    reader->Refuse("a number of more than four bytes", "a time or a length");
}

// How many bytes follow the status of a channel's message.
std::size_t DataBytes(int kind) { return kind == 0xC || kind == 0xD ? 1 : 2; }

void ReadTrack(ByteReader *reader, std::size_t end, Music *music) {
    std::uint64_t tick = 0;
    int status = 0;
    while (reader->Place() < end) {
        tick += VariableLength(reader);
        const auto first = static_cast<int>(reader->BigEndian(1));
        if (first >= 0xF0) {
            const int type = first == kMeta ? static_cast<int>(reader->BigEndian(1)) : 0;
            const std::uint64_t length = VariableLength(reader);
            if (first == kMeta && type == kTempo && length == 3)
                music->tempos[tick] = static_cast<double>(reader->BigEndian(3));
            else
                reader->Take(length);
            continue;
        }
        if (first >= 0x80) {
            status = first;
            reader->BigEndian(1);  // the note, or what else comes first
        } else if (status == 0) {
            reader->Refuse("a message without a status", "a status of 128 or more");
        }
        const int second = DataBytes(status >> 4) == 2 ? static_cast<int>(reader->BigEndian(1)) : 0;
        if (status >> 4 != kNoteOn || second == 0) continue;
        if (music->notes.size() == kMaxEvents) reader->Refuse("another note", "at most " + std::to_string(kMaxEvents));
        int &velocity = music->notes[tick];
        velocity = std::max(velocity, std::min(second, kMostVelocity));
    }
}

}  // namespace

EventList ReadMidi(const std::string &file, std::string_view bytes) {
    ByteReader reader(file, bytes, "a MIDI file");
    if (reader.Take(4) != "MThd") reader.Refuse("another head", "a MIDI file, which begins with MThd");
    const std::uint64_t head = reader.BigEndian(4), format = reader.BigEndian(2), tracks = reader.BigEndian(2),
                        division = reader.BigEndian(2);
    if (head < 6 || format > 1) reader.Refuse("the format " + std::to_string(format), "format 0 or 1");
    reader.Take(head - 6);
    Music music;
    for (std::uint64_t read = 0; read < tracks;) {
        const std::string_view kind = reader.Take(4);
        const std::uint64_t length = reader.BigEndian(4);
        if (length > reader.Left()) reader.Refuse("a part of " + std::to_string(length) + " bytes", "one within the file");
        const std::size_t end = reader.Place() + length;
        if (kind == "MTrk") {
            ReadTrack(&reader, end, &music);
            ++read;
        }
        if (reader.Place() > end) reader.Refuse("a message beyond its track", "one within it");
        reader.Take(end - reader.Place());
    }
    if (music.notes.empty()) reader.Refuse("no notes", "at least one");

    const auto frames = static_cast<double>(256 - (division >> 8)), parts = static_cast<double>(division & 0xFF);
    const bool by_frames = (division & 0x8000) != 0;
    if (division == 0 || (by_frames && parts == 0)) reader.Refuse("no parts of a beat", "a division above 0");
    // A division of -29 frames stands for 30000/1001.
    const double parts_per_second = (frames == 29 ? 30000.0 / 1001 : frames) * parts;
    EventList list;
    double seconds = 0, tempo = kUsualTempo;
    std::uint64_t at = 0;
    auto next = music.tempos.begin();
    const auto go_to = [&](std::uint64_t tick) {
        const auto ticks = static_cast<double>(tick - at);
        seconds += by_frames ? ticks / parts_per_second : ticks / static_cast<double>(division) * tempo / 1e6;
        at = tick;
    };
    for (const auto &[tick, velocity] : music.notes) {
        for (; next != music.tempos.end() && next->first <= tick; ++next) {
            go_to(next->first);
            tempo = next->second;
        }
        go_to(tick);
        list.events.push_back({seconds, static_cast<double>(velocity) / kMostVelocity});
    }
    return list;
}

}  // namespace tremolux
