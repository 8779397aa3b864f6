#include "library/failure.h"
#include "library/formats/usd/lens.h"
#include "library/formats/usd/package.h"
#include "library/formats/usd/placement.h"
#include "library/formats/usda.h"

namespace tremolux {
namespace {

constexpr std::string_view kBinaryMark = "PXR-USDC";

void RefuseBinary(const std::string &file, std::string_view bytes) {
    if (bytes.substr(0, kBinaryMark.size()) != kBinaryMark) return;
    throw Failure(kExitInput, file + ": found a binary scene description, expected text, which `usdcat -o FILE.usda " +
                                  "FILE` makes of it");
}

std::string UnfollowedText(const std::vector<std::string> &names) {
    std::string text;
    for (const std::string &name : names) text += (text.empty() ? "" : ", ") + name;
    return text;
}

CameraMove ReadLayer(const std::string &file, std::string_view bytes, const FormatOptions &options) {
    RefuseBinary(file, bytes);
    const SourceText source(file, bytes);
    UsdLayer layer = ParseUsd(source, bytes);
    ApplyVariants(&layer);
    const UsdCamera camera = FindCamera(source, layer, options.camera);
    CameraMove move;
    if (!layer.unfollowed.empty())
        move.notes.push_back("not followed: " + UnfollowedText(layer.unfollowed) + "; the camera is what the file itself says");
    const UsdStage stage = UsdStageOf(source, layer, options, &move.notes);
    move.rate = stage.rate;
    move.traits.path = camera.path;
    move.traits.stage = StageTraits{stage.metres_per_unit, stage.is_z_up, stage.codes_per_frame, 1, OpNames(camera.Prim())};
    UsdPlacement(source, camera, stage).SetFrames(options, &move);
    ReadLens(source, camera.Prim(), stage, &move);
    return move;
}

}  // namespace

CameraMove ReadUsda(const std::string &file, std::string_view bytes, const FormatOptions &options) {
    if (!IsUsdPackage(bytes)) return ReadLayer(file, bytes, options);
    const PackagedFile first = FirstFileOf(file, bytes);
    const std::string quoted = Quoted(first.name);
    return ReadLayer(file + "[" + quoted.substr(1, quoted.size() - 2) + "]", first.bytes, options);
}

}  // namespace tremolux
