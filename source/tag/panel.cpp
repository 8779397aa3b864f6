// The one table of the panel: its tabs, groups, separators and parameters in the order in which they are built.
#include "tag/panel.h"

#include <array>

#include "lib_description.h"

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

constexpr Bool kOpen = TRUE, kClosed = FALSE;

constexpr PanelElement Element(PanelKind kind, LONG id, LONG parent) {
    PanelElement element = {};
    element.kind = kind;
    element.id = id;
    element.parent = parent;
    return element;
}

constexpr PanelElement Group(LONG id, LONG parent, const CHAR *title, LONG columns, Bool open, Bool scaled = TRUE) {
    PanelElement group = Element(PanelKind::kGroup, id, parent);
    group.title = title;
    group.columns = columns;
    group.open = open;
    group.scaled = scaled;
    return group;
}

constexpr PanelElement Heading(LONG id, LONG parent, const CHAR *title) {
    PanelElement heading = Element(PanelKind::kSeparator, id, parent);
    heading.title = title;
    return heading;
}

constexpr PanelElement Line(LONG id, LONG parent) {
    PanelElement line = Element(PanelKind::kSeparator, id, parent);
    line.line = TRUE;
    return line;
}

constexpr PanelElement UntitledLine(LONG id, LONG parent) {
    PanelElement line = Line(id, parent);
    line.title = "";
    return line;
}

constexpr LONG kMain = 6000, kTargetTab = 6065, kZoomTab = 6048, kFocusTab = 6055, kAdvancedTab = 6073;
constexpr LONG kInputRow = 6173, kPresetRow = 6002, kOverall = 6019, kScaleRow = 6189, kToggles = 6009,
               kToggleRowX = 5800, kToggleRowY = 5801, kToggleRowZ = 5802, kFollowing = 6031, kShake = 6023,
               kShakeRow = 6040, kJolts = 6036, kBakeRow = 6045, kTargetRow = 6067, kFocusRow = 6056, kRatios = 6074,
               kExportRow = 6191, kPathRow = 6177;

constexpr PanelElement Parameter(PanelKind kind, LONG parent, const ParameterInfo &parameter, const CHAR *sentence) {
    PanelElement element = Element(kind, parameter.id, parent);
    element.parameter = parameter;
    element.parameter.sentence = sentence;
    return element;
}

constexpr PanelElement Row(LONG parent, const ParameterInfo &parameter, const CHAR *sentence) {
    return Parameter(PanelKind::kParameter, parent, parameter, sentence);
}

constexpr PanelElement Hidden(const ParameterInfo &parameter, const CHAR *sentence) {
    return Parameter(PanelKind::kHidden, kPanelRoot, parameter, sentence);
}

