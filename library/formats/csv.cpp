#include "library/formats/csv.h"

#include "library/formats/csv_header.h"
#include "library/formats/frame_order.h"
#include "library/formats/numbers.h"
#include "library/formats/recording.h"
#include "library/formats/source_text.h"
#include "library/formats/table.h"
#include "library/formats/unit_question.h"
#include "library/gyro/gyro_formats.h"

namespace tremolux {
namespace {

const CsvColumns kCameraColumns = {{"frame", true},
                                   {"x", true},
                                   {"y", true},
                                   {"z", true},
                                   {"h", true},
                                   {"p", true},
                                   {"b", true},
                                   {"focal_length", false},
                                   {"focus_distance", false}};
// A moving point: any camera table is one too.
const CsvColumns kPointColumns = {{"frame", true},
                                  {"x", true},
                                  {"y", true},
                                  {"z", true},
                                  {"h", false},
                                  {"p", false},
                                  {"b", false},
                                  {"focal_length", false},
                                  {"focus_distance", false}};
constexpr const char *kOtherTables = "; --columns describes other tables";
constexpr std::size_t kFrame = 0, kX = 1, kY = 2, kZ = 3, kH = 4, kP = 5, kB = 6, kFocalLength = 7, kFocusDistance = 8;

CameraSample ReadRow(const CsvRow &row) {
    const auto number = [&row](std::size_t column) { return row.Number(column, -kMaxNumber, kMaxNumber); };
    CameraSample sample;
    sample.position = {number(kX), number(kY), number(kZ)};
    const auto angle = [&](std::size_t column) { return row.Has(column) ? number(column) : 0.0; };
    sample.angles = host::Vector{angle(kH), angle(kP), angle(kB)} * kRadiansPerDegree;
    if (row.Has(kFocalLength)) sample.focal_length = row.Number(kFocalLength, kMinFocalLength, kMaxFocalLength);
    if (row.Has(kFocusDistance)) sample.focus_distance = row.Number(kFocusDistance, 0, kMaxNumber);
    return sample;
}

}  // namespace

CameraMove ReadCsv(const std::string &file, std::string_view bytes, const FormatOptions &options) {
    if (options.table) return ReadTable(file, bytes, *options.table, options);
    const SourceText source(file, bytes);
    if (!options.only_positions) {
        if (std::optional<CameraMove> sensor = ReadSensorTable(file, source, options)) return std::move(*sensor);
    }
    const bool recorded = IsRecordingHeader(source);
    const CsvColumns &columns = options.only_positions ? kPointColumns : kCameraColumns;
    const CsvHeader header(source, recorded ? kRecordingColumns : columns, recorded ? "" : kOtherTables);
    CameraMove move;
    move.aperture_width = options.aperture_width;
    if (recorded) move.rate = {kRecordingFramesPerSecond, 1};
    if (options.rate) move.rate = *options.rate;
    FrameOrder order(source, options.fills_gaps);
    for (std::size_t i = 1; i < source.Lines().size(); ++i) {
        const CsvRow row(header, source.Lines()[i]);
        order.Add(row.SourceLine(), row.At(kFrame));
        move.samples.push_back(recorded ? ReadRecordingRow(row) : ReadRow(row));
    }
    order.Finish(&move);
    source.CheckEnd();
    if (!recorded && !options.only_positions)
        AskAboutUnits({"--table tremolux --unit m", "--table tremolux --angles", "--aperture"}, &move);
    return move;
}

std::string WriteCsv(const CameraMove &move, const FormatOptions &) {
    std::string text;
    for (std::size_t i = 0; i < kCameraColumns.size(); ++i) text += (i > 0 ? "," : "") + kCameraColumns[i].name;
    text += '\n';
    std::int64_t frame = move.first_frame;
    for (const CameraSample &sample : move.samples) {
        const host::Vector degrees = sample.angles * (1 / kRadiansPerDegree);
        text += std::to_string(frame++);
        for (const double value : {sample.position.x, sample.position.y, sample.position.z, degrees.x, degrees.y,
                                   degrees.z, sample.focal_length, sample.focus_distance}) {
            text += ',' + FormatNumber(value);
        }
        text += '\n';
    }
    return text;
}

}  // namespace tremolux
