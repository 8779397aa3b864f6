#include "library/formats/format.h"

#include <algorithm>
#include <iterator>

#include "host/files/safe_write.h"
#include "host/value/text.h"
#include "library/failure.h"
#include "library/formats/blender.h"
#include "library/formats/chan.h"
#include "library/formats/csv.h"
#include "library/formats/gltf.h"
#include "library/formats/json.h"
#include "library/formats/radiance.h"
#include "library/formats/source_text.h"
#include "library/formats/usda.h"
#include "library/gyro/gyro_formats.h"
#include "library/moves/retime.h"

namespace tremolux {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kBlenderOpens[] = {".fbx", ".abc", ".dae", ".blend", ".x3d", ".wrl", ".gltf",
                                              ".glb", ".usd", ".usda", ".usdc", ".usdz"};

std::string LowerCase(std::string text) {
    for (char &c : text) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return text;
}

constexpr const char *kLostInGltf =
    "focal length, film back and focus distance but as extras, and zoom but by KHR_animation_pointer";

// As a shell takes it.
std::string Argument(const fs::path &file) {
    const std::string text = host::PathText(file);
    return text.find(' ') == std::string::npos ? text : "\"" + text + "\"";
}

void Relabel(const FrameRate &rate, CameraMove *move) {
    if (move->rate == rate) return;
    const std::string text = FrameRateText(rate);
    move->notes.push_back("the file says " + FrameRateWords(move->rate) + ", --fps " + text +
                          ": its frames stay and their times change (--retime " + text + " keeps the times)");
    move->rate = rate;
}

CameraMove RetimedWithin(const std::string &name, const CameraMove &move, const FrameRate &rate) {
    if (rate == move.rate) return move;
    const RetimedFrames frames = FramesAt(move, rate);
    if (frames.first >= -kMaxFrameNumber && frames.last <= kMaxFrameNumber &&
        frames.Count() <= static_cast<std::int64_t>(kMaxFrames))
        return Retimed(move, rate);
    throw Failure(kExitInput, name + ": found frames " + std::to_string(frames.first) + " to " + std::to_string(frames.last) +
                                  " at --retime " + FrameRateText(rate) + ", expected at most " +
                                  std::to_string(kMaxFrames) + " frames between -" + std::to_string(kMaxFrameNumber) +
                                  " and " + std::to_string(kMaxFrameNumber));
}

void CheckSize(const std::string &name, std::uintmax_t bytes) {
    if (bytes > kMaxFileBytes)
        throw Failure(kExitInput, name + ": found " + std::to_string(bytes) + " bytes, expected at most " +
                                      std::to_string(kMaxFileBytes));
}

// Of an extension with two dots the first stands for the start of the name, too: "transforms.json".
bool IsNamedFor(const MoveFormat &format, const fs::path &file) {
    const std::string_view extension = format.extension;
    if (extension.find('.', 1) == std::string_view::npos) return LowerCase(host::PathText(file.extension())) == extension;
    const std::string name = "." + LowerCase(host::PathText(file.filename()));
    return name.size() >= extension.size() && name.substr(name.size() - extension.size()) == extension;
}

const MoveFormat *KnownFormat(const fs::path &file) {
    for (const MoveFormat &format : MoveFormats()) {
        if (IsNamedFor(format, file)) return &format;
    }
    return nullptr;
}

// Where the options describe a table, whatever is no other camera file is one: tables have many extensions.
const MoveFormat &FormatToRead(const fs::path &file, const FormatOptions &options) {
    const MoveFormat *known = KnownFormat(file);
    if (options.table && (known == nullptr || known->read == nullptr)) return MoveFormats().front();
    return FormatOf(file, FormatUse::kRead);
}

bool Does(const MoveFormat &format, FormatUse use) { return use == FormatUse::kWrite ? format.write != nullptr : format.read != nullptr; }

}  // namespace

const std::vector<MoveFormat> &MoveFormats() {
    constexpr TraitSet kLensShift = TraitBit(kHorizontalOffset) | TraitBit(kVerticalOffset) | kApertureHeightTrait;
    static const std::vector<MoveFormat> formats = {
        {".csv", ReadCsv, WriteCsv, nullptr, 0, false},
        // Before .json: these are known by their whole names.
        {".transforms.json", nullptr, WriteTransforms,
         "focus distance, frame rate, and focal length and film back but in pixels", kLensShift},
        {".camera_path.json", nullptr, WriteCameraPath,
         "frame numbers, focus distance, and focal length and film back but as a field of view", kApertureHeightTrait},
        {".json", ReadJson, WriteJson, nullptr, kAllTraits},
        {".chan", ReadChan, WriteChan, "focus distance, film back and frame rate", 0},
        {".usda", ReadUsda, WriteUsda, nullptr, kAllTraits},
        {".usd", ReadUsda, WriteUsda, nullptr, kAllTraits},
        {".usdz", ReadUsda, nullptr, nullptr, 0},
        {".gltf", ReadGltf, WriteGltf, kLostInGltf, kAllTraits},
        {".glb", ReadGltf, WriteGlb, kLostInGltf, kAllTraits},
        {".py", nullptr, WriteBlender, nullptr,
         kAllTraits & ~(TraitBit(kShutterOpen) | TraitBit(kShutterClose))},
        {".txt", nullptr, WritePoseLines, "focus distance, and focal length and film back but as their ratio",
         kLensShift | kPathTrait},
        {".mp4", ReadFilm, nullptr, nullptr, 0, true, ReadFilmFile},
        {".mov", ReadFilm, nullptr, nullptr, 0, true, ReadFilmFile},
        {".gcsv", ReadGcsvMove, nullptr, nullptr, 0},
        {".raw", ReadPayloads, nullptr, nullptr, 0}};
    return formats;
}

