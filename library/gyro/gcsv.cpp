#include "library/gyro/gcsv.h"

#include <algorithm>
#include <array>
#include <optional>

#include "library/failure.h"
#include "library/formats/numbers.h"
#include "library/formats/source_text.h"
#include "library/gyro/sensor_axes.h"
#include "library/gyro/sensor_time.h"
#include "library/gyro/words.h"

namespace tremolux {
namespace {

constexpr double kMaxScale = 1e6, kMaxReadout = 1000;  // of counts; milliseconds
constexpr std::array<const char *, 3> kRateNames = {"gx", "gy", "gz"}, kAccelerationNames = {"ax", "ay", "az"};

using Places = std::array<std::size_t, 3>;

struct GcsvHeader {
    std::optional<double> time_scale, rate_scale, acceleration_scale, readout_ms;
    std::optional<Eigen::Matrix3d> axes;
    std::string camera;
    std::size_t first_row = 0;  // index of the line behind the names
    std::optional<Places> rates, accelerations;
};

struct GcsvKey {
    std::string name;
    Field value;
};

// Between them stands a comma; in some files a colon.
GcsvKey KeyOf(const Line &line) {
    const std::size_t end = line.text.find_first_of(",:");
    if (end == std::string_view::npos) return {LowerCaseWord(Trimmed(line.text)), {{}, line.text.size() + 1}};
    const std::string_view rest = line.text.substr(end + 1);
    const std::string_view value = Trimmed(rest.substr(0, rest.find(',')));
    const std::size_t column = value.empty() ? end + 2 : static_cast<std::size_t>(value.data() - line.text.data()) + 1;
    return {LowerCaseWord(Trimmed(line.text.substr(0, end))), {value, column}};
}

std::optional<Places> PlacesOf(const std::vector<Field> &names, const std::array<const char *, 3> &wanted) {
    Places places{};
    for (std::size_t axis = 0; axis < places.size(); ++axis) {
        std::optional<std::size_t> found;
        for (std::size_t i = 0; i < names.size(); ++i) {
            if (!found && LowerCaseWord(names[i].text) == wanted[axis]) found = i;
        }
        if (!found) return std::nullopt;
        places[axis] = *found;
    }
    return places;
}

double ScaleOf(const SourceText &source, const Line &line, const GcsvKey &key) {
    const double scale = source.Number(line, key.value, key.name, -kMaxScale, kMaxScale);
    if (scale == 0) source.RefuseField(line, key.value, "a number other than 0 for " + key.name);
    return scale;
}

void ReadKey(const SourceText &source, const Line &line, GcsvHeader *header) {
    const GcsvKey key = KeyOf(line);
    if (key.name == "tscale") {
        header->time_scale = ScaleOf(source, line, key);
        if (*header->time_scale < 0) source.RefuseField(line, key.value, "a number above 0 for tscale");
    } else if (key.name == "gscale") {
        header->rate_scale = ScaleOf(source, line, key);
    } else if (key.name == "ascale") {
        header->acceleration_scale = ScaleOf(source, line, key);
    } else if (key.name == "frame_readout_time" && !key.value.text.empty()) {
        header->readout_ms = source.Number(line, key.value, key.name, 0, kMaxReadout);
    } else if (key.name == "orientation") {
        header->axes = AxesOfLetters(key.value.text);
        if (!header->axes) source.RefuseField(line, key.value, "the letters x, y and z in some order, small or capital");
    } else if (key.name == "id") {
        header->camera = PrintableWords(key.value.text);
    }
}

GcsvHeader ReadHeader(const SourceText &source) {
    GcsvHeader header;
    for (const Line &line : source.Lines()) {
        ++header.first_row;
        const std::vector<Field> names = CommaFields(line.text);
        if (LowerCaseWord(names.front().text) != "t") {
            ReadKey(source, line, &header);
            continue;
        }
        header.rates = PlacesOf(names, kRateNames);
        header.accelerations = PlacesOf(names, kAccelerationNames);
        if (!header.rates) source.Refuse(line.number, 1, "no columns gx, gy and gz", "them behind t");
        return header;
    }
    source.Refuse(source.Lines().empty() ? 1 : source.Lines().back().number, 1, "no line of columns that begins with t",
                  "a log of a rate sensor: 't,gx,gy,gz' behind its keys");
}

class GcsvRows {
  public:
    GcsvRows(const SourceText &source, const GcsvHeader &header, bool ends)
        : source_(source), header_(header), ends_(ends) {
        fewest_ = *std::max_element(header_.rates->begin(), header_.rates->end()) + 1;
    }

