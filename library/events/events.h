// Moments that something happens at, out of files that are no camera's: tables, music, edits, sound.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "library/events/onsets.h"
#include "library/moves/camera_move.h"

namespace tremolux {

struct Event {
    double time;          // seconds after the move's first frame, or a frame
    double strength = 1;  // 0 to 1
};

struct EventList {
    std::vector<Event> events;
    bool in_frames = false;                     // the times are frames of the move
    std::optional<OnsetCurve> curve = {};       // of sound: what the events were found by
};

constexpr std::size_t kMaxEvents = 100000;

// Each throws a Failure that names the place.
// A table (.csv) with the column frame, or time in seconds, and perhaps strength, from 0 on; strengths become shares of the
// greatest. Or lines with a frame each (.txt).
EventList ReadEventTable(const std::string &file, std::string_view bytes);
EventList ReadEventLines(const std::string &file, std::string_view bytes);
// A standard MIDI file (.mid), format 0 or 1: its note-ons, and how hard they are. Notes at the same time are one event.
EventList ReadMidi(const std::string &file, std::string_view bytes);
// A CMX 3600 edit list (.edl): the cuts after its first event begins, in frames after it, at `rate`.
EventList ReadEditList(const std::string &file, std::string_view bytes, const FrameRate &rate);
// Sound (.wav): its onsets.
EventList ReadSound(const std::string &file, std::string_view bytes, const OnsetSettings &settings);

enum class EventFile { kTable, kLines, kMidi, kEdits, kWave, kOther };
// By the extension, in whatever case.
EventFile EventFileOf(const std::filesystem::path &file);

// Reads a list of events by the file's extension: sound where it says nothing else. Throws a Failure.
EventList ReadEvents(const std::string &file, std::string_view bytes, const FrameRate &rate,
                     const OnsetSettings &settings);

// A frame of the move that an event falls on.
struct EventFrame {
    std::int64_t frame;
    double strength;
};
// Each event on the nearest frame, in order and each frame once, with the strongest event's strength; those beyond the move's
// frames, or before frame 0, are counted in `outside`. Events in frames are the move's own frame numbers for tables, and frames
// after its first for edit lists.
std::vector<EventFrame> FramesOf(const EventList &list, const CameraMove &move, std::size_t *outside);

}  // namespace tremolux
