#include "library/formats/added.h"

#include <iterator>
#include <vector>

#include "host/scene/angles.h"
#include "host/value/text.h"
#include "library/direction/added.h"
#include "library/failure.h"
#include "library/formats/added_script.h"
#include "library/formats/numbers.h"
#include "library/formats/right_handed.h"
#include "library/formats/source_text.h"
#include "library/formats/usda.h"
#include "library/moves/turns.h"
#include "library/parameters/nearest.h"

namespace tremolux {
namespace {

struct AddedFrames {
    const CameraMove &input, &output;
    const std::string &camera;
    const FormatOptions &options;

    std::int64_t FrameAt(std::size_t i) const { return output.first_frame + static_cast<std::int64_t>(i); }
    AddedMotionSample At(std::size_t i) const { return AddedTo(input.samples[i], output.samples[i]); }
};

// As a camera that stands in the origin would be shaken.
CameraSample AtOrigin(const AddedMotionSample &added) {
    CameraSample sample;
    sample.position = added.position;
    sample.angles = AnglesOf(added.turn);
    return sample;
}

std::vector<CameraSample> AtOrigin(const AddedFrames &frames) {
    std::vector<CameraSample> samples;
    for (std::size_t i = 0; i < frames.output.samples.size(); ++i) samples.push_back(AtOrigin(frames.At(i)));
    if (!samples.empty()) samples.front().angles = host::OptimalAngle({0, 0, 0}, samples.front().angles);
    MakeContinuous(&samples);
    return samples;
}

std::string WriteAddedCsv(const AddedFrames &frames) {
    std::string text = "frame,added_x,added_y,added_z,turn_h,turn_p,turn_b,added_focal_length,added_focus_distance\n";
    const std::vector<CameraSample> samples = AtOrigin(frames);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const AddedMotionSample added = frames.At(i);
        const host::Vector degrees = samples[i].angles * (1 / kRadiansPerDegree);
        text += std::to_string(frames.FrameAt(i));
        for (const double value : {added.position.x, added.position.y, added.position.z, degrees.x, degrees.y, degrees.z,
                                   added.focal_length, added.focus_distance})
            text += ',' + FormatNumber(value);
        text += '\n';
    }
    return text;
}

std::string List(std::initializer_list<double> numbers) {
    std::string list;
    for (const double number : numbers) list += (list.empty() ? "[" : ", ") + FormatNumber(number);
    return list + "]";
}

std::string WriteAddedJson(const AddedFrames &frames) {
    const FrameRate &rate = frames.output.rate;
    std::string text =
        "{\n  \"format\": \"tremolux added motion\",\n  \"version\": 1,\n"
        "  \"units\": {\"position\": \"centimetres\", \"turn_hpb\": \"degrees\", \"focal_length\": \"millimetres\", "
        "\"focus_distance\": \"centimetres\"},\n"
        "  \"conventions\": {\"axes\": \"left-handed, x right, y up; with hpb 0 0 0 the camera looks along +z\",\n"
        "    \"position\": \"output = input + position, along the axes of the camera's parent\",\n"
        "    \"turn\": \"output = input * turn, on column vectors; a quaternion w, x, y, z, and the same as turn_hpb\",\n"
        "    \"lens\": \"output = input + focal_length, input + focus_distance\"},\n"
        "  \"frames_per_second\": " +
        (rate.IsWhole() ? std::to_string(rate.numerator)
                        : "[" + std::to_string(rate.numerator) + ", " + std::to_string(rate.denominator) + "]") +
        ",\n  \"frames\": [\n";
    const std::vector<CameraSample> samples = AtOrigin(frames);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const AddedMotionSample added = frames.At(i);
        const host::Vector &p = added.position, degrees = samples[i].angles * (1 / kRadiansPerDegree);
        text += (i == 0 ? "" : ",\n") + std::string("    {\"frame\": ") + std::to_string(frames.FrameAt(i)) +
                ", \"position\": " + List({p.x, p.y, p.z}) +
                ", \"turn\": " + List({added.turn.w(), added.turn.x(), added.turn.y(), added.turn.z()}) +
                ", \"turn_hpb\": " + List({degrees.x, degrees.y, degrees.z}) +
                ", \"focal_length\": " + FormatNumber(added.focal_length) +
                ", \"focus_distance\": " + FormatNumber(added.focus_distance) + "}";
    }
    return text + "\n  ]\n}\n";
}

