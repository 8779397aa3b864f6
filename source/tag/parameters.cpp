#include "tag/parameters.h"

#include <cmath>

#include "lib_description.h"

namespace {

constexpr Real kDegree = 0.017453292519943295;

constexpr OptionalReal kNone = {FALSE, 0.0};
constexpr OptionalReal Some(Real value) { return {TRUE, value}; }

constexpr LONG kPercent = DESC_UNIT_PERCENT;

// The row of a percentage without hard limits.
constexpr ParameterInfo Percent(LONG id, const CHAR *label, Real slider_maximum, OptionalReal preset,
                                OptionalReal reset) {
    return {id,     label, ParameterType::kReal, kPercent, kNone, kNone, Some(0.0), Some(slider_maximum), Some(0.01),
            preset, reset};
}

// A percentage with limits.
constexpr ParameterInfo Limited(LONG id, const CHAR *label, OptionalReal maximum, Real slider_maximum, Real preset,
                                OptionalReal reset) {
    return {id,      label,     ParameterType::kReal, kPercent,   Some(0.0),
            maximum, Some(0.0), Some(slider_maximum), Some(0.01), Some(preset),
            reset};
}

// A share of 0 to 100 %.
constexpr ParameterInfo Share(LONG id, const CHAR *label, Real preset, OptionalReal reset) {
    return Limited(id, label, Some(1.0), 1.0, preset, reset);
}

constexpr ParameterInfo Angle(LONG id, const CHAR *label) {
    return {id,       label,     ParameterType::kReal, DESC_UNIT_DEGREE, kNone,
            kNone,    Some(0.0), Some(90 * kDegree),   Some(kDegree),    Some(0.0),
            Some(0.0)};
}

// A distance in scene units.
constexpr ParameterInfo Distance(LONG id, const CHAR *label) {
    return {id,        label,      ParameterType::kReal, 0,         Some(0.0), Some(1000.0),
            Some(0.0), Some(10.0), Some(0.25),           Some(0.0), kNone};
}

constexpr ParameterInfo Toggle(LONG id, const CHAR *label) {
    return {id, label, ParameterType::kBool, 0, kNone, kNone, kNone, kNone, kNone, Some(1.0), Some(1.0)};
}

constexpr ParameterInfo Plain(LONG id, const CHAR *label, ParameterType type, OptionalReal preset) {
    return {id, label, type, 0, kNone, kNone, kNone, kNone, kNone, preset, kNone};
}

constexpr ParameterInfo Link(LONG id, const CHAR *label) { return Plain(id, label, ParameterType::kLink, Some(0.0)); }
constexpr ParameterInfo Button(LONG id, const CHAR *label) { return Plain(id, label, ParameterType::kButton, kNone); }

// Reset values differ from declared defaults on purpose: a first set-up swings more than a reset-to-default.
constexpr ParameterInfo kParameters[] = {
    Link(kInputCamera, "Input Camera"),
    Button(kHelp, "?"),
    Plain(kCategory, "Category", ParameterType::kCycle, Some(0.0)),
    Plain(kPreset, "Preset", ParameterType::kCycle, Some(0.0)),
    Button(kSavePreset, "Save"),
    Button(kDeletePreset, "Delete"),

    Percent(kPositionIntensity, "Position Intensity", 2.0, Some(1.0), Some(1.0)),
    Percent(kRotationIntensity, "Rotation Intensity", 2.0, Some(1.0), Some(1.0)),
    {kOverallScale, "Overall Scale", ParameterType::kReal, kPercent, kNone, kNone, Some(0.0), Some(10.0), Some(0.01),
     Some(1.0), Some(1.0), TRUE},
    Button(kScaleCoffeeCup, "Coffee Cup"),
    Button(kScaleHuman, "Human"),
    Button(kScaleCar, "Car"),
    Button(kScaleHouse, "House"),
    Button(kScaleSkyscraper, "Skyscraper"),

    Toggle(kUsePositionX, "Pos X"),
    Toggle(kUseRotationH, "Rot H"),
    Toggle(kUseZoom, "Zoom "),
    Toggle(kUseJolt, "Jolt"),
    Toggle(kUsePositionY, "Pos Y"),
    Toggle(kUseRotationP, "Rot P "),
    Toggle(kUseFocus, "Focus "),
    Toggle(kUsePositionZ, "Pos Z"),
    Toggle(kUseRotationB, "Rot B"),
    Toggle(kUseTarget, "Target"),

    Share(kInitialPositionSmooth, "Initial Pos Smooth", 0.25, kNone),
    Share(kInitialPositionOvershoot, "Initial Pos Overshoot", 0.25, kNone),
    Share(kPositionOvershootFade, "Overshoot Fade", 0.5, kNone),
    Share(kInitialRotationSmooth, "Initial Rot Smooth", 0.25, kNone),
    Share(kInitialRotationOvershoot, "Initial Rot Overshoot", 0.25, Some(0.55)),
    Share(kRotationOvershootFade, "Overshoot Fade", 0.5, Some(0.2)),

    Percent(kPositionSlow, "Position Slow", 2.0, Some(0.0), kNone),
    Percent(kPositionMedium, "Position Medium", 2.0, Some(0.0), kNone),
    Percent(kPositionFast, "Position Fast", 2.0, Some(0.0), kNone),
    Angle(kRotationSlow, "Rotation Slow"),
    Angle(kRotationMedium, "Rotation Medium"),
    Angle(kRotationFast, "Rotation Fast"),
    Share(kShakeSmooth, "Shake Smooth", 0.25, Some(0.25)),
    Button(kZeroPosition, "Zero Pos"),
    Button(kZeroRotation, "Zero Rot"),
    Button(kZeroInitials, "Zero Initials"),
    Button(kRandomizeSeeds, "Randomize Seeds"),
    Button(kFeelingLucky, "I'm Feeling Lucky"),

    Limited(kJoltPositionIntensity, "Jolt Pos Intensity", kNone, 2.0, 0.05, kNone),
    Percent(kJoltRotationIntensity, "Jolt Rot Intensity", 2.0, Some(0.15), kNone),
    {kJoltInterval, "Interval", ParameterType::kTime, 0, Some(0.0), kNone, kNone, kNone, kNone, Some(0.0), kNone},
    Plain(kCustomTrigger, "Custom Trigger", ParameterType::kString, Some(0.0)),
    Limited(kJoltFalloff, "Jolt Falloff", kNone, 1.0, 0.1, Some(0.1)),
    Share(kJoltSmooth, "Jolt Smooth", 0.25, Some(0.5)),
    Button(kQuickBake, "Quick Bake"),
    Button(kBruteForceBake, "Brute Force Bake"),
    Button(kUnBake, "Un-Bake"),

    Link(kTargetObject, "Target Object"),
    Button(kCreateTarget, "Create Target Object"),
    Share(kTargetSmooth, "Target Smooth", 0.25, kNone),
    Share(kTargetOvershoot, "Overshoot Target", 0.25, Some(0.65)),
    Share(kTargetOvershootFade, "Overshoot Target Fade", 0.5, Some(0.25)),

    Share(kZoomSmooth, "Zoom Smooth", 0.25, kNone),
    Share(kZoomOvershoot, "Overshoot Zoom", 0.25, kNone),
    Share(kZoomOvershootFade, "Overshoot Zoom Fade", 0.5, kNone),
    Limited(kZoomDriftSlow, "Zoom Drift Slow", kNone, 1.0, 0.0, kNone),
    Limited(kZoomDriftMedium, "Zoom Drift Medium", kNone, 1.0, 0.0, kNone),
    Limited(kZoomDriftFast, "Zoom Drift Fast", kNone, 1.0, 0.0, kNone),
    Limited(kZoomSpeed, "Zoom Speed", kNone, 2.0, 1.0, kNone),
    Share(kZoomDriftSmooth, "Zoom Smooth", 0.25, Some(0.25)),

    Link(kFocusObject, "Focus Object"),
    Button(kCreateFocus, "Create Focus Object"),
    Share(kFocusSmoothing, "Focus Smoothing", 0.25, kNone),
    Share(kFocusOvershoot, "Overshoot Focus", 0.25, kNone),
    Share(kFocusOvershootFade, "Overshoot Focus Fade", 0.5, kNone),
    Distance(kFocusDriftSlow, "Focus Drift Slow"),
    Distance(kFocusDriftMedium, "Focus Drift Medium"),
    Distance(kFocusDriftFast, "Focus Drift Fast"),
    Limited(kFocusSpeed, "Focus Speed", Some(1000.0), 2.0, 1.0, Some(1.0)),
    Limited(kFocusDriftSmooth, "Focus Smooth", Some(100.0), 1.0, 0.25, kNone),

    {kSeed, "Seed", ParameterType::kReal, 0, Some(0.0), Some(99999.0), kNone, kNone, Some(1.0), Some(12345.0),
     Some(12345.0)},
    {kTimeOffset, "Time Offset", ParameterType::kReal, DESC_UNIT_TIME, kNone, kNone, kNone, kNone, Some(1.0), Some(0.0),
     Some(0.0)},
    Limited(kShakeSpeed, "Shake Speed", kNone, 2.0, 1.0, Some(1.0)),
    {kSpeedVariation, "Speed Variation", ParameterType::kReal, kPercent, Some(0.0), Some(1.0), Some(0.0), Some(1.0),
     Some(0.01), kNone, Some(0.25)},
    Limited(kRatioX, "X", Some(1000.0), 2.0, 1.0, Some(1.0)),
    Limited(kRatioY, "Y", Some(1000.0), 2.0, 1.0, Some(1.0)),
    Limited(kRatioZ, "Z", Some(1000.0), 2.0, 1.0, Some(1.0)),
    Limited(kRatioH, "H", kNone, 2.0, 1.0, Some(1.0)),
    Limited(kRatioP, "P", kNone, 2.0, 1.0, Some(1.0)),
    Limited(kRatioB, "B", kNone, 2.0, 1.0, Some(1.0)),
    Button(kExportCurrent, "Export Current"),
    Button(kExportAll, "Export All"),
    Button(kChoosePresetFolder, "Preset Path"),
    Button(kResetPresetFolder, "Reset Path"),
    Plain(kUserPresetFolder, "", ParameterType::kString, kNone),

    {kStoredOnlyA, NULL, ParameterType::kReal, 0, kNone, kNone, kNone, kNone, kNone, kNone, Some(0.0)},
    {kStoredOnlyB, NULL, ParameterType::kReal, 0, kNone, kNone, kNone, kNone, kNone, kNone, Some(0.15)},
    Plain(kCustomTriggerTwin, NULL, ParameterType::kString, Some(0.0)),
    Plain(kZoomHiddenTime, NULL, ParameterType::kTime, Some(0.0)),
    Plain(kZoomHidden1, NULL, ParameterType::kReal, Some(0.0)),
    Plain(kZoomHidden2, NULL, ParameterType::kReal, Some(0.0)),
    Plain(kZoomHidden3, NULL, ParameterType::kReal, Some(0.0)),
    Plain(kZoomHidden4, NULL, ParameterType::kReal, Some(0.0)),
    Plain(kTargetReserved, NULL, ParameterType::kReal, Some(0.0)),
};

}  // namespace

