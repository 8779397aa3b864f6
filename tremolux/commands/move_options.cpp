#include "tremolux/commands/move_options.h"

#include <algorithm>
#include <cstdio>

#include "host/value/text.h"
#include "library/failure.h"
#include "library/formats/numbers.h"
#include "library/formats/source_text.h"
#include "library/parameters/name_seed.h"
#include "library/parameters/settings.h"
#include "tremolux/commands/option_values.h"
#include "tremolux/process/streams.h"
#include "tremolux/process/system.h"

namespace tremolux {
namespace {

constexpr std::int64_t kMaxPictureSide = 1000000;
constexpr const char *kSeedOfShot = "shot";

struct LengthUnit {
    const char *name;
    double scene_units;
};
constexpr LengthUnit kLengthUnits[] = {{"cm", 1}, {"m", 100}, {"mm", 0.1}, {"in", 2.54}, {"ft", 30.48}};

FrameRate RateOption(const char *option, const std::string &text) {
    if (const std::optional<FrameRate> rate = ParseFrameRate(text)) return *rate;
    RefuseOption(option, text, kExpectedFrameRate);
}

// Two whole numbers with `separator` between them.
std::optional<std::pair<std::int64_t, std::int64_t>> Pair(const std::string &text, char separator) {
    const std::size_t middle = text.find(separator);
    if (middle == std::string::npos) return std::nullopt;
    const std::optional<std::int64_t> first = ParseWhole(std::string_view(text).substr(0, middle));
    const std::optional<std::int64_t> second = ParseWhole(std::string_view(text).substr(middle + 1));
    if (!first || !second) return std::nullopt;
    return std::make_pair(*first, *second);
}

double LengthUnitOf(const std::string &name) {
    std::string known;
    for (const LengthUnit &unit : kLengthUnits) {
        if (name == unit.name) return unit.scene_units;
        known += (known.empty() ? "" : ", ") + std::string(unit.name);
    }
    RefuseOption("--unit", name, "one of " + known);
}

}  // namespace

std::filesystem::path HostOptions::ModuleFile() const {
    return module_file.empty() ? DefaultModuleFile() : std::filesystem::u8path(module_file);
}

std::filesystem::path HostOptions::Home() const { return home.empty() ? DefaultHome() : std::filesystem::u8path(home); }

std::vector<std::string> MoveOptions::AllSettings() const {
    std::vector<std::string> all = settings;
    if (seed == kSeedOfShot)
        all.push_back("Seed=" + SeedOfName(std::filesystem::u8path(input).stem().u8string()));
    else if (!seed.empty())
        all.push_back("Seed=" + std::to_string(WholeOption("--seed", seed, 0, kMaxSeed)));
    return all;
}

FrameNumbers FramesOption(const std::string &text) {
    if (text.empty()) return std::nullopt;
    const auto range = Pair(text, ':');
    if (!range || range->first > range->second)
        RefuseOption("--frames", text, "FIRST:LAST, whole numbers in rising order");
    return range;
}

FrameNumbers MoveOptions::FrameRange() const { return FramesOption(frames); }

FormatOptions MoveOptions::ReadOptions() const {
    const std::vector<std::string> files = InputFiles();
    if (std::count_if(files.begin(), files.end(), IsStream) > 1)
        throw Failure(kExitInput, "-: found twice, expected the standard input once");
    FormatOptions options = formats.Options();
    options.frames = FrameRange();
    return options;
}

FormatOptions FormatChoices::Options() const {
    FormatOptions options;
    options.camera = camera;
    options.usd_layer = usd_layer;
    options.stream_format = format;
    if (!frames_per_second.empty()) options.rate = RateOption("--fps", frames_per_second);
    if (!retime.empty()) {
        options.retime = RateOption("--retime", retime);
        options.fills_gaps = true;
    }
    std::optional<double> length_unit;
    if (!unit.empty()) options.length_unit = *(length_unit = LengthUnitOf(unit));
    std::optional<RotationOrder> order;
    if (!rotation_order.empty()) {
        order = RotationOrderNamed(rotation_order);
        if (!order) RefuseOption("--rotation-order", rotation_order, "the letters x, y and z in some order");
        options.rotation_order = *order;
    }
    options.z_up = table.IsZUp();
    sensor.SetIn(&options);
    options.table = table.Layout(length_unit, order);
    const std::optional<double> width = ParseNumber(aperture);
    if (!width || *width < kMinAperture || *width > kMaxAperture) {
        RefuseOption("--aperture", aperture,
                     "millimetres from " + FormatNumber(kMinAperture) + " to " + FormatNumber(kMaxAperture));
    }
    options.aperture_width = *width;
    const auto size = Pair(resolution, 'x');
    if (!size || size->first < 1 || size->second < 1 || size->first > kMaxPictureSide ||
        size->second > kMaxPictureSide) {
        RefuseOption("--resolution", resolution,
                     "WIDTHxHEIGHT in pixels, each from 1 to " + std::to_string(kMaxPictureSide));
    }
    options.width = static_cast<int>(size->first);
    options.height = static_cast<int>(size->second);
    return options;
}

std::filesystem::path FormatChoices::OutputName(const std::string &file) const {
    const std::string &extension = to_format.empty() ? format : to_format;
    if (IsStream(file) && extension.empty())
        throw Failure(kExitInput, "-: found no format, expected --to-format .csv or another of " +
                                      KnownExtensions(FormatUse::kWrite));
    return NamedOutput(file, extension);
}

std::optional<double> MoveOptions::MadeFor() const {
    if (keep_hz.empty()) return std::nullopt;
    return RateOption("--keep-hz", keep_hz).PerSecond();
}

std::vector<std::string> MoveOptions::InputFiles() const {
    std::vector<std::string> files = {input};
    files.insert(files.end(), target.begin(), target.end());
    files.insert(files.end(), focus_object.begin(), focus_object.end());
    if (!jolts.file.empty()) files.push_back(jolts.file);
    if (!recording.file.empty()) files.push_back(recording.file);
    if (!envelope.empty()) files.push_back(envelope);
    return files;
}

void AddInputFormat(Command command, FormatChoices *choices) {
    command.Add("--format", &choices->format, "extension of what the standard input holds, where INPUT is -: .csv");
}

void AddStreamFormats(Command command, FormatChoices *choices) {
    AddInputFormat(command, choices);
    command.Add("--to-format", &choices->to_format,
                "extension of what the standard output gets, where the output is -; else --format");
}

void AddRateOptions(Command command, FormatChoices *choices) {
    command.Add(
        "--fps", &choices->frames_per_second,
        "frames per second, 1 to 2500: 24, 23.976, 24000/1001; else what the file says, or 30, and 24 for recordings");
    command.Add(
        "--retime", &choices->retime,
        "frames per second, as for --fps: the move keeps its times and gets the frames of this rate, on a smooth "
        "curve through its own");
}

void AddWritingOptions(Command command, FormatChoices *choices) {
    command.Add("--unit", &choices->unit, "length unit of files that state none: cm (else), m, mm, in, ft");
    command.Add("--rotation-order,--order", &choices->rotation_order,
                "of .chan files (else zxy) and tables (else xyz), the first turn first");
    command.Add("--resolution", &choices->resolution, "size of the picture, for vertical fields of view").ShowDefault();
    command.Add("--usd-layer", &choices->usd_layer,
                "write .usda files as layers that lie over the stage that the camera is from");
}

void AddFormatOptions(Command command, FormatChoices *choices) {
    AddRateOptions(command, choices);
    AddWritingOptions(command, choices);
    AddTableOptions(command, &choices->table);
    AddSensorOptions(command, &choices->sensor);
    command.Add("--aperture", &choices->aperture, "width of the film back in millimetres, where no file says it")
        .ShowDefault();
    command.Add("--camera", &choices->camera, "PATH or NAME of the camera to read, where a file has several");
}

void AddHostOptions(Command command, HostOptions *options) {
    command.Add("--module", &options->module_file, "the module's file; else the one beside this program");
    command.Add("--user-folder", &options->home, "folder of the user's presets and settings; else the system's");
}

void AddMoveOptions(Command command, MoveOptions *options) {
    command.Add("INPUT", &options->input, "camera move to read, " + KnownExtensions(FormatUse::kRead)).Required();
    AddShakeOptions(command, options);
}

void AddShakeOptions(Command command, MoveOptions *options) {
    command
        .Add("--preset", &options->presets,
             "CATEGORY/NAME, NAME or a part of it: the preset to begin with; `tremolux presets` lists them. Given "
             "again it is "
             "mixed: --preset Documentary --preset Nervous=0.4; one without a share gets the rest")
        .Repeatable();
    command.Add(
        "--then", &options->then,
        "a preset, as for --preset, of a second camera whose input is the first one's output: its shake comes on "
        "top, at a pace and with ratios of its own. Presets of pairs bring their own");
    command
        .Add("--set", &options->settings,
             "LABEL=VALUE or ID=VALUE: a parameter of the tag; may be given more than once. Percentages: 150% or "
             "the fraction 1.5; angles: 12deg or 12 (degrees); times: 12f or 12 (frames), 0.5s, 1:04 "
             "(seconds:frames); switches: on, off, true, false, 1, 0")
        .Repeatable();
    command
        .Add("--key", &options->keys,
             "LABEL@FRAME=VALUE,FRAME=VALUE ...: keys of a parameter, with the units of --set; behind a value how it "
             "goes on "
             "to the next key: linear (else), smooth or hold")
        .Repeatable();
    command
        .Add("--target", &options->target,
             "x,y,z or FILE: a point in scene units, or a moving one (a camera file), that the camera turns to")
        .Once();
    command
        .Add("--focus-object", &options->focus_object,
             "x,y,z or FILE: a point in scene units, or a moving one (a camera file), that the camera focuses on")
        .Once();
    command.Add("--seed", &options->seed,
                "the shake's seed, 0 to 99999: short for --set Seed=; or the word shot: made of the input file's name, "
                "so that every "
                "shot differs and every render of it agrees");
    command.Add(
        "--keep-hz", &options->keep_hz,
        "FPS that the settings were made at: they are changed so that the motion keeps its frequencies. Else that is "
        "done for the settings of a built-in preset, whose rate is known");
    command.Add("--no-keep-hz", &options->no_keep_hz, "a built-in preset's settings as they are, at whatever rate");
    command.Add("--frames", &options->frames,
                "FIRST:LAST: the frames to write; playback still starts at the move's first frame. Of a camera that "
                "stands still "
                "in its file: the frames that there are");
    AddJoltsOptions(command, &options->jolts);
    AddRecordingOptions(command, &options->recording);
    command.Add(
        "--envelope", &options->envelope,
        "a table (.csv) with the columns time, position and rotation: keys on both intensities, as shares of what "
        "they are; tremolux fit --envelope measures one");
    AddFormatOptions(command, &options->formats);
    command.Add("--quiet", &options->quiet, "show no progress");
    AddHostOptions(command, &options->host);
}

void SayBeyondSliders(const std::vector<std::string> &settings, int frames_per_second, const host::Tag &tag) {
    for (const std::string &note : SliderNotes(settings, frames_per_second, tag))
        std::fprintf(stderr, "--set: %s\n", note.c_str());
}

CameraMove ReadInput(const std::string &file, const FormatOptions &options) {
    if (!IsStream(file)) return ReadMove(std::filesystem::u8path(file), options);
    if (options.stream_format.empty() && !options.table)
        throw Failure(kExitInput,
                      "-: found no format, expected --format .csv or another of " + KnownExtensions(FormatUse::kRead));
    const std::string name = NamedInput(file, options.stream_format).u8string();
    FormatOptions here = options;
    here.folder.clear();
    if (!options.table) FormatOf(std::filesystem::u8path(name), FormatUse::kRead);
    return MoveFromBytes(name, ReadStandardInput(kMaxFileBytes), here);
}

CameraMove ReadMoveFile(const std::string &file, const FormatOptions &options) {
    CameraMove move = ReadInput(file, options);
    for (const std::string &note : move.notes) std::fprintf(stderr, "%s: %s\n", file.c_str(), note.c_str());
    return move;
}

std::string TextForFile(const std::filesystem::path &file, const CameraMove &move, const FormatOptions &options) {
    const MoveFormat &format = FormatOf(file, FormatUse::kWrite);
    if (const std::string lost = LostIn(format, move); !lost.empty()) {
        std::fprintf(stderr, "%s: %s files have no place for %s\n", host::PathText(file).c_str(), format.extension,
                     lost.c_str());
    }
    if (const std::string beyond = BeyondLimits(move); !beyond.empty())
        std::fprintf(stderr, "%s: %s\n", host::PathText(file).c_str(), beyond.c_str());
    return MoveText(file, move, options);
}

}  // namespace tremolux
