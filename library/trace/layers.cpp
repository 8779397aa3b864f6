#include "library/trace/layers.h"

#include "generated/module_ids.h"

namespace tremolux {
namespace {

// Where the tag keeps the layers of a position or of a rotation.
struct VectorChannel {
    std::int32_t smoothed, overshoot, shake, jolt;
    std::int32_t toggles[3];  // without any the shake is not used
};
constexpr VectorChannel kPosition = {ids::kPositionValue,
                                     ids::kOvershootPosition,
                                     ids::kPositionShakeValue,
                                     ids::kJoltPositionOffset,
                                     {ids::kUsePositionX, ids::kUsePositionY, ids::kUsePositionZ}};
constexpr VectorChannel kRotation = {ids::kRotationValue,
                                     ids::kOvershootRotation,
                                     ids::kRotationShakeValue,
                                     ids::kJoltRotationOffset,
                                     {ids::kUseRotationH, ids::kUseRotationP, ids::kUseRotationB}};

// Those of a lens value.
struct LensChannel {
    std::int32_t followed, overshoot;
};
constexpr LensChannel kZoom = {ids::kZoomValue, ids::kOvershootZoom}, kFocus = {ids::kFocusValue, ids::kOvershootFocus};

struct VectorLayers {
    host::Vector smoothed, overshoot, shake, jolt;
    host::Vector BeforeJolt() const { return smoothed + overshoot + shake; }
};

VectorLayers ReadLayers(const host::Container &state, const VectorChannel &channel, std::int32_t overshoot) {
    const host::Vector nothing{0, 0, 0};
    VectorLayers layers{state.GetVector(channel.smoothed), nothing, nothing, state.GetVector(channel.jolt)};
    // A spring that is switched off has no output.
    if (state.Has(overshoot + ids::kOvershootOutput))
        layers.overshoot = state.GetVector(overshoot + ids::kOvershootOutput) - layers.smoothed;
    for (const std::int32_t toggle : channel.toggles)
        if (state.Whole(toggle) != 0) layers.shake = state.GetVector(channel.shake);
    return layers;
}

Json VectorJson(const host::Vector &input, const VectorLayers &layers, const host::Vector &result, double unit) {
    return {{"input", JsonVector(input * unit)},
            {"smoothed", JsonVector(layers.smoothed * unit)},
            {"overshoot", JsonVector(layers.overshoot * unit)},
            {"shake", JsonVector(layers.shake * unit)},
            {"jolt", JsonVector(layers.jolt * unit)},
            {"result", JsonVector(result * unit)}};
}

Json LensJson(const host::Container &state, const LensChannel &channel, double input, double result) {
    const double smoothed = state.GetVector(channel.overshoot + ids::kOvershootInput).x,
                 followed = state.Real(channel.followed);
    return {{"input", JsonNumber(input)},
            {"smoothed", JsonNumber(smoothed)},
            {"overshoot", JsonNumber(followed - smoothed)},
            {"drift", JsonNumber(result - followed)},
            {"result", JsonNumber(result)}};
}

}  // namespace

Json Layers(const Stage &stage) {
    const host::Container &state = stage.CameraTag().Data();
    const CameraSample input = stage.Input(), output = stage.Output();
    const bool aims = stage.TurnsToTarget();
    const VectorLayers position = ReadLayers(state, kPosition, kPosition.overshoot);
    const VectorLayers rotation = ReadLayers(state, kRotation, aims ? ids::kOvershootTarget : kRotation.overshoot);
    Json rotation_json =
        VectorJson(input.angles, rotation, state.GetVector(ids::kPreviousRotation), 1 / kRadiansPerDegree);
    rotation_json["target"] = aims;

    double distance = input.focus_distance;
    if (const host::Object *object = stage.FocusObject())
        distance = host::Length(object->GlobalMatrix().off - position.BeforeJolt());
    return {{"position", VectorJson(input.position, position, output.position, 1)},
            {"rotation", rotation_json},
            {"zoom", LensJson(state, kZoom, input.focal_length, output.focal_length)},
            {"focus", LensJson(state, kFocus, distance, output.focus_distance)}};
}

}  // namespace tremolux
