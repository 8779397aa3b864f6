#include "tremolux/commands/aim_point.h"

#include <cmath>
#include <optional>

#include "library/failure.h"
#include "library/formats/numbers.h"
#include "library/formats/source_text.h"
#include "tremolux/commands/move_options.h"

namespace tremolux {
namespace {

std::optional<host::Vector> ParsePoint(const std::string &text) {
    const std::vector<Field> fields = CommaFields(text);
    if (fields.size() != 3) return std::nullopt;
    double numbers[3];
    for (std::size_t i = 0; i < 3; ++i) {
        const std::optional<double> number = ParseNumber(fields[i].text);
        if (!number || std::fabs(*number) > kMaxNumber) return std::nullopt;
        numbers[i] = *number;
    }
    return host::Vector{numbers[0], numbers[1], numbers[2]};
}

bool NamesMoveFile(const std::string &text) {
    try {
        FormatOf(std::filesystem::u8path(text), FormatUse::kRead);
        return true;
    } catch (const Failure &) {
        return false;
    }
}

std::string FrameText(const CameraMove &move) {
    return "frames " + std::to_string(move.first_frame) + " to " + std::to_string(move.LastFrame());
}

}  // namespace

CameraMove ReadAimPoint(const char *option, const std::string &text, const CameraMove &move, FormatOptions formats) {
    if (const std::optional<host::Vector> point = ParsePoint(text)) {
        CameraMove still;
        still.first_frame = move.first_frame;
        still.samples.emplace_back().position = *point;
        return still;
    }
    if (!NamesMoveFile(text)) {
        throw Failure(kExitInput, std::string(option) + ": found " + Quoted(text) +
                                      ", expected a point x,y,z in scene units, or a camera file, " +
                                      KnownExtensions(FormatUse::kRead));
    }
    formats.only_positions = true;
    formats.camera.clear();  // which names that of the move
    formats.frames = {move.first_frame, move.LastFrame()};
    CameraMove points = ReadMoveFile(text, formats);
    if (points.first_frame > move.first_frame || points.LastFrame() < move.LastFrame()) {
        throw Failure(kExitInput,
                      text + ": found " + FrameText(points) + ", expected " + FrameText(move) + " of the move");
    }
    return points;
}

}  // namespace tremolux