// Right-handed, as other .chan files. The turn is about the camera's own axes, whichever way is up in the world.
std::string WriteAddedChan(const AddedFrames &frames) {
    std::string text;
    host::Vector turns{0, 0, 0};
    for (std::size_t i = 0; i < frames.output.samples.size(); ++i) {
        const host::Matrix camera = RightHanded(AtOrigin(frames.At(i)));
        const host::Vector position = frames.options.z_up ? ZUpOf(camera.off) : camera.off;
        turns = NearestAngles(turns, RotationAngles(camera, frames.options.rotation_order), frames.options.rotation_order);
        const host::Vector degrees = turns * (1 / kRadiansPerDegree);
        const double unit = frames.options.length_unit;
        text += std::to_string(frames.FrameAt(i));
        for (const double value :
             {position.x / unit, position.y / unit, position.z / unit, degrees.x, degrees.y, degrees.z})
            text += ' ' + FormatNumber(value);
        text += '\n';
    }
    return text;
}

std::string WriteAddedUsda(const AddedFrames &frames) {
    std::vector<host::Matrix> matrices;
    for (std::size_t i = 0; i < frames.output.samples.size(); ++i) {
        const AddedMotionSample added = frames.At(i);
        host::Matrix matrix = RightHanded(AtOrigin(added));
        // Behind the camera's own matrix, the way lies along its axes.
        const host::Matrix own = RightHanded(frames.input.samples[i]);
        const host::Vector way = matrix.off;
        matrix.off = {host::Dot(way, own.v1), host::Dot(way, own.v2), host::Dot(way, own.v3)};
        matrices.push_back(matrix);
    }
    return WriteUsdaAddedOp(frames.output, matrices, frames.options);
}

std::string WriteAddedBlender(const AddedFrames &frames) {
    std::vector<AddedMotionSample> added;
    for (std::size_t i = 0; i < frames.output.samples.size(); ++i) added.push_back(frames.At(i));
    return AddedScript(frames.output, added, frames.camera, frames.options);
}

struct AddedFormat {
    const char *extension;
    std::string (*write)(const AddedFrames &frames);
};
constexpr AddedFormat kAddedFormats[] = {{".csv", WriteAddedCsv},   {".json", WriteAddedJson}, {".chan", WriteAddedChan},
                                         {".usda", WriteAddedUsda}, {".usd", WriteAddedUsda},  {".py", WriteAddedBlender}};

const AddedFormat &AddedFormatOf(const std::filesystem::path &file) {
    const std::string extension = host::PathText(file.extension());
    for (const AddedFormat &format : kAddedFormats)
        if (Folded(extension) == format.extension) return format;
    throw Failure(kExitInput, host::PathText(file) + ": found the extension " + Quoted(extension) + ", expected " +
                                  KnownAddedExtensions() + " for what was added alone");
}

}  // namespace

std::string KnownAddedExtensions() {
    std::string list;
    constexpr std::size_t kCount = std::size(kAddedFormats);
    for (std::size_t i = 0; i < kCount; ++i)
        list += std::string(i == 0 ? "" : i + 1 < kCount ? ", " : " or ") + kAddedFormats[i].extension;
    return list;
}

void CheckAddedFormat(const std::filesystem::path &file) { AddedFormatOf(file); }

std::string AddedText(const std::filesystem::path &file, const CameraMove &input, const CameraMove &output,
                      const std::string &camera, const FormatOptions &options) {
    return AddedFormatOf(file).write({input, output, camera, options});
}

}  // namespace tremolux
