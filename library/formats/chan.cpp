#include "library/formats/chan.h"

#include <algorithm>

#include "library/formats/frame_order.h"
#include "library/formats/lens.h"
#include "library/formats/numbers.h"
#include "library/formats/right_handed.h"
#include "library/formats/source_text.h"
#include "library/formats/unit_question.h"

namespace tremolux {
namespace {

constexpr std::size_t kFrameColumn = 0, kPositionColumn = 1, kRotationColumn = 4, kFieldOfViewColumn = 7;
constexpr const char *kColumnNames[] = {"frame", "tx", "ty", "tz", "rx", "ry", "rz", "vfov"};
constexpr double kFieldOfViewRounding = 1e-9;  // of a focal length, through a field of view with 15 digits

// Whether the file's turns are the angles themselves.
bool KeepsAngles(const FormatOptions &options) { return options.rotation_order == kOrderZxy && !options.z_up; }

// Height of the film back, millimetres; pixels are square.
double ApertureHeight(double width, const FormatOptions &options) { return width * options.height / options.width; }

// Degrees.
double FieldOfView(double focal_length, double aperture_height) {
    return AngleOfView(aperture_height, focal_length) / kRadiansPerDegree;
}

std::string ColumnCount(std::size_t count) {
    std::string list;
    for (std::size_t i = 0; i < count; ++i) list += (i > 0 ? " " : "") + std::string(kColumnNames[i]);
    return std::to_string(count) + " columns (" + list + ")";
}

// The first row says whether there is a field of view.
void CheckCount(const SourceText &source, const Line &line, const std::vector<Field> &fields, std::size_t *count) {
    if (*count == 0 && (fields.size() == kFieldOfViewColumn || fields.size() == kFieldOfViewColumn + 1)) *count = fields.size();
    if (*count != 0 && fields.size() == *count) return;
    const std::size_t expected = *count == 0 ? kFieldOfViewColumn + 1 : *count;
    const std::size_t column = fields.size() > expected ? fields[expected].column : line.text.size() + 1;
    source.Refuse(line.number, column, CountText(line, fields.size()), ColumnCount(expected));
}

double ReadFocalLength(const SourceText &source, const Line &line, const Field &field, const FormatOptions &options) {
    const double degrees = source.Number(line, field, kColumnNames[kFieldOfViewColumn], 0, kWidestView);
    const double height = ApertureHeight(options.aperture_width, options);
    const double focal_length = FocalLengthOf(height, degrees * kRadiansPerDegree);
    // The limits themselves are rounded when they are written as a field of view.
    const bool in_limits = focal_length >= kMinFocalLength * (1 - kFieldOfViewRounding) &&
                           focal_length <= kMaxFocalLength * (1 + kFieldOfViewRounding);
    if (degrees > 0 && in_limits) return std::clamp(focal_length, kMinFocalLength, kMaxFocalLength);
    source.RefuseField(line, field,
                       "a vertical field of view from " + FormatNumber(FieldOfView(kMaxFocalLength, height)) + " to " +
                           FormatNumber(FieldOfView(kMinFocalLength, height)) + " degrees");
}

CameraSample ReadRow(const SourceText &source, const Line &line, const std::vector<Field> &fields,
                     const FormatOptions &options) {
    const auto within = [&](std::size_t column, double limit) {
        return source.Number(line, fields[column], kColumnNames[column], -limit, limit);
    };
    const auto number = [&](std::size_t column) { return within(column, kMaxNumber); };
    const auto place = [&](std::size_t column) {
        // Rounded as it is when it is written.
        const double limit = *ParseNumber(FormatNumber(kMaxNumber / options.length_unit));
        return std::clamp(within(column, limit) * options.length_unit, -kMaxNumber, kMaxNumber);
    };
    CameraSample sample;
    const host::Vector turns =
        host::Vector{number(kRotationColumn), number(kRotationColumn + 1), number(kRotationColumn + 2)} * kRadiansPerDegree;
    if (KeepsAngles(options)) {
        sample.angles = {turns.y, turns.x, -turns.z};  // as they are, whole turns too
    } else {
        const host::Matrix camera = RotationOf(turns, options.rotation_order);
        SetFromRightHanded(options.z_up ? YUpOf(camera) : camera, &sample);
    }
    const host::Vector position = {place(kPositionColumn), place(kPositionColumn + 1), place(kPositionColumn + 2)};
    const host::Vector upright = options.z_up ? YUpOf(position) : position;
    sample.position = {upright.x, upright.y, -upright.z};
    if (fields.size() > kFieldOfViewColumn) {
        sample.focal_length = ReadFocalLength(source, line, fields[kFieldOfViewColumn], options);
    }
    return sample;
}

bool IsComment(const Line &line) {
    const std::string_view text = Trimmed(line.text);
    return !text.empty() && text.front() == '#';
}

}  // namespace

CameraMove ReadChan(const std::string &file, std::string_view bytes, const FormatOptions &options) {
    const SourceText source(file, bytes);
    if (source.Lines().empty()) source.Refuse(1, 1, "an empty file", ColumnCount(kFieldOfViewColumn + 1));
    CameraMove move;
    move.aperture_width = options.aperture_width;
    if (options.rate) move.rate = *options.rate;
    FrameOrder order(source, options.fills_gaps);
    std::size_t count = 0;
    for (const Line &line : source.Lines()) {
        if (Trimmed(line.text).empty() || IsComment(line)) continue;
        const std::vector<Field> fields = BlankFields(line.text);
        CheckCount(source, line, fields, &count);
        order.Add(line, fields[kFrameColumn]);
        move.samples.push_back(ReadRow(source, line, fields, options));
    }
    order.Finish(&move);
    if (!options.only_positions) AskAboutUnits({"--unit", "a table's --columns and --angles", "--aperture"}, &move);
    return move;
}

std::string WriteChan(const CameraMove &move, const FormatOptions &options) {
    const double height = ApertureHeight(move.aperture_width, options);
    std::string text;
    std::int64_t frame = move.first_frame;
    host::Vector turns{0, 0, 0};
    for (const CameraSample &sample : move.samples) {
        const host::Matrix upright = RightHanded(sample), camera = options.z_up ? ZUpOf(upright) : upright;
        turns = KeepsAngles(options)
                    ? host::Vector{sample.angles.y, sample.angles.x, -sample.angles.z}
                    : NearestAngles(turns, RotationAngles(camera, options.rotation_order), options.rotation_order);
        const host::Vector degrees = turns * (1 / kRadiansPerDegree);
        const host::Vector &position = camera.off;
        const double unit = options.length_unit;
        text += std::to_string(frame++);
        for (const double value : {position.x / unit, position.y / unit, position.z / unit, degrees.x, degrees.y,
                                   degrees.z, FieldOfView(sample.focal_length, height)}) {
            text += ' ' + FormatNumber(value);
        }
        text += '\n';
    }
    return text;
}

}  // namespace tremolux
