#include "library/formats/format.h"

#include "host/files/safe_write.h"
#include "host/value/text.h"
#include "library/failure.h"
#include "library/formats/blender.h"
#include "library/formats/chan.h"
#include "library/formats/csv.h"
#include "library/formats/gltf.h"
#include "library/formats/json.h"
#include "library/formats/source_text.h"
#include "library/formats/usda.h"

namespace tremolux {
namespace {

namespace fs = std::filesystem;

// A move of the greatest length, every number in full, stays below; larger files are something else.
constexpr std::uintmax_t kMaxFileBytes = std::uintmax_t{1} << 28;

std::string LowerCase(std::string text) {
    for (char &c : text) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return text;
}

bool Does(const MoveFormat &format, FormatUse use) { return use == FormatUse::kWrite ? format.write != nullptr : format.read != nullptr; }

}  // namespace

const std::vector<MoveFormat> &MoveFormats() {
    static const std::vector<MoveFormat> formats = {
        {".csv", ReadCsv, WriteCsv, nullptr, 0},
        {".json", ReadJson, WriteJson, nullptr, 0},
        {".chan", ReadChan, WriteChan, "focus distance, film back and frame rate", 0},
        {".usda", ReadUsda, WriteUsda, nullptr, kAllTraits},
        {".usd", ReadUsda, WriteUsda, nullptr, kAllTraits},
        {".usdz", ReadUsda, nullptr, nullptr, 0},
        {".gltf", nullptr, WriteGltf,
         "focal length, film back and focus distance but as extras, and zoom but by KHR_animation_pointer", 0},
        {".py", nullptr, WriteBlender, nullptr, 0}};
    return formats;
}

std::string LostIn(const MoveFormat &format, const CameraMove &move) {
    std::vector<std::string> lost;
    if (format.lost != nullptr) lost.emplace_back(format.lost);
    const auto add = [&](bool has, TraitSet trait, const char *words) {
        if (has && (format.carries & trait) == 0) lost.emplace_back(words);
    };
    const CameraTraits &traits = move.traits;
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
    const std::string extension = LowerCase(host::PathText(file.extension()));
    for (const MoveFormat &format : MoveFormats()) {
        if (extension == format.extension && Does(format, use)) return format;
    }
    throw Failure(kExitInput, host::PathText(file) + ": found the extension " + Quoted(extension) + ", expected " +
                                  KnownExtensions(use));
}

CameraMove ReadMove(const fs::path &file, const FormatOptions &options) {
    const std::string name = host::PathText(file);
    const std::string expected = ", expected a camera file (" + KnownExtensions(FormatUse::kRead) + ")";
    FormatOf(file, FormatUse::kRead);
    std::error_code error;
    if (!fs::exists(file, error)) throw Failure(kExitInput, name + ": found no such file" + expected);
    if (!fs::is_regular_file(file, error)) throw Failure(kExitInput, name + ": found something else" + expected);
    const std::uintmax_t size = fs::file_size(file, error);
    if (error || size > kMaxFileBytes) throw Failure(kExitInput, name + ": found a file of absurd size" + expected);
    std::string bytes, reason;
    if (!host::ReadFile(file, &bytes, &reason)) {
        throw Failure(kExitInput, name + ": found a file that cannot be read" + expected);
    }
    return MoveFromBytes(name, bytes, options);
}

CameraMove MoveFromBytes(const std::string &name, std::string_view bytes, const FormatOptions &options) {
    const MoveFormat &format = FormatOf(host::PathFromText(name), FormatUse::kRead);
    if (bytes.size() > kMaxFileBytes) throw Failure(kExitInput, name + ": found more bytes than any move has");
    CameraMove move = format.read(name, bytes, options);
    if (options.rate) move.rate = *options.rate;
    return move;
}

std::string MoveText(const fs::path &file, const CameraMove &move, const FormatOptions &options) {
    return FormatOf(file, FormatUse::kWrite).write(move, options);
}

}  // namespace tremolux
