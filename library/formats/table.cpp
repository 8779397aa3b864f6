#include "library/formats/table.h"

#include <algorithm>
#include <cmath>

#include "host/scene/angles.h"
#include "library/formats/frame_order.h"
#include "library/formats/lens.h"
#include "library/formats/numbers.h"
#include "library/formats/right_handed.h"
#include "library/formats/table_header.h"
#include "library/formats/table_times.h"
#include "library/formats/unit_question.h"

namespace tremolux {
namespace {

constexpr double kShortestQuaternion = 1e-3;  // every other one is a rotation, however it was rounded

struct RowReader {
    const TableRow &row;
    const TableLayout &layout;
    const FormatOptions &options;

    double Angle(TableField field) const {
        if (!row.Has(field)) return 0;
        const double unit = layout.radians ? 1 : kRadiansPerDegree;
        return row.Number(field, kMaxNumber * kRadiansPerDegree / unit) * unit;
    }
    double Length(TableField field) const {
        if (!row.Has(field)) return 0;
        const double limit = *ParseNumber(FormatNumber(kMaxNumber / layout.length_unit));
        return std::clamp(row.Number(field, limit) * layout.length_unit, -kMaxNumber, kMaxNumber);
    }

    host::Matrix QuaternionMatrix() const {
        double w = row.Number(kTableQw, kMaxNumber), x = row.Number(kTableQx, kMaxNumber),
               y = row.Number(kTableQy, kMaxNumber), z = row.Number(kTableQz, kMaxNumber);
        const double length = std::sqrt(w * w + x * x + y * y + z * z);
        if (!(length >= kShortestQuaternion)) row.Refuse(kTableQw, "a quaternion that is not 0 0 0 0");
        for (double *part : {&w, &x, &y, &z}) *part /= length;
        return {{0, 0, 0},
                {1 - 2 * (y * y + z * z), 2 * (x * y + w * z), 2 * (x * z - w * y)},
                {2 * (x * y - w * z), 1 - 2 * (x * x + z * z), 2 * (y * z + w * x)},
                {2 * (x * z + w * y), 2 * (y * z - w * x), 1 - 2 * (x * x + y * y)}};
    }

    // The camera's own axes in the table's world.
    host::Matrix Axes() const {
        if (row.Has(kTableQw)) return QuaternionMatrix();
        return RotationOf({Angle(kTableRx), Angle(kTableRy), Angle(kTableRz)}, layout.order);
    }

    void SetPose(CameraSample *sample) const {
        const bool by_axes = row.Has(kTableQw) || row.Has(kTableRx) || row.Has(kTableRy) || row.Has(kTableRz);
        host::Matrix camera = by_axes ? Axes() : host::Matrix();
        if (layout.left_handed) {
            sample->angles = host::MatrixToHpb(camera);
            sample->position = {Length(kTableX), Length(kTableY), Length(kTableZ)};
        } else {
            if (layout.camera_y_down) {
                camera.v2 = camera.v2 * -1.0;
                camera.v3 = camera.v3 * -1.0;
            }
            camera.off = {Length(kTableX), Length(kTableY), Length(kTableZ)};
            SetFromRightHanded(layout.z_up ? YUpOf(camera) : camera, sample);
        }
        if (!by_axes) sample->angles = {Angle(kTableH), Angle(kTableP), Angle(kTableB)};
    }

    double LensOfView(TableField field, double aperture) const {
        const double degree = layout.radians ? kRadiansPerDegree : 1;
        const double angle = row.Number(field, kWidestView * degree) / degree * kRadiansPerDegree;
        const double focal_length = angle > 0 ? FocalLengthOf(aperture, angle) : 0;
        if (focal_length >= kMinFocalLength && focal_length <= kMaxFocalLength) return focal_length;
        const auto shown = [&](double lens) {
            return FormatNumber(AngleOfView(aperture, lens) / kRadiansPerDegree * degree);
        };
        row.Refuse(field, "an angle of view from " + shown(kMaxFocalLength) + " to " + shown(kMinFocalLength));
    }

    void SetLens(CameraSample *sample) const {
        if (row.Has(kTableFocalLength)) {
            sample->focal_length = row.Number(kTableFocalLength, kMaxFocalLength);
            if (sample->focal_length < kMinFocalLength)
                row.Refuse(kTableFocalLength, "millimetres from " + FormatNumber(kMinFocalLength) + " to " +
                                                  FormatNumber(kMaxFocalLength) + " for focal_length");
        } else if (row.Has(kTableFov)) {
            sample->focal_length = LensOfView(kTableFov, options.aperture_width);
        } else if (row.Has(kTableVfov)) {
            sample->focal_length = LensOfView(kTableVfov, options.aperture_width * options.height / options.width);
        }
        if (!row.Has(kTableFocusDistance)) return;
        sample->focus_distance = Length(kTableFocusDistance);
        if (sample->focus_distance < 0) row.Refuse(kTableFocusDistance, "a distance of 0 or more for focus_distance");
    }

