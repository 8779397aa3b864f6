// The options that every command on a camera move takes.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/scene/tag.h"
#include "library/formats/format.h"
#include "tremolux/command_line.h"
#include "tremolux/commands/direction_options.h"
#include "tremolux/commands/jolts_from.h"
#include "tremolux/commands/recording_options.h"
#include "tremolux/commands/sensor_options.h"
#include "tremolux/commands/table_options.h"

namespace tremolux {

// Where the module and the user's settings lie; empty: the default.
struct HostOptions {
    std::string module_file, home;
    std::filesystem::path ModuleFile() const;
    std::filesystem::path Home() const;
};

// First and last.
using FrameNumbers = std::optional<std::pair<std::int64_t, std::int64_t>>;

// What files do not say, as it was typed.
struct FormatChoices {
    std::string frames_per_second, retime, unit, rotation_order, aperture = "36", resolution = "1920x1080", camera;
    bool usd_layer = false;
    TableChoices table;
    SensorChoices sensor;
    std::string format, to_format;  // of the standard streams; empty: not said, and the same
    FormatOptions Options() const;  // throws a Failure
    // The file, or for the standard output a name that says its format.
    std::filesystem::path OutputName(const std::string &file) const;
};

struct MoveOptions {
    HostOptions host;
    FormatChoices formats;
    std::string input;
    std::vector<std::string> presets;  // one, or a mix
    std::string then;                  // the preset of a second camera behind the first
    std::vector<std::string> settings, keys;
    std::vector<std::string> target, focus_object;  // a point or a file each; at most one
    std::string seed, frames, keep_hz;
    DirectionChoices direction;
    JoltsChoices jolts;
    RecordingChoices recording;
    std::string envelope;  // a file
    bool quiet = false, no_keep_hz = false;

    // The texts above as values; each throws a Failure.
    std::vector<std::string> AllSettings() const;  // the seed last
    FrameNumbers FrameRange() const;
    FormatOptions ReadOptions() const;
    std::optional<double> MadeFor() const;        // the frame rate of --keep-hz
    std::vector<std::string> InputFiles() const;  // that no output may replace
};

// "FIRST:LAST" of the option --frames; nothing where it is not given. Throws a Failure.
FrameNumbers FramesOption(const std::string &text);

// --format and --to-format: what a standard stream in the place of a file holds.
void AddStreamFormats(Command command, FormatChoices *choices);
void AddInputFormat(Command command, FormatChoices *choices);     // --format alone
void AddRateOptions(Command command, FormatChoices *choices);     // --fps and --retime
void AddWritingOptions(Command command, FormatChoices *choices);  // what files do not say that are written
// All of them, and what files do not say that are read.
void AddFormatOptions(Command command, FormatChoices *choices);
void AddHostOptions(Command command, HostOptions *options);
void AddMoveOptions(Command command, MoveOptions *options);   // for one move
void AddShakeOptions(Command command, MoveOptions *options);  // but for the input

// Says on the standard error output which of the settings lie beyond their sliders, a line each.
void SayBeyondSliders(const std::vector<std::string> &settings, int frames_per_second, const host::Tag &tag);
// A camera file's move, or of "-" the standard input's. Throws a Failure.
CameraMove ReadInput(const std::string &file, const FormatOptions &options);
// The same. What the reader had to decide, or passed over, is said on the standard error output, a line
// each.
CameraMove ReadMoveFile(const std::string &file, const FormatOptions &options);
// The move as that file's text. What the format has no place for is said on the standard error output, one line.
std::string TextForFile(const std::filesystem::path &file, const CameraMove &move, const FormatOptions &options);

}  // namespace tremolux
