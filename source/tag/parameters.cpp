#include "tag/parameters.h"

#include <cmath>

#include "lib_description.h"
#include "tag/hostmaths.h"

namespace {

using engine::Settings;

constexpr Real kDegree = 0.017453292519943295;

constexpr OptionalReal kNone = {FALSE, 0.0};
constexpr OptionalReal Some(Real value) { return {TRUE, value}; }

constexpr LONG kPercent = DESC_UNIT_PERCENT;

// The row of a percentage without hard limits.
constexpr ParameterInfo Percent(LONG id, const CHAR *label, Real slider_maximum, OptionalReal declared,
                                OptionalReal reset, EngineKey key) {
    return {id,    label,     ParameterType::kReal, kPercent,   kNone,
            kNone, Some(0.0), Some(slider_maximum), Some(0.01), declared,
            reset, key};
}

// A percentage with limits.
constexpr ParameterInfo Limited(LONG id, const CHAR *label, OptionalReal maximum, Real slider_maximum, Real declared,
                                OptionalReal reset, EngineKey key) {
    return {id,      label,     ParameterType::kReal, kPercent,   Some(0.0),
            maximum, Some(0.0), Some(slider_maximum), Some(0.01), Some(declared),
            reset,   key};
}

// A share of 0 to 100 %.
constexpr ParameterInfo Share(LONG id, const CHAR *label, Real declared, OptionalReal reset, EngineKey key) {
    return Limited(id, label, Some(1.0), 1.0, declared, reset, key);
}

constexpr ParameterInfo Angle(LONG id, const CHAR *label, EngineKey key) {
    return {id,        label,     ParameterType::kReal, DESC_UNIT_DEGREE, kNone,
            kNone,     Some(0.0), Some(90 * kDegree),   Some(kDegree),    Some(0.0),
            Some(0.0), key};
}

// A distance in scene units.
constexpr ParameterInfo Distance(LONG id, const CHAR *label, EngineKey key) {
    return {id,        label,      ParameterType::kReal, 0,         Some(0.0), Some(1000.0),
            Some(0.0), Some(10.0), Some(0.25),           Some(0.0), kNone,     key};
}

constexpr ParameterInfo Toggle(LONG id, const CHAR *label, EngineKey key) {
    return {id, label, ParameterType::kBool, 0, kNone, kNone, kNone, kNone, kNone, Some(1.0), Some(1.0), key};
}

constexpr ParameterInfo Plain(LONG id, const CHAR *label, ParameterType type, OptionalReal declared) {
    return {id, label, type, 0, kNone, kNone, kNone, kNone, kNone, declared, kNone};
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

    Percent(kPositionIntensity, "Position Intensity", 2.0, Some(1.0), Some(1.0), &Settings::position_intensity),
    Percent(kRotationIntensity, "Rotation Intensity", 2.0, Some(1.0), Some(1.0), &Settings::rotation_intensity),
    {kOverallScale, "Overall Scale", ParameterType::kReal, kPercent, kNone, kNone, Some(0.0), Some(10.0), Some(0.01),
     Some(1.0), Some(1.0), &Settings::overall_scale, TRUE},
    Button(kScaleCoffeeCup, "Coffee Cup"),
    Button(kScaleHuman, "Human"),
    Button(kScaleCar, "Car"),
    Button(kScaleHouse, "House"),
    Button(kScaleSkyscraper, "Skyscraper"),

    Toggle(kUsePositionX, "Pos X", &Settings::use_x),
    Toggle(kUseRotationH, "Rot H", &Settings::use_h),
    Toggle(kUseZoom, "Zoom ", &Settings::use_zoom),
    Toggle(kUseJolt, "Jolt", &Settings::use_jolt),
    Toggle(kUsePositionY, "Pos Y", &Settings::use_y),
    Toggle(kUseRotationP, "Rot P ", &Settings::use_p),
    Toggle(kUseFocus, "Focus ", &Settings::use_focus),
    Toggle(kUsePositionZ, "Pos Z", &Settings::use_z),
    Toggle(kUseRotationB, "Rot B", &Settings::use_b),
    Toggle(kUseTarget, "Target", &Settings::use_target),

    Share(kInitialPositionSmooth, "Initial Pos Smooth", 0.25, kNone, &Settings::position_smooth),
    Share(kInitialPositionOvershoot, "Initial Pos Overshoot", 0.25, kNone, &Settings::position_overshoot),
    Share(kPositionOvershootFade, "Overshoot Fade", 0.5, kNone, &Settings::position_overshoot_fade),
    Share(kInitialRotationSmooth, "Initial Rot Smooth", 0.25, kNone, &Settings::rotation_smooth),
    Share(kInitialRotationOvershoot, "Initial Rot Overshoot", 0.25, Some(0.55), &Settings::rotation_overshoot),
    Share(kRotationOvershootFade, "Overshoot Fade", 0.5, Some(0.2), &Settings::rotation_overshoot_fade),

    Percent(kPositionSlow, "Position Slow", 2.0, Some(0.0), kNone, &Settings::position_slow),
    Percent(kPositionMedium, "Position Medium", 2.0, Some(0.0), kNone, &Settings::position_medium),
    Percent(kPositionFast, "Position Fast", 2.0, Some(0.0), kNone, &Settings::position_fast),
    Angle(kRotationSlow, "Rotation Slow", &Settings::rotation_slow),
    Angle(kRotationMedium, "Rotation Medium", &Settings::rotation_medium),
    Angle(kRotationFast, "Rotation Fast", &Settings::rotation_fast),
    Share(kShakeSmooth, "Shake Smooth", 0.25, Some(0.25), &Settings::shake_smooth),
    Button(kZeroPosition, "Zero Pos"),
    Button(kZeroRotation, "Zero Rot"),
    Button(kZeroInitials, "Zero Initials"),
    Button(kRandomizeSeeds, "Randomize Seeds"),
    Button(kFeelingLucky, "I'm Feeling Lucky"),

    Limited(kJoltPositionIntensity, "Jolt Pos Intensity", kNone, 2.0, 0.05, kNone, &Settings::jolt_position_intensity),
    Percent(kJoltRotationIntensity, "Jolt Rot Intensity", 2.0, Some(0.15), kNone, &Settings::jolt_rotation_intensity),
    {kJoltInterval, "Interval", ParameterType::kTime, 0, Some(0.0), kNone, kNone, kNone, kNone, Some(0.0), kNone,
     &Settings::jolt_interval},
    Plain(kCustomTrigger, "Custom Trigger", ParameterType::kString, Some(0.0)),
    Limited(kJoltFalloff, "Jolt Falloff", kNone, 1.0, 0.1, Some(0.1), &Settings::jolt_falloff),
    Share(kJoltSmooth, "Jolt Smooth", 0.25, Some(0.5), &Settings::jolt_smooth),
    Button(kQuickBake, "Quick Bake"),
    Button(kBruteForceBake, "Brute Force Bake"),
    Button(kUnBake, "Un-Bake"),

    Link(kTargetObject, "Target Object"),
    Button(kCreateTarget, "Create Target Object"),
    Share(kTargetSmooth, "Target Smooth", 0.25, kNone, &Settings::target_smooth),
    Share(kTargetOvershoot, "Overshoot Target", 0.25, Some(0.65), &Settings::target_overshoot),
    Share(kTargetOvershootFade, "Overshoot Target Fade", 0.5, Some(0.25), &Settings::target_overshoot_fade),

    Share(kZoomSmooth, "Zoom Smooth", 0.25, kNone, &Settings::zoom_smooth),
    Share(kZoomOvershoot, "Overshoot Zoom", 0.25, kNone, &Settings::zoom_overshoot),
    Share(kZoomOvershootFade, "Overshoot Zoom Fade", 0.5, kNone, &Settings::zoom_overshoot_fade),
    Limited(kZoomDriftSlow, "Zoom Drift Slow", kNone, 1.0, 0.0, kNone, &Settings::zoom_drift_slow),
    Limited(kZoomDriftMedium, "Zoom Drift Medium", kNone, 1.0, 0.0, kNone, &Settings::zoom_drift_medium),
    Limited(kZoomDriftFast, "Zoom Drift Fast", kNone, 1.0, 0.0, kNone, &Settings::zoom_drift_fast),
    Limited(kZoomSpeed, "Zoom Speed", kNone, 2.0, 1.0, kNone, &Settings::zoom_rate),
    Share(kZoomDriftSmooth, "Zoom Smooth", 0.25, Some(0.25), &Settings::zoom_drift_smooth),

    Link(kFocusObject, "Focus Object"),
    Button(kCreateFocus, "Create Focus Object"),
    Share(kFocusSmoothing, "Focus Smoothing", 0.25, kNone, &Settings::focus_smooth),
    Share(kFocusOvershoot, "Overshoot Focus", 0.25, kNone, &Settings::focus_overshoot),
    Share(kFocusOvershootFade, "Overshoot Focus Fade", 0.5, kNone, &Settings::focus_overshoot_fade),
    Distance(kFocusDriftSlow, "Focus Drift Slow", &Settings::focus_drift_slow),
    Distance(kFocusDriftMedium, "Focus Drift Medium", &Settings::focus_drift_medium),
    Distance(kFocusDriftFast, "Focus Drift Fast", &Settings::focus_drift_fast),
    Limited(kFocusSpeed, "Focus Speed", Some(1000.0), 2.0, 1.0, Some(1.0), &Settings::focus_rate),
    Limited(kFocusDriftSmooth, "Focus Smooth", Some(100.0), 1.0, 0.25, kNone, &Settings::focus_drift_smooth),

    {kSeed, "Seed", ParameterType::kReal, 0, Some(0.0), Some(99999.0), kNone, kNone, Some(1.0), Some(12345.0),
     Some(12345.0), &Settings::seed},
    {kTimeOffset, "Time Offset", ParameterType::kReal, DESC_UNIT_TIME, kNone, kNone, kNone, kNone, Some(1.0), Some(0.0),
     Some(0.0), &Settings::time_offset},
    Limited(kShakeSpeed, "Shake Speed", kNone, 2.0, 1.0, Some(1.0), &Settings::speed),
    {kSpeedVariation, "Speed Variation", ParameterType::kReal, kPercent, Some(0.0), Some(1.0), Some(0.0), Some(1.0),
     Some(0.01), kNone, Some(0.25), &Settings::speed_variation},
    Limited(kRatioX, "X", Some(1000.0), 2.0, 1.0, Some(1.0), &Settings::ratio_x),
    Limited(kRatioY, "Y", Some(1000.0), 2.0, 1.0, Some(1.0), &Settings::ratio_y),
    Limited(kRatioZ, "Z", Some(1000.0), 2.0, 1.0, Some(1.0), &Settings::ratio_z),
    Limited(kRatioH, "H", kNone, 2.0, 1.0, Some(1.0), &Settings::ratio_h),
    Limited(kRatioP, "P", kNone, 2.0, 1.0, Some(1.0), &Settings::ratio_p),
    Limited(kRatioB, "B", kNone, 2.0, 1.0, Some(1.0), &Settings::ratio_b),
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
    if (!parameter.declared.given) return;
    switch (parameter.type) {
        case ParameterType::kReal:
            data->SetReal(parameter.id, parameter.declared.value);
            break;
        case ParameterType::kBool:
            data->SetBool(parameter.id, parameter.declared.value != 0.0);
            break;
        case ParameterType::kCycle:
            data->SetLong(parameter.id, engine::Truncate(parameter.declared.value));
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
    return parameter && parameter->declared.given ? parameter->declared.value : 0.0;
}

engine::Settings ReadSettings(const BaseContainer &data) {
    engine::Settings settings;
    for (const ParameterInfo &parameter : kParameters) {
        const EngineKey &key = parameter.key;
        if (key.real) settings.*key.real = ReadReal(data, parameter.id);
        if (key.flag) settings.*key.flag = data.GetBool(parameter.id) != FALSE;
        if (key.time) settings.*key.time = TimeOf(data.GetTime(parameter.id));
    }
    return settings;
}