    CameraSample Read() const {
        CameraSample sample;
        SetPose(&sample);
        SetLens(&sample);
        return sample;
    }
};

// What is there of a camera's pose.
void CheckPose(const SourceText &source, const TableHeader &header, const FormatOptions &options, CameraMove *move) {
    const auto any = [&](std::initializer_list<TableField> fields) {
        return std::any_of(fields.begin(), fields.end(), [&](TableField field) { return header.Has(field); });
    };
    const bool moves = any({kTableX, kTableY, kTableZ});
    const bool turns = any({kTableH, kTableP, kTableB, kTableRx, kTableRy, kTableRz, kTableQw});
    if (!moves && !turns) source.Refuse(1, 1, "neither positions nor rotations", "columns x, y, z, or rotations");
    if (header.Has(kTableQw) && !(header.Has(kTableQx) && header.Has(kTableQy) && header.Has(kTableQz)))
        source.Refuse(1, 1, "a quaternion without all of its parts", "columns qw, qx, qy and qz");
    if (!header.Has(kTableQw) && any({kTableQx, kTableQy, kTableQz}) && !any({kTableRx, kTableRy, kTableRz}))
        source.Refuse(1, 1, "a quaternion without all of its parts", "columns qw, qx, qy and qz");
    if (!moves) move->notes.emplace_back("no column is a position: the camera stays at 0, 0, 0");
    if (!turns && !options.only_positions) move->notes.emplace_back("no column is a rotation: the camera never turns");
    if (const std::string unused = header.Unused(); !unused.empty()) move->notes.push_back(unused);
}

// The rows' numbers, or their order, or their times.
class RowOrder {
  public:
    RowOrder(const SourceText &source, const FormatOptions &options)
        : source_(source), options_(options), frames_(source, options.fills_gaps) {}

    void Add(const TableRow &row) {
        if (row.Has(kTableFrame)) {
            frames_.Add(row.SourceLine(), row.At(kTableFrame));
        } else if (!row.Has(kTableTime)) {
            if (const std::string expected = frames_.Add(static_cast<std::int64_t>(rows_)); !expected.empty())
                source_.Refuse(row.SourceLine().number, 1, "another row", expected);
        }
        if (++rows_ > kMaxFrames)
            source_.Refuse(row.SourceLine().number, 1, "another row", "at most " + std::to_string(kMaxFrames) + " rows");
        if (!row.Has(kTableTime)) return;
        const double time = row.Number(kTableTime, kLatest);
        if (!times_.empty() && time <= times_.back()) row.Refuse(kTableTime, "a time after the one above");
        times_.push_back(time);
        last_ = row.SourceLine();
    }

    void Finish(bool has_frames, CameraMove *move) {
        if (times_.empty()) {
            frames_.Finish(move);
            if (!has_frames) move->notes.emplace_back("no column is a frame or a time: rows are frames from 0 on");
            return;
        }
        FindRate(has_frames, move);
        if (has_frames) return frames_.Finish(move);
        for (double &time : times_) time *= unit_;
        if (const std::string expected = PlaceByTimes(times_, move); !expected.empty())
            source_.Refuse(last_.number, 1, Quoted(last_.text), expected);
    }

  private:
    static constexpr double kLatest = 1e19;  // nanoseconds of the clocks that count from 1970

    void FindRate(bool has_frames, CameraMove *move) {
        unit_ = SecondsOfTimes(times_);
        if (options_.rate) move->rate = *options_.rate;
        if (options_.rate || times_.size() < 2) return;
        std::vector<double> seconds = times_;
        for (double &time : seconds) time *= unit_;
        const std::optional<FrameRate> rate = RateOfTimes(seconds);
        if (!rate && has_frames) return;
        if (!rate) source_.Refuse(last_.number, 1, Quoted(last_.text), "1 to " + std::to_string(kMaxFramesPerSecond) + " rows a second; --fps says frames");
        move->rate = *rate;
        const char *words = unit_ == 1 ? "seconds" : unit_ == 1e-3 ? "milliseconds" : "parts of a second";
        move->notes.push_back(std::string("times are ") + words + ": " + FrameRateText(*rate) + " frames a second");
    }

    const SourceText &source_;
    const FormatOptions &options_;
    FrameOrder frames_;
    std::vector<double> times_;
    double unit_ = 1;
    Line last_{1, {}};
    std::size_t rows_ = 0;
};

}  // namespace

CameraMove ReadTable(const std::string &file, std::string_view bytes, const TableLayout &layout,
                     const FormatOptions &options) {
    const SourceText source(file, bytes);
    const TableHeader header(source, layout);
    CameraMove move;
    move.aperture_width = options.aperture_width;
    CheckPose(source, header, options, &move);
    RowOrder order(source, options);
    for (std::size_t i = header.FirstRow(); i < source.Lines().size(); ++i) {
        const Line &line = source.Lines()[i];
        if (IsTableRemark(line)) continue;
        const TableRow row(header, line);
        order.Add(row);
        move.samples.push_back(RowReader{row, layout, options}.Read());
    }
    if (move.samples.empty())
        source.Refuse(source.Lines().size() + 1, 1, "the end of the file", "at least one row");
    order.Finish(header.Has(kTableFrame), &move);
    if (!options.only_positions) AskAboutUnits({"--unit", "--angles", "--aperture"}, &move);
    return move;
}

}  // namespace tremolux
