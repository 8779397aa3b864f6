#include "library/formats/radiance.h"

#include <cmath>

#include "library/formats/lens.h"
#include "library/formats/numbers.h"
#include "library/formats/right_handed.h"

namespace tremolux {
namespace {

// The lens as shares of the picture's width and height; the middle from the upper left corner.
struct Intrinsics {
    double focal_x, focal_y, middle_x, middle_y;
};

// Millimetres; pixels are square where the file said no height.
double ApertureHeight(const CameraMove &move, const FormatOptions &options) {
    return move.aperture_height.value_or(move.aperture_width * options.height / options.width);
}

// A film back that is shifted to the right and up has the middle of the view further left and down.
Intrinsics IntrinsicsOf(const CameraMove &move, std::size_t index, const FormatOptions &options) {
    const double width = move.aperture_width, height = ApertureHeight(move, options);
    const double focal_length = move.samples[index].focal_length;
    return {focal_length / width, focal_length / height, 0.5 - move.traits.At(kHorizontalOffset, index, 0) / width,
            0.5 + move.traits.At(kVerticalOffset, index, 0) / height};
}

// Right, up, back and position, in the file's unit.
host::Matrix CameraToWorld(const CameraSample &sample, const FormatOptions &options) {
    const host::Matrix upright = RightHanded(sample);
    host::Matrix camera = options.z_up ? ZUpOf(upright) : upright;
    camera.off = camera.off * (1 / options.length_unit);
    return camera;
}

// Three rows of four for column vectors.
std::vector<std::vector<double>> RowsOf(const host::Matrix &camera) {
    return {{camera.v1.x, camera.v2.x, camera.v3.x, camera.off.x},
            {camera.v1.y, camera.v2.y, camera.v3.y, camera.off.y},
            {camera.v1.z, camera.v2.z, camera.v3.z, camera.off.z}};
}

// The inverse of a camera that is turned and moved: its axes are the rows.
host::Matrix WorldToCamera(const host::Matrix &camera) {
    const host::Vector right = camera.v1, down = camera.v2 * -1.0, forward = camera.v3 * -1.0, &at = camera.off;
    return {{-host::Dot(right, at), -host::Dot(down, at), -host::Dot(forward, at)},
            {right.x, down.x, forward.x},
            {right.y, down.y, forward.y},
            {right.z, down.z, forward.z}};
}

std::string Listed(const std::vector<double> &numbers, const char *between) {
    std::string text;
    for (const double number : numbers) text += (text.empty() ? "" : between) + FormatNumber(number);
    return text;
}

bool LensIsFixed(const CameraMove &move) {
    for (const CameraSample &sample : move.samples) {
        if (sample.focal_length != move.samples.front().focal_length) return false;
    }
    return !move.traits.IsAnimated(kHorizontalOffset) && !move.traits.IsAnimated(kVerticalOffset);
}

std::string LensEntries(const Intrinsics &lens, const FormatOptions &options, const std::string &between) {
    return "\"fl_x\": " + FormatNumber(lens.focal_x * options.width) + between +
           "\"fl_y\": " + FormatNumber(lens.focal_y * options.height) + between +
           "\"cx\": " + FormatNumber(lens.middle_x * options.width) + between +
           "\"cy\": " + FormatNumber(lens.middle_y * options.height) + between;
}

// Five digits, as pictures of a film are numbered; a minus before them.
std::string FrameName(std::int64_t frame) {
    std::string digits = std::to_string(std::abs(frame));
    if (digits.size() < 5) digits.insert(0, 5 - digits.size(), '0');
    return (frame < 0 ? "-" : "") + digits;
}

std::string OneLine(std::string text) {
    for (char &c : text) {
        if (c == '\n' || c == '\r') c = '_';
    }
    return text;
}

}  // namespace

std::string WriteTransforms(const CameraMove &move, const FormatOptions &options) {
    const bool fixed = LensIsFixed(move);
    const Intrinsics first = IntrinsicsOf(move, 0, options);
    std::string text = "{\n  \"camera_model\": \"OPENCV\",\n  ";
    if (fixed) {
        text += "\"camera_angle_x\": " + FormatNumber(2 * std::atan(0.5 / first.focal_x)) + ",\n  " +
                LensEntries(first, options, ",\n  ");
    }
    text += "\"w\": " + std::to_string(options.width) + ",\n  \"h\": " + std::to_string(options.height) +
            ",\n  \"frames\": [\n";
    for (std::size_t i = 0; i < move.samples.size(); ++i) {
        text += i > 0 ? ",\n" : "";
        text += "    {\"file_path\": \"images/" + FrameName(move.first_frame + static_cast<std::int64_t>(i)) + ".png\", ";
        if (!fixed) text += LensEntries(IntrinsicsOf(move, i, options), options, ", ");
        text += "\"transform_matrix\": [";
        for (const std::vector<double> &row : RowsOf(CameraToWorld(move.samples[i], options)))
            text += "[" + Listed(row, ", ") + "], ";
        text += "[0, 0, 0, 1]]}";
    }
    return text + "\n  ]\n}\n";
}

std::string WriteCameraPath(const CameraMove &move, const FormatOptions &options) {
    const double frames = static_cast<double>(move.samples.size()), height = ApertureHeight(move, options);
    std::string text = "{\n  \"camera_type\": \"perspective\",\n  \"render_height\": " + std::to_string(options.height) +
                       ",\n  \"render_width\": " + std::to_string(options.width) +
                       ",\n  \"fps\": " + FormatNumber(move.rate.PerSecond()) +
                       ",\n  \"seconds\": " + FormatNumber(frames / move.rate.PerSecond()) +
                       ",\n  \"is_cycle\": false,\n  \"smoothness_value\": 0,\n  \"keyframes\": [],\n"
                       "  \"camera_path\": [\n";
    // Of the film back: pixels need not be square.
    const std::string aspect = FormatNumber(move.aperture_width / height);
    for (std::size_t i = 0; i < move.samples.size(); ++i) {
        const CameraSample &sample = move.samples[i];
        text += i > 0 ? ",\n" : "";
        text += "    {\"camera_to_world\": [";
        for (const std::vector<double> &row : RowsOf(CameraToWorld(sample, options))) text += Listed(row, ", ") + ", ";
        text += "0, 0, 0, 1], \"fov\": " + FormatNumber(AngleOfView(height, sample.focal_length) / kRadiansPerDegree) +
                ", \"aspect\": " + aspect + "}";
    }
    return text + "\n  ]\n}\n";
}

std::string WritePoseLines(const CameraMove &move, const FormatOptions &options) {
    constexpr double kMicroseconds = 1e6;
    std::string text = OneLine(move.traits.Name()) + "\n";
    for (std::size_t i = 0; i < move.samples.size(); ++i) {
        const std::int64_t frame = move.first_frame + static_cast<std::int64_t>(i);
        const double time = static_cast<double>(frame) * move.rate.denominator * kMicroseconds / move.rate.numerator;
        const Intrinsics lens = IntrinsicsOf(move, i, options);
        text += std::to_string(std::llround(time)) + " " +
                Listed({lens.focal_x, lens.focal_y, lens.middle_x, lens.middle_y, 0, 0}, " ");
        for (const std::vector<double> &row : RowsOf(WorldToCamera(CameraToWorld(move.samples[i], options))))
            text += " " + Listed(row, " ");
        text += "\n";
    }
    return text;
}

}  // namespace tremolux
