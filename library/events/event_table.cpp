#include <algorithm>

#include "library/events/events.h"
#include "library/formats/csv_header.h"
#include "library/formats/numbers.h"

namespace tremolux {
namespace {

const CsvColumns kEventColumns = {{"frame", false}, {"time", false}, {"strength", false}};
constexpr std::size_t kEventFrame = 0, kEventTime = 1, kEventStrength = 2;

void CheckCount(const SourceText &source, const Line &line, const EventList &list) {
    if (list.events.size() == kMaxEvents)
        source.Refuse(line.number, 1, "another event", "at most " + std::to_string(kMaxEvents));
}

void CheckThatThereAreSome(const SourceText &source, const EventList &list) {
    if (list.events.empty()) source.Refuse(source.Lines().size() + 1, 1, "the end of the file", "at least one event");
}

}  // namespace

EventList ReadEventTable(const std::string &file, std::string_view bytes) {
    const SourceText source(file, bytes);
    const CsvHeader header(source, kEventColumns);
    EventList list;
    double strongest = 0;
    for (std::size_t i = 1; i < source.Lines().size(); ++i) {
        const Line &line = source.Lines()[i];
        if (Trimmed(line.text).empty()) continue;
        const CsvRow row(header, line);
        if (row.Has(kEventFrame) == row.Has(kEventTime))
            source.Refuse(1, 1, row.Has(kEventFrame) ? "the columns frame and time" : "neither frame nor time", "one of frame and time");
        CheckCount(source, line, list);
        list.in_frames = row.Has(kEventFrame);
        const double time = row.Number(row.Has(kEventFrame) ? kEventFrame : kEventTime, -kMaxNumber, kMaxNumber);
        const double strength = row.Has(kEventStrength) ? row.Number(kEventStrength, 0, kMaxNumber) : 1;
        strongest = std::max(strongest, strength);
        list.events.push_back({time, strength});
    }
    CheckThatThereAreSome(source, list);
    for (Event &event : list.events) event.strength = strongest > 0 ? event.strength / strongest : 1;
    return list;
}

EventList ReadEventLines(const std::string &file, std::string_view bytes) {
    const SourceText source(file, bytes);
    EventList list;
    list.in_frames = true;
    for (const Line &line : source.Lines()) {
        for (const Field &field : BlankFields(line.text)) {
            CheckCount(source, line, list);
            list.events.push_back({source.Number(line, field, "frame", -kMaxNumber, kMaxNumber)});
        }
    }
    CheckThatThereAreSome(source, list);
    return list;
}

}  // namespace tremolux