Bool IsPresetParameter(LONG id) {
    return id >= kFirstPresetId && id <= kLastPresetId && id != kInputCamera && id != kOverallScale &&
           id != kFocusObject && id != kTargetObject && id != kUserPresetFolder;
}

const ParameterInfo *Parameters(LONG *count) {
    *count = (LONG)(sizeof(kParameters) / sizeof(kParameters[0]));
    return kParameters;
}

const ParameterInfo *FindParameter(LONG id) {
    for (const ParameterInfo &parameter : kParameters)
        if (parameter.id == id) return &parameter;
    return NULL;
}

void WriteDefault(const ParameterInfo &parameter, BaseContainer *data) {
    if (!parameter.preset.given) return;
    switch (parameter.type) {
        case ParameterType::kReal:
            data->SetReal(parameter.id, parameter.preset.value);
            break;
        case ParameterType::kBool:
            data->SetBool(parameter.id, parameter.preset.value != 0.0);
            break;
        case ParameterType::kCycle:
            data->SetLong(parameter.id, Truncate(parameter.preset.value));
            break;
        case ParameterType::kTime:
            data->SetTime(parameter.id, BaseTime());
            break;
        case ParameterType::kString:
            data->SetString(parameter.id, String());
            break;
        case ParameterType::kLink:
            data->SetLink(parameter.id, NULL);
            break;
        case ParameterType::kButton:
            break;
    }
}

Real ReadReal(const BaseContainer &data, LONG id) {
    const Real value = data.GetReal(id);
    if (std::isfinite(value)) return value;
    const ParameterInfo *parameter = FindParameter(id);
    return parameter && parameter->preset.given ? parameter->preset.value : 0.0;
}

LONG Truncate(Real value) {
    if (std::isnan(value)) return 0;
    if (value >= 2147483647.0) return 2147483647;
    if (value <= -2147483648.0) return -2147483647 - 1;
    return (LONG)value;
}

LONG ReadTruncated(const BaseContainer &data, LONG id) { return Truncate(ReadReal(data, id)); }