std::string LostIn(const MoveFormat &format, const CameraMove &move) {
    std::vector<std::string> lost;
    if (format.lost != nullptr) lost.emplace_back(format.lost);
    const auto add = [&](bool has, TraitSet trait, const char *words) {
        if (has && (format.carries & trait) == 0) lost.emplace_back(words);
    };
    const CameraTraits &traits = move.traits;
    if (!format.keeps_rate_and_film_back) {
        add(move.rate != FrameRate(), 0, "the frame rate");
        add(move.aperture_width != kApertureWidth, 0, "the width of the film back");
    }
    add(traits.is_orthographic, kProjectionTrait, "the orthographic projection");
    add(move.aperture_height.has_value(), kApertureHeightTrait, "the height of the film back");
    for (int i = 0; i < kTraitChannelCount; ++i) {
        const auto channel = static_cast<TraitChannel>(i);
        add(traits.Has(channel), TraitBit(channel), InfoOf(channel).words);
    }
    add(!traits.path.empty(), kPathTrait, "the camera's name");
    std::string text;
    for (const std::string &words : lost) text += (text.empty() ? "" : "; ") + words;
    return text;
}

std::string KnownExtensions(FormatUse use) {
    std::vector<std::string> known;
    for (const MoveFormat &format : MoveFormats()) {
        if (Does(format, use)) known.emplace_back(format.extension);
    }
    std::string list = known.front();
    for (std::size_t i = 1; i < known.size(); ++i) list += (i + 1 < known.size() ? ", " : " or ") + known[i];
    return list;
}

const MoveFormat &FormatOf(const fs::path &file, FormatUse use) {
    for (const MoveFormat &format : MoveFormats()) {
        if (IsNamedFor(format, file) && Does(format, use)) return format;
    }
    const std::string extension = LowerCase(host::PathText(file.extension()));
    if (use == FormatUse::kRead && BlenderOpens(file)) {
        throw Failure(kExitInput, host::PathText(file) + ": found a " + extension + " file, expected " + KnownExtensions(use) +
                                      "; through Blender, `tremolux import " + Argument(file) +
                                      " -o MOVE.json` makes one of it");
    }
    throw Failure(kExitInput, host::PathText(file) + ": found the extension " + Quoted(extension) + ", expected " +
                                  KnownExtensions(use));
}

bool BlenderOpens(const fs::path &file) {
    const std::string extension = LowerCase(host::PathText(file.extension()));
    return std::find(std::begin(kBlenderOpens), std::end(kBlenderOpens), extension) != std::end(kBlenderOpens);
}

CameraMove AtRatesOf(const FormatOptions &options, const std::string &name, CameraMove move) {
    if (options.rate) Relabel(*options.rate, &move);
    return options.retime ? RetimedWithin(name, move, *options.retime) : move;
}

CameraMove ReadMove(const fs::path &file, const FormatOptions &options) {
    const std::string name = host::PathText(file);
    const std::string expected = ", expected a camera file (" + KnownExtensions(FormatUse::kRead) + ")";
    const MoveFormat &format = FormatToRead(file, options);
    std::error_code error;
    if (!fs::exists(file, error)) throw Failure(kExitInput, name + ": found no such file" + expected);
    if (!fs::is_regular_file(file, error)) throw Failure(kExitInput, name + ": found something else" + expected);
    if (format.read_file != nullptr) return AtRatesOf(options, name, format.read_file(file, options));
    const std::uintmax_t size = fs::file_size(file, error);
    if (error) throw Failure(kExitInput, name + ": found a file that cannot be read" + expected);
    CheckSize(name, size);
    std::string bytes, reason;
    if (!host::ReadFile(file, &bytes, &reason)) {
        throw Failure(kExitInput, name + ": found a file that cannot be read" + expected);
    }
    FormatOptions here = options;
    here.folder = file.has_parent_path() ? file.parent_path() : fs::path(".");
    return MoveFromBytes(name, bytes, here);
}

CameraMove MoveFromBytes(const std::string &name, std::string_view bytes, const FormatOptions &options) {
    const MoveFormat &format = FormatToRead(host::PathFromText(name), options);
    CheckSize(name, bytes.size());
    return AtRatesOf(options, name, format.read(name, bytes, options));
}

std::string MoveText(const fs::path &file, const CameraMove &move, const FormatOptions &options) {
    const MoveFormat &format = FormatOf(file, FormatUse::kWrite);
    if (BeyondLimits(move).empty()) return format.write(move, options);
    CameraMove held = move;
    for (CameraSample &sample : held.samples) sample = WithinLimits(sample);
    return format.write(held, options);
}

}  // namespace tremolux
