#include <set>

#include "library/events/events.h"
#include "library/formats/numbers.h"
#include "library/formats/source_text.h"

namespace tremolux {
namespace {

// Event, reel, channels, transition, perhaps its length, source in and out, record in and out.
constexpr std::size_t kLeastFields = 8, kFromTheEnd = 2;  // record in is the last but one
constexpr std::int64_t kMinutes = 60, kSeconds = 60, kDropped = 2;

// "HH:MM:SS:FF" or, with a semicolon, in drop-frame counting, as a number of frames.
std::optional<std::int64_t> FrameOfTimecode(std::string_view text, int frames_per_second, bool drops) {
    std::int64_t parts[4];
    for (std::size_t i = 0; i < 4; ++i) {
        const std::size_t end = i < 3 ? text.find_first_of(":;", 0) : text.size();
        if (end == std::string_view::npos) return std::nullopt;
        if (i == 2 && text[end] == ';') drops = true;
        const std::optional<std::int64_t> part = ParseWhole(text.substr(0, end));
        if (!part || *part < 0 || *part > 99) return std::nullopt;
        parts[i] = *part;
        text.remove_prefix(i < 3 ? end + 1 : end);
    }
    if (parts[1] >= kMinutes || parts[2] >= kSeconds || parts[3] >= frames_per_second) return std::nullopt;
    const std::int64_t minutes = parts[0] * kMinutes + parts[1];
    const std::int64_t frame = (minutes * kSeconds + parts[2]) * frames_per_second + parts[3];
    // Two numbers are left out at the start of each minute but every tenth (SMPTE 12M), at 60 four.
    const std::int64_t dropped = kDropped * (frames_per_second / 30);
    return drops ? frame - dropped * (minutes - minutes / 10) : frame;
}

bool Begins(std::string_view text, std::string_view with) { return text.substr(0, with.size()) == with; }

}  // namespace

EventList ReadEditList(const std::string &file, std::string_view bytes, const FrameRate &rate) {
    const SourceText source(file, bytes);
    bool drops = false;
    std::set<std::int64_t> cuts;
    for (const Line &line : source.Lines()) {
        const std::string_view text = Trimmed(line.text);
        if (Begins(text, "FCM:")) drops = text.find("NON") == std::string_view::npos && text.find("DROP") != std::string_view::npos;
        const std::vector<Field> fields = BlankFields(line.text);
        // Notes, titles and comments begin with something else than a number.
        if (fields.empty() || !ParseWhole(fields.front().text)) continue;
        if (fields.size() < kLeastFields)
            source.Refuse(line.number, 1, CountText(line, fields.size()), "an edit: number, reel, channels, transition and four times");
        const Field &record_in = fields[fields.size() - kFromTheEnd];
        const std::optional<std::int64_t> frame = FrameOfTimecode(record_in.text, rate.Whole(), drops && rate.Whole() % 30 == 0);
        if (!frame) source.RefuseField(line, record_in, "a time HH:MM:SS:FF with frames below " + std::to_string(rate.Whole()));
        if (cuts.size() == kMaxEvents) source.Refuse(line.number, 1, "another edit", "at most " + std::to_string(kMaxEvents));
        cuts.insert(*frame);
    }
    if (cuts.size() < 2) source.Refuse(source.Lines().size() + 1, 1, std::to_string(cuts.size()) + " edits", "at least two, with a cut between them");
    EventList list;
    for (auto cut = std::next(cuts.begin()); cut != cuts.end(); ++cut)
        list.events.push_back({static_cast<double>(*cut - *cuts.begin()) / rate.PerSecond()});
    return list;
}

}  // namespace tremolux