// Reset values differ from declared defaults on purpose: a first set-up swings more than a reset-to-default.
constexpr PanelElement kPanel[] = {
    Group(kMain, kPanelRoot, "TremoluxCam", 1, kOpen),
    Group(kInputRow, kMain, NULL, 2, kOpen),
    Row(kInputRow, Link(kInputCamera, "Input Camera"),
        "The camera whose move is made hand-held; without one the tag does nothing."),
    Row(kInputRow, Button(kHelp, "?"), "Opens the help page in the browser."),
    Line(6194, kMain),
    Group(kPresetRow, kMain, NULL, 4, kOpen),
    Row(kPresetRow, Plain(kCategory, "Category", ParameterType::kCycle, Some(0.0)),
        "Chooses which presets the list beside it offers; the motion stays as it is."),
    Row(kPresetRow, Plain(kPreset, "Preset", ParameterType::kCycle, Some(0.0)),
        "Sets all parameters of the motion to those of a preset; \"Custom\" means that they match none."),
    Row(kPresetRow, Button(kSavePreset, "Save"), "Saves the present settings as a preset of the user's own."),
    Row(kPresetRow, Button(kDeletePreset, "Delete"), "Deletes the chosen preset of the user's own."),
    Group(kOverall, kMain, "Overall Parameters", 1, kOpen),
    Row(kOverall,
        Percent(kPositionIntensity, "Position Intensity", 2.0, Some(1.0), Some(1.0), &Settings::position_intensity),
        "Multiplies the shake and the jolts of the position."),
    Row(kOverall,
        Percent(kRotationIntensity, "Rotation Intensity", 2.0, Some(1.0), Some(1.0), &Settings::rotation_intensity),
        "Multiplies the shake and the jolts of the rotation."),
    Line(6192, kOverall),
    Row(kOverall,
        ParameterInfo{kOverallScale, "Overall Scale", ParameterType::kReal, kPercent, kNone, kNone, Some(0.0),
                      Some(10.0), Some(0.01), Some(1.0), Some(1.0), &Settings::overall_scale, TRUE},
        "Fits the shake and the jolts of the position to the size of the scene."),
    Group(kScaleRow, kOverall, NULL, 5, kOpen),
    Row(kScaleRow, Button(kScaleCoffeeCup, "Coffee Cup"),
        "Sets Overall Scale for a scene the size of a coffee cup: 20 %."),
    Row(kScaleRow, Button(kScaleHuman, "Human"), "Sets Overall Scale for a scene the size of a person: 100 %."),
    Row(kScaleRow, Button(kScaleCar, "Car"), "Sets Overall Scale for a scene the size of a car: 130 %."),
    Row(kScaleRow, Button(kScaleHouse, "House"), "Sets Overall Scale for a scene the size of a house: 500 %."),
    Row(kScaleRow, Button(kScaleSkyscraper, "Skyscraper"),
        "Sets Overall Scale for a scene the size of a skyscraper: 2000 %."),
    Group(kToggles, kMain, "On/Off Toggles", 1, kClosed),
    Group(kToggleRowX, kToggles, NULL, 4, kClosed),
    Row(kToggleRowX, Toggle(kUsePositionX, "Pos X", &Settings::use_x), "Lets the shake move the camera along X."),
    Row(kToggleRowX, Toggle(kUseRotationH, "Rot H", &Settings::use_h), "Lets the shake turn the heading."),
    Row(kToggleRowX, Toggle(kUseZoom, "Zoom ", &Settings::use_zoom), "Lets the focal length drift."),
    Row(kToggleRowX, Toggle(kUseJolt, "Jolt", &Settings::use_jolt), "Lets jolts push the camera."),
    Group(kToggleRowY, kToggles, NULL, 3, kClosed),
    Row(kToggleRowY, Toggle(kUsePositionY, "Pos Y", &Settings::use_y), "Lets the shake move the camera along Y."),
    Row(kToggleRowY, Toggle(kUseRotationP, "Rot P ", &Settings::use_p), "Lets the shake turn the pitch."),
    Row(kToggleRowY, Toggle(kUseFocus, "Focus ", &Settings::use_focus), "Lets the focus distance drift."),
    Group(kToggleRowZ, kToggles, NULL, 3, kClosed),
    Row(kToggleRowZ, Toggle(kUsePositionZ, "Pos Z", &Settings::use_z), "Lets the shake move the camera along Z."),
    Row(kToggleRowZ, Toggle(kUseRotationB, "Rot B", &Settings::use_b), "Lets the shake turn the bank."),
    Row(kToggleRowZ, Toggle(kUseTarget, "Target", &Settings::use_target),
        "Turns the camera to the target object; off, it keeps the input camera's angles."),
    Group(kFollowing, kMain, "Input Smoothing & Overshoot", 1, kClosed),
    Row(kFollowing, Share(kInitialPositionSmooth, "Initial Pos Smooth", 0.25, kNone, &Settings::position_smooth),
        "How far the position lags behind the input camera's; at 0 % it follows at once."),
    Row(kFollowing,
        Share(kInitialPositionOvershoot, "Initial Pos Overshoot", 0.25, kNone, &Settings::position_overshoot),
        "How far the position swings past where the input camera stops."),
    Row(kFollowing, Share(kPositionOvershootFade, "Overshoot Fade", 0.5, kNone, &Settings::position_overshoot_fade),
        "How soon the swing of the position dies out."),
    Line(6157, kFollowing),
    Row(kFollowing, Share(kInitialRotationSmooth, "Initial Rot Smooth", 0.25, kNone, &Settings::rotation_smooth),
        "How far the angles lag behind the input camera's; at 0 % they follow at once. Target Smooth takes its place "
        "while the camera turns to a target."),
    Row(kFollowing,
        Share(kInitialRotationOvershoot, "Initial Rot Overshoot", 0.25, Some(0.55), &Settings::rotation_overshoot),
        "How far the angles swing past where the input camera's stop."),
    Row(kFollowing, Share(kRotationOvershootFade, "Overshoot Fade", 0.5, Some(0.2), &Settings::rotation_overshoot_fade),
        "How soon the swing of the angles dies out."),
    Group(kShake, kMain, "Shake System", 1, kOpen),
    Row(kShake, Percent(kPositionSlow, "Position Slow", 2.0, Some(0.0), kNone, &Settings::position_slow),
        "Sway of the position over about 200 frames, up to 198 scene units at 100 %."),
    Row(kShake, Percent(kPositionMedium, "Position Medium", 2.0, Some(0.0), kNone, &Settings::position_medium),
        "Wobble of the position over about 29 frames, up to 22.5 scene units at 100 %."),
    Row(kShake, Percent(kPositionFast, "Position Fast", 2.0, Some(0.0), kNone, &Settings::position_fast),
        "Tremor of the position over about 2 frames, up to 1.9 scene units at 100 %."),
    Line(10034, kShake),
    Row(kShake, Angle(kRotationSlow, "Rotation Slow", &Settings::rotation_slow),
        "Sway of the angles over about 100 frames, up to a quarter of this angle."),
    Row(kShake, Angle(kRotationMedium, "Rotation Medium", &Settings::rotation_medium),
        "Wobble of the angles over about 10 frames, up to a twentieth of this angle."),
    Row(kShake, Angle(kRotationFast, "Rotation Fast", &Settings::rotation_fast),
        "Tremor of the angles over about 1.4 frames, up to 1/320 of this angle."),
    Line(10035, kShake),
    Row(kShake, Share(kShakeSmooth, "Shake Smooth", 0.25, Some(0.25), &Settings::shake_smooth),
        "Rounds the shake off: the higher, the less of its quick parts comes through."),
    Group(kShakeRow, kShake, NULL, 5, kOpen),
    Row(kShakeRow, Button(kZeroPosition, "Zero Pos"), "Sets the three position amounts of the shake to 0."),
    Row(kShakeRow, Button(kZeroRotation, "Zero Rot"), "Sets the three rotation amounts of the shake to 0."),
    Row(kShakeRow, Button(kZeroInitials, "Zero Initials"),
        "Sets smoothing and overshoot of the position to 0, and those of the target where one is linked, else those of "
        "the rotation."),
    Row(kShakeRow, Button(kRandomizeSeeds, "Randomize Seeds"),
        "Picks another seed: the same kind of shake, moving differently."),
    Row(kShakeRow, Button(kFeelingLucky, "I'm Feeling Lucky"),
        "Applies another of all presets that shake, with another seed, and leaves the category for \"User\"; each "
        "comes once before any repeats."),
    Group(kJolts, kMain, "Jolt System", 1, kOpen),
    Row(kJolts,
        Limited(kJoltPositionIntensity, "Jolt Pos Intensity", kNone, 2.0, 0.05, kNone,
                &Settings::jolt_position_intensity),
        "How far a jolt pushes the position: up to 150 scene units at 100 %."),
    Row(kJolts,
        Percent(kJoltRotationIntensity, "Jolt Rot Intensity", 2.0, Some(0.15), kNone,
                &Settings::jolt_rotation_intensity),
        "How far a jolt turns the camera: up to one radian at 100 %."),
    Row(kJolts,
        ParameterInfo{kJoltInterval, "Interval", ParameterType::kTime, 0, Some(0.0), kNone, kNone, kNone, kNone,
                      Some(0.0), kNone, &Settings::jolt_interval},
        "One jolt hits in every interval, at a frame that the seed picks; at 0 none does."),
    Row(kJolts, Plain(kCustomTrigger, "Custom Trigger", ParameterType::kString, Some(0.0)),
        "Frames on which a jolt hits, separated by commas."),
    Line(6123, kJolts),
    Row(kJolts, Limited(kJoltFalloff, "Jolt Falloff", kNone, 1.0, 0.1, Some(0.1), &Settings::jolt_falloff),
        "What a jolt's intensity loses at each frame: a tenth of this amount, so that 10 % ends a jolt of 5 % after "
        "about five frames."),
    Line(10024, kJolts),
    Row(kJolts, Share(kJoltSmooth, "Jolt Smooth", 0.25, Some(0.5), &Settings::jolt_smooth),
        "Softens a jolt: the higher, the slower it comes and goes."),
    Line(6039, kJolts),
    Heading(6044, kMain, "Baking"),
    UntitledLine(6196, kMain),
    Group(kBakeRow, kMain, NULL, 3, kOpen),
    Row(kBakeRow, Button(kQuickBake, "Quick Bake"),
        "Writes the motion as keys, computed from keys alone; it does not see a zoom."),
    Row(kBakeRow, Button(kBruteForceBake, "Brute Force Bake"),
        "Writes the motion as keys, playing the whole scene frame by frame."),
    Row(kBakeRow, Button(kUnBake, "Un-Bake"), "Takes the baked keys away and lets the tag move the camera again."),
    UntitledLine(6197, kMain),

    Group(kTargetTab, kPanelRoot, "Target", 1, kClosed),
    Group(kTargetRow, kTargetTab, NULL, 2, kOpen),
    Row(kTargetRow, Link(kTargetObject, "Target Object"), "The object that the camera turns to."),
    Row(kTargetRow, Button(kCreateTarget, "Create Target Object"), "Makes a null object and links it as the target."),
    Heading(6167, kTargetTab, "Input Smoothing & Overshoot"),
    Row(kTargetTab, Share(kTargetSmooth, "Target Smooth", 0.25, kNone, &Settings::target_smooth),
        "How far the look lags behind the target; at 0 % it follows at once."),
    Row(kTargetTab, Share(kTargetOvershoot, "Overshoot Target", 0.25, Some(0.65), &Settings::target_overshoot),
        "How far the look swings past where the target stops."),
    Row(kTargetTab,
        Share(kTargetOvershootFade, "Overshoot Target Fade", 0.5, Some(0.25), &Settings::target_overshoot_fade),
        "How soon the swing of the look dies out."),

    Group(kZoomTab, kPanelRoot, "Zoom", 1, kClosed),
    Heading(6052, kZoomTab, "Input Smoothing & Overshoot"),
    Row(kZoomTab, Share(kZoomSmooth, "Zoom Smooth", 0.25, kNone, &Settings::zoom_smooth),
        "How far the focal length lags behind the input camera's; at 0 % it follows at once."),
    Row(kZoomTab, Share(kZoomOvershoot, "Overshoot Zoom", 0.25, kNone, &Settings::zoom_overshoot),
        "How far the focal length swings past where the zoom stops."),
    Row(kZoomTab, Share(kZoomOvershootFade, "Overshoot Zoom Fade", 0.5, kNone, &Settings::zoom_overshoot_fade),
        "How soon the swing of the focal length dies out."),
    Heading(6133, kZoomTab, "Zoom Drift"),
    Row(kZoomTab, Limited(kZoomDriftSlow, "Zoom Drift Slow", kNone, 1.0, 0.0, kNone, &Settings::zoom_drift_slow),
        "Drift of the focal length over about 200 frames, up to its whole length at 100 %."),
    Row(kZoomTab, Limited(kZoomDriftMedium, "Zoom Drift Medium", kNone, 1.0, 0.0, kNone, &Settings::zoom_drift_medium),
        "Drift of the focal length over about 29 frames, up to 60 % of it at 100 %."),
    Row(kZoomTab, Limited(kZoomDriftFast, "Zoom Drift Fast", kNone, 1.0, 0.0, kNone, &Settings::zoom_drift_fast),
        "Drift of the focal length over about 4 frames, up to 15 % of it at 100 %."),
    Line(6137, kZoomTab),
    Row(kZoomTab, Limited(kZoomSpeed, "Zoom Speed", kNone, 2.0, 1.0, kNone, &Settings::zoom_rate),
        "Speed of the zoom drift; like Shake Speed it acts squared."),
    Line(6164, kZoomTab),
    Row(kZoomTab, Share(kZoomDriftSmooth, "Zoom Smooth", 0.25, Some(0.25), &Settings::zoom_drift_smooth),
        "Rounds the zoom drift off."),

    Group(kFocusTab, kPanelRoot, "Focus", 1, kClosed),
    Group(kFocusRow, kFocusTab, "Focus Object", 2, kOpen),
    Row(kFocusRow, Link(kFocusObject, "Focus Object"),
        "The object whose distance the focus follows, in place of the input camera's focus distance."),
    Row(kFocusRow, Button(kCreateFocus, "Create Focus Object"),
        "Makes a null object and links it as the focus object."),
    Heading(6062, kFocusTab, "Input Smoothing & Overshoot"),
    Row(kFocusTab, Share(kFocusSmoothing, "Focus Smoothing", 0.25, kNone, &Settings::focus_smooth),
        "How far the focus lags behind its goal; at 0 % it follows at once."),
    Row(kFocusTab, Share(kFocusOvershoot, "Overshoot Focus", 0.25, kNone, &Settings::focus_overshoot),
        "How far the focus swings past where its goal stops."),
    Row(kFocusTab, Share(kFocusOvershootFade, "Overshoot Focus Fade", 0.5, kNone, &Settings::focus_overshoot_fade),
        "How soon the swing of the focus dies out."),
    Heading(6127, kFocusTab, "Focus Drift"),
    Row(kFocusTab, Distance(kFocusDriftSlow, "Focus Drift Slow", &Settings::focus_drift_slow),
        "Drift of the focus over about 200 frames, up to 1.5 times its distance for each 1."),
    Row(kFocusTab, Distance(kFocusDriftMedium, "Focus Drift Medium", &Settings::focus_drift_medium),
        "Drift of the focus over about 29 frames, up to 40 % of its distance for each 1."),
    Row(kFocusTab, Distance(kFocusDriftFast, "Focus Drift Fast", &Settings::focus_drift_fast),
        "Drift of the focus over about 4 frames, up to 10 % of its distance for each 1."),
    Line(6131, kFocusTab),
    Row(kFocusTab, Limited(kFocusSpeed, "Focus Speed", Some(1000.0), 2.0, 1.0, Some(1.0), &Settings::focus_rate),
        "Speed of the focus drift; like Shake Speed it acts squared."),
    Line(6166, kFocusTab),
    Row(kFocusTab,
        Limited(kFocusDriftSmooth, "Focus Smooth", Some(100.0), 1.0, 0.25, kNone, &Settings::focus_drift_smooth),
        "Rounds the focus drift off."),

    Group(kAdvancedTab, kPanelRoot, "Advanced", 1, kClosed),
    Row(kAdvancedTab,
        ParameterInfo{kSeed, "Seed", ParameterType::kReal, 0, Some(0.0), Some(99999.0), kNone, kNone, Some(1.0),
                      Some(12345.0), Some(12345.0), &Settings::seed},
        "Picks the shake: each seed moves the camera differently, and the same seed always in the same way."),
    Line(6143, kAdvancedTab),
    Row(kAdvancedTab,
        ParameterInfo{kTimeOffset, "Time Offset", ParameterType::kReal, DESC_UNIT_TIME, kNone, kNone, kNone, kNone,
                      Some(1.0), Some(0.0), Some(0.0), &Settings::time_offset},
        "Starts the shake this many frames further on."),
    Line(6169, kAdvancedTab),
    Row(kAdvancedTab, Limited(kShakeSpeed, "Shake Speed", kNone, 2.0, 1.0, Some(1.0), &Settings::speed),
        "Speed of shake, jolts and drifts. It drives their clock and their rate, so it acts squared: 200 % is four "
        "times as fast."),
    Row(kAdvancedTab,
        ParameterInfo{kSpeedVariation, "Speed Variation", ParameterType::kReal, kPercent, Some(0.0), Some(1.0),
                      Some(0.0), Some(1.0), Some(0.01), kNone, Some(0.25), &Settings::speed_variation},
        "Lets the speed rise and fall over time by up to this share of itself."),
    Group(kRatios, kAdvancedTab, "Global Shake & Jolt Ratios", 1, kClosed),
    Row(kRatios, Limited(kRatioX, "X", Some(1000.0), 2.0, 1.0, Some(1.0), &Settings::ratio_x),
        "Share of the position's shake and jolts that goes along X."),
    Row(kRatios, Limited(kRatioY, "Y", Some(1000.0), 2.0, 1.0, Some(1.0), &Settings::ratio_y),
        "Share of the position's shake and jolts that goes along Y."),
    Row(kRatios, Limited(kRatioZ, "Z", Some(1000.0), 2.0, 1.0, Some(1.0), &Settings::ratio_z),
        "Share of the position's shake and jolts that goes along Z."),
    Line(6079, kRatios),
    Row(kRatios, Limited(kRatioH, "H", kNone, 2.0, 1.0, Some(1.0), &Settings::ratio_h),
        "Share of the rotation's shake and jolts that goes into the heading."),
    Row(kRatios, Limited(kRatioP, "P", kNone, 2.0, 1.0, Some(1.0), &Settings::ratio_p),
        "Share of the rotation's shake and jolts that goes into the pitch."),
    Row(kRatios, Limited(kRatioB, "B", kNone, 2.0, 1.0, Some(1.0), &Settings::ratio_b),
        "Share of the rotation's shake and jolts that goes into the bank."),
    Line(6190, kAdvancedTab),
    Heading(6195, kAdvancedTab, "Export Preset"),
    Group(kExportRow, kAdvancedTab, NULL, 2, kOpen, FALSE),
    Row(kExportRow, Button(kExportCurrent, "Export Current"),
        "Copies the chosen preset to the export folder, to be passed on."),
    Row(kExportRow, Button(kExportAll, "Export All"),
        "Copies all presets of the user's own to the export folder, to be passed on."),
    Heading(6183, kAdvancedTab, "Preset Path"),
    Group(kPathRow, kAdvancedTab, NULL, 2, kOpen, FALSE),
    Row(kPathRow, Button(kChoosePresetFolder, "Preset Path"), "Chooses the folder of the user's own presets."),
    Row(kPathRow, Button(kResetPresetFolder, "Reset Path"), "Goes back to the usual folder of the user's own presets."),
    Row(kAdvancedTab, Plain(kUserPresetFolder, "", ParameterType::kString, kNone),
        "The folder of the user's own presets."),

    // Stored in presets and reset with the others, shown nowhere
    Hidden(
        ParameterInfo{kStoredOnlyA, NULL, ParameterType::kReal, 0, kNone, kNone, kNone, kNone, kNone, kNone, Some(0.0)},
        "Kept with presets; moves nothing."),
    Hidden(ParameterInfo{kStoredOnlyB, NULL, ParameterType::kReal, 0, kNone, kNone, kNone, kNone, kNone, kNone,
                         Some(0.15)},
           "Kept with presets; moves nothing."),
    Hidden(Plain(kCustomTriggerTwin, NULL, ParameterType::kString, Some(0.0)),
           "A second list of frames, read like Custom Trigger; no jolt listens to it."),
    Hidden(Plain(kZoomHiddenTime, NULL, ParameterType::kTime, Some(0.0)), "Handed to the zoom, which does not use it."),
    Hidden(Plain(kZoomHidden1, NULL, ParameterType::kReal, Some(0.0)), "Handed to the zoom, which does not use it."),
    Hidden(Plain(kZoomHidden2, NULL, ParameterType::kReal, Some(0.0)), "Handed to the zoom, which does not use it."),
    Hidden(Plain(kZoomHidden3, NULL, ParameterType::kReal, Some(0.0)), "Handed to the zoom, which does not use it."),
    Hidden(Plain(kZoomHidden4, NULL, ParameterType::kReal, Some(0.0)), "Handed to the zoom, which does not use it."),
    Hidden(Plain(kTargetReserved, NULL, ParameterType::kReal, Some(0.0)), "Kept with presets; moves nothing."),
};

constexpr Bool HasParameter(const PanelElement &element) {
    return element.kind == PanelKind::kParameter || element.kind == PanelKind::kHidden;
}

constexpr LONG CountParameters() {
    LONG count = 0;
    for (const PanelElement &element : kPanel)
        if (HasParameter(element)) count++;
    return count;
}

constexpr std::array<ParameterInfo, CountParameters()> CollectParameters() {
    std::array<ParameterInfo, CountParameters()> parameters = {};
    std::size_t count = 0;
    for (const PanelElement &element : kPanel)
        if (HasParameter(element)) parameters[count++] = element.parameter;
    return parameters;
}

constexpr std::array<ParameterInfo, CountParameters()> kParameters = CollectParameters();

}  // namespace

const PanelElement *Panel(LONG *count) {
    *count = (LONG)(sizeof(kPanel) / sizeof(kPanel[0]));
    return kPanel;
}

const ParameterInfo *Parameters(LONG *count) {
    *count = (LONG)kParameters.size();
    return kParameters.data();
}
