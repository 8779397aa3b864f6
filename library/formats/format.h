// Camera file formats: one row each in a table.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "library/formats/rotation_order.h"
#include "library/formats/table_layout.h"
#include "library/moves/camera_move.h"

namespace tremolux {

// What a format does not store and somebody must know.
struct FormatOptions {
    double length_unit = 1;                    // scene units (centimetres) in one length of a file that states none
    RotationOrder rotation_order = kOrderZxy;  // of a .chan file
    bool z_up = false;                         // of a file that states no axes
    std::optional<TableLayout> table;          // of a table that is not the project's own
    bool fills_gaps = false;                   // a file may hold every second frame, or every third
    double aperture_width = kApertureWidth;    // of the film back in millimetres, where the file does not say
    int width = 1920, height = 1080;           // of the picture in pixels: makes the vertical field of view
    std::string camera;                        // by its name or path, where a file has several; empty: the only one
    std::optional<FrameRate> rate;             // instead of the file's own
    // Of a camera that stands still in its file: for how long, first and last.
    std::optional<std::pair<std::int64_t, std::int64_t>> frames;
    bool usd_layer = false;       // written to lie over the stage that the camera is from
    std::optional<FrameRate> retime;           // the move's times are brought onto the frames of this rate
    std::filesystem::path folder;              // where files lie that a file names; empty: none is opened
    std::string stream_format;                 // the extension of bytes that come without a file's name
    std::optional<bool> rates_in_degrees;  // of a sensor's table that does not say it: rates a second, and angles
    std::string sensor_axes;               // the picture's x, y and z as letters of the sensor's; empty: not said
    bool only_positions = false;               // a moving point is wanted: a table may lack the angles
};

// A move of the greatest length, every number in full, stays below; larger files are something else.
constexpr std::uintmax_t kMaxFileBytes = std::uintmax_t{1} << 28;

struct MoveFormat {
    const char *extension;  // in lower case, with the dot
    // Throws a Failure that names the place. `file` is the name for messages. Null for a format that is only written. The
    // move has the rate that the file says; the options' own where it says none, or none that can be.
    CameraMove (*read)(const std::string &file, std::string_view bytes, const FormatOptions &options);
    // Null for a format that is only read.
    std::string (*write)(const CameraMove &move, const FormatOptions &options);
    const char *lost;  // what of every move the format has no place for, in words; null when nothing is lost
    TraitSet carries;  // of what a file may say beside the motion
    bool keeps_rate_and_film_back = true;  // where `lost` does not speak of them
    // Instead of `read`, of a file that may be too large for the memory; null: it is read whole.
    CameraMove (*read_file)(const std::filesystem::path &file, const FormatOptions &options) = nullptr;
};

// What of this move the format has no place for, in words; empty when nothing is lost.
std::string LostIn(const MoveFormat &format, const CameraMove &move);

const std::vector<MoveFormat> &MoveFormats();
enum class FormatUse { kRead, kWrite };
// ".csv, .json or .chan": the extensions of what can be read or written.
std::string KnownExtensions(FormatUse use);
// By the extension, in whatever case; throws a Failure that lists the known ones.
const MoveFormat &FormatOf(const std::filesystem::path &file, FormatUse use);
// What this program cannot read but Blender opens, so that `tremolux import` makes a move of it; in lower case, with dots.
bool BlenderOpens(const std::filesystem::path &file);
CameraMove ReadMove(const std::filesystem::path &file, const FormatOptions &options);
// The same with the file's bytes at hand; its name says the format and stands in messages.
CameraMove MoveFromBytes(const std::string &name, std::string_view bytes, const FormatOptions &options);
// Read moves with the rates of the options. Throws a Failure for more frames than a move has.
CameraMove AtRatesOf(const FormatOptions &options, const std::string &name, CameraMove move);
std::string MoveText(const std::filesystem::path &file, const CameraMove &move, const FormatOptions &options);

}  // namespace tremolux
