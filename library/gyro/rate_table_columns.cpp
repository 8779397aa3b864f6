#include "library/gyro/rate_table_columns.h"

#include <algorithm>
#include <string_view>

#include "library/formats/numbers.h"
#include "library/gyro/words.h"

namespace tremolux {
namespace {

struct HeaderWord {
    std::string name;  // letters and digits alone, in lower case
    std::string unit;  // what stands in brackets, in lower case
};

HeaderWord WordOf(std::string_view text) {
    HeaderWord word;
    bool in_unit = false;
    for (const char c : LowerCaseWord(text)) {
        if (c == '(' || c == '[') in_unit = true;
        if (in_unit) {
            word.unit += c;
        } else if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')) {
            word.name += c;
        }
    }
    return word;
}

// What stands before and behind the letter of the axis.
struct AxisStyle {
    std::string_view before, behind;
};
constexpr AxisStyle kRateStyles[] = {{"g", ""},        {"gyro", ""},         {"gyroscope", ""},
                                     {"w", ""},        {"omega", ""},        {"rate", ""},
                                     {"gyr", ""},      {"rotationrate", ""}, {"motionrotationrate", ""},
                                     {"gyro", "rads"}, {"gyro", "degs"},     {"gyro", "dps"}};
constexpr AxisStyle kPlainStyles[] = {{"", ""}};
constexpr AxisStyle kAccelerationStyles[] = {{"a", ""}, {"acc", ""}, {"accel", ""}, {"accelerometer", ""},
                                             {"acceleration", ""}};
constexpr AxisStyle kQuaternionStyles[] = {{"q", ""},          {"", ""},           {"quat", ""},
                                           {"quaternion", ""}, {"orientation", ""}, {"motionquaternion", ""}};

struct AngleNames {
    std::string_view yaw, pitch, roll;
};
constexpr AngleNames kAngleNames[] = {{"yaw", "pitch", "roll"},
                                      {"heading", "pitch", "roll"},
                                      {"heading", "pitch", "bank"},
                                      {"azimuth", "pitch", "roll"},
                                      {"motionyaw", "motionpitch", "motionroll"}};

// The better names first: an app's own clock may be absolute beside the elapsed seconds.
struct TimeName {
    std::string_view name;
    double seconds;  // 0: not said
};
constexpr TimeName kTimeNames[] = {{"secondselapsed", 1}, {"times", 1},       {"seconds", 1},     {"timems", 1e-3},
                                   {"timestampms", 1e-3}, {"timeus", 1e-6},   {"timestampus", 1e-6},
                                   {"timens", 1e-9},      {"timestampns", 1e-9}, {"timestamp", 0}, {"time", 0},
                                   {"t", 0}};
constexpr TimeName kTimeUnits[] = {{"(s)", 1},     {"[s]", 1},     {"(sec)", 1},   {"(seconds)", 1}, {"(ms)", 1e-3},
                                   {"[ms]", 1e-3}, {"(us)", 1e-6}, {"[us]", 1e-6}, {"(ns)", 1e-9},   {"[ns]", 1e-9}};

std::optional<std::size_t> PlaceOf(const std::vector<HeaderWord> &words, const std::string &name) {
    const auto found = std::find_if(words.begin(), words.end(), [&](const HeaderWord &word) { return word.name == name; });
    if (found == words.end()) return std::nullopt;
    return static_cast<std::size_t>(found - words.begin());
}

std::optional<AngleUnit> UnitOf(const HeaderWord &word) {
    const std::string all = word.name + word.unit;
    const auto has = [&all](std::string_view part) { return all.find(part) != std::string::npos; };
    if (has("deg") || has("dps") || has("\xC2\xB0")) return AngleUnit::kDegrees;
    if (has("rad")) return AngleUnit::kRadians;
    return std::nullopt;
}

template <std::size_t kCount>
std::optional<ColumnGroup<kCount>> GroupOf(const std::vector<HeaderWord> &words,
                                           const std::array<std::string, kCount> &names) {
    ColumnGroup<kCount> group{};
    for (std::size_t i = 0; i < kCount; ++i) {
        const std::optional<std::size_t> place = PlaceOf(words, names[i]);
        if (!place) return std::nullopt;
        group.places[i] = *place;
    }
    group.unit = UnitOf(words[group.places[0]]);
    return group;
}

template <std::size_t kCount, typename Styles>
std::optional<ColumnGroup<kCount>> AxesIn(const std::vector<HeaderWord> &words, const Styles &styles) {
    constexpr std::string_view kAxes = "wxyz";
    for (const AxisStyle &style : styles) {
        std::array<std::string, kCount> names;
        for (std::size_t i = 0; i < kCount; ++i)
            names[i] = std::string(style.before) + kAxes[kAxes.size() - kCount + i] + std::string(style.behind);
        if (auto group = GroupOf<kCount>(words, names)) return group;
    }
    return std::nullopt;
}

std::optional<ColumnGroup<3>> AnglesIn(const std::vector<HeaderWord> &words) {
    for (const AngleNames &names : kAngleNames) {
        if (auto group = GroupOf<3>(words, {std::string(names.yaw), std::string(names.pitch), std::string(names.roll)}))
            return group;
    }
    return std::nullopt;
}

std::optional<TimeColumn> TimeIn(const std::vector<HeaderWord> &words) {
    for (const TimeName &known : kTimeNames) {
        const std::optional<std::size_t> place = PlaceOf(words, std::string(known.name));
        if (!place) continue;
        TimeColumn time{*place, std::nullopt};
        if (known.seconds > 0) time.seconds = known.seconds;
        for (const TimeName &unit : kTimeUnits) {
            if (words[*place].unit == unit.name) time.seconds = unit.seconds;
        }
        return time;
    }
    return std::nullopt;
}

std::optional<std::size_t> HeaderLineOf(const SourceText &source) {
    for (std::size_t i = 0; i < source.Lines().size(); ++i) {
        const std::string_view text = Trimmed(source.Lines()[i].text);
        if (!text.empty() && text.front() != '#') return i;
    }
    return std::nullopt;
}

}  // namespace

std::optional<RateColumns> FindRateColumns(const SourceText &source) {
    const std::optional<std::size_t> line = HeaderLineOf(source);
    if (!line) return std::nullopt;
    RateColumns columns;
    columns.line = *line;
    columns.separator = SeparatorOf(source.Lines()[*line].text);
    std::vector<HeaderWord> words;
    for (const Field &field : SeparatedFields(source.Lines()[*line].text, columns.separator))
        words.push_back(WordOf(field.text));
    const std::optional<TimeColumn> time = TimeIn(words);
    if (!time || PlaceOf(words, "frame")) return std::nullopt;
    columns.time = *time;
    columns.quaternions = AxesIn<4>(words, kQuaternionStyles);
    columns.rates = AxesIn<3>(words, kRateStyles);
    columns.accelerations = AxesIn<3>(words, kAccelerationStyles);
    if (!columns.quaternions) columns.angles = AnglesIn(words);
    const bool is_only_axes = std::all_of(words.begin(), words.end(), [](const HeaderWord &word) {
        return word.name == "x" || word.name == "y" || word.name == "z" || word.name == "time" || word.name == "t" ||
               word.name == "timestamp" || word.name == "secondselapsed" || word.name == "times";
    });
    if (!columns.rates && !columns.quaternions && !columns.angles && is_only_axes) {
        columns.rates = AxesIn<3>(words, kPlainStyles);
        columns.are_plain_names = true;
    }
    if (!columns.rates && !columns.quaternions && !columns.angles) return std::nullopt;
    return columns;
}

}  // namespace tremolux