    void Read(std::vector<GyroSample> *rates, std::vector<GyroSample> *accelerations, bool *cut_off) const {
        const std::vector<Line> &lines = source_.Lines();
        for (std::size_t i = header_.first_row; i < lines.size(); ++i) {
            const Line &line = lines[i];
            if (Trimmed(line.text).empty()) continue;
            const std::vector<Field> fields = CommaFields(line.text);
            const bool is_whole = fields.size() >= fewest_ && !fields[fewest_ - 1].text.empty();
            // The number in it may be a part of one.
            if (i + 1 == lines.size() && (!is_whole || !ends_)) {
                *cut_off = true;
                return;
            }
            if (!is_whole)
                source_.Refuse(line.number, 1, CountText(line, fields.size()), "at least " + std::to_string(fewest_));
            const double time = source_.Number(line, fields.front(), "t", -kMaxTime, kMaxTime);
            rates->push_back({time, Vector(line, fields, *header_.rates, kRateNames)});
            if (header_.accelerations && Has(fields, *header_.accelerations))
                accelerations->push_back({time, Vector(line, fields, *header_.accelerations, kAccelerationNames)});
        }
    }

  private:
    static bool Has(const std::vector<Field> &fields, const Places &places) {
        for (const std::size_t place : places) {
            if (place >= fields.size() || fields[place].text.empty()) return false;
        }
        return true;
    }

    Eigen::Vector3d Vector(const Line &line, const std::vector<Field> &fields, const Places &places,
                           const std::array<const char *, 3> &names) const {
        constexpr double kMaxCount = 1e12;
        Eigen::Vector3d vector;
        for (std::size_t axis = 0; axis < places.size(); ++axis)
            vector[static_cast<int>(axis)] =
                source_.Number(line, fields[places[axis]], names[axis], -kMaxCount, kMaxCount);
        return vector;
    }

    const SourceText &source_;
    const GcsvHeader &header_;
    bool ends_;  // the file, with a line end
    std::size_t fewest_;
};

}  // namespace

GyroLog ReadGcsv(const std::string &file, std::string_view bytes, const std::optional<Eigen::Matrix3d> &axes) {
    const SourceText source(file, bytes);
    GcsvHeader header = ReadHeader(source);
    if (axes) header.axes = axes;
    GyroLog log;
    log.camera = header.camera;
    log.readout_ms = header.readout_ms;
    bool cut_off = false;
    const bool ends = !bytes.empty() && bytes.back() == '\n';
    GcsvRows(source, header, ends).Read(&log.rates, &log.accelerations, &cut_off);
    if (cut_off) log.notes.emplace_back("the last row was cut off and is left out");
    if (log.rates.empty()) throw Failure(kExitInput, file + ": found no rows, expected samples of a rate sensor");
    if (!header.axes) log.notes.emplace_back("the axes are not said ('orientation'): taken as the picture's x, y and z");
    if (!header.rate_scale) log.notes.emplace_back("no scale of the rates ('gscale'): taken as radians a second");
    if (!header.time_scale) log.notes.emplace_back("no scale of the times ('tscale'): taken from their step");
    const double seconds = header.time_scale.value_or(SecondsOfSensorTimes(TimesOf(log.rates)));
    const Eigen::Matrix3d picture = header.axes.value_or(Eigen::Matrix3d::Identity());
    ScaleSamples(file, {seconds, header.rate_scale.value_or(1), kMaxAngularRate}, picture, &log.rates);
    ScaleSamples(file, {seconds, header.acceleration_scale.value_or(1) * kStandardGravity, kMaxAcceleration}, picture,
                 &log.accelerations);
    KeepRising(&log);
    return log;
}

}  // namespace tremolux
