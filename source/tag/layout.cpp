#include "tag/layout.h"

#include "tag/parameters.h"

namespace {

constexpr Bool kOpen = TRUE, kClosed = FALSE;

constexpr LayoutElement Group(LONG id, LONG parent, const CHAR *title, LONG columns, Bool open, Bool scaled = TRUE) {
    return {LayoutKind::kGroup, id, parent, title, columns, open, scaled, FALSE};
}

constexpr LayoutElement Line(LONG id, LONG parent) {
    return {LayoutKind::kSeparator, id, parent, NULL, 0, FALSE, FALSE, TRUE};
}

constexpr LayoutElement UntitledLine(LONG id, LONG parent) {
    return {LayoutKind::kSeparator, id, parent, "", 0, FALSE, FALSE, TRUE};
}

constexpr LayoutElement Heading(LONG id, LONG parent, const CHAR *title) {
    return {LayoutKind::kSeparator, id, parent, title, 0, FALSE, FALSE, FALSE};
}

constexpr LayoutElement Row(LONG id, LONG parent) {
    return {LayoutKind::kParameter, id, parent, NULL, 0, FALSE, FALSE, FALSE};
}

constexpr LONG kMain = 6000, kTargetTab = 6065, kZoomTab = 6048, kFocusTab = 6055, kAdvancedTab = 6073;
constexpr LONG kInputRow = 6173, kPresetRow = 6002, kOverall = 6019, kScaleRow = 6189, kToggles = 6009,
               kToggleRowX = 5800, kToggleRowY = 5801, kToggleRowZ = 5802, kFollowing = 6031, kShake = 6023,
               kShakeRow = 6040, kJolts = 6036, kBakeRow = 6045, kTargetRow = 6067, kFocusRow = 6056, kRatios = 6074,
               kExportRow = 6191, kPathRow = 6177;

constexpr LayoutElement kLayout[] = {
    Group(kMain, kPanelRoot, "TremoluxCam", 1, kOpen),
    Group(kInputRow, kMain, NULL, 2, kOpen),
    Row(kInputCamera, kInputRow),
    Row(kHelp, kInputRow),
    Line(6194, kMain),
    Group(kPresetRow, kMain, NULL, 4, kOpen),
    Row(kCategory, kPresetRow),
    Row(kPreset, kPresetRow),
    Row(kSavePreset, kPresetRow),
    Row(kDeletePreset, kPresetRow),
    Group(kOverall, kMain, "Overall Parameters", 1, kOpen),
    Row(kPositionIntensity, kOverall),
    Row(kRotationIntensity, kOverall),
    Line(6192, kOverall),
    Row(kOverallScale, kOverall),
    Group(kScaleRow, kOverall, NULL, 5, kOpen),
    Row(kScaleCoffeeCup, kScaleRow),
    Row(kScaleHuman, kScaleRow),
    Row(kScaleCar, kScaleRow),
    Row(kScaleHouse, kScaleRow),
    Row(kScaleSkyscraper, kScaleRow),
    Group(kToggles, kMain, "On/Off Toggles", 1, kClosed),
    Group(kToggleRowX, kToggles, NULL, 4, kClosed),
    Row(kUsePositionX, kToggleRowX),
    Row(kUseRotationH, kToggleRowX),
    Row(kUseZoom, kToggleRowX),
    Row(kUseJolt, kToggleRowX),
    Group(kToggleRowY, kToggles, NULL, 3, kClosed),
    Row(kUsePositionY, kToggleRowY),
    Row(kUseRotationP, kToggleRowY),
    Row(kUseFocus, kToggleRowY),
    Group(kToggleRowZ, kToggles, NULL, 3, kClosed),
    Row(kUsePositionZ, kToggleRowZ),
    Row(kUseRotationB, kToggleRowZ),
    Row(kUseTarget, kToggleRowZ),
    Group(kFollowing, kMain, "Input Smoothing & Overshoot", 1, kClosed),
    Row(kInitialPositionSmooth, kFollowing),
    Row(kInitialPositionOvershoot, kFollowing),
    Row(kPositionOvershootFade, kFollowing),
    Line(6157, kFollowing),
    Row(kInitialRotationSmooth, kFollowing),
    Row(kInitialRotationOvershoot, kFollowing),
    Row(kRotationOvershootFade, kFollowing),
    Group(kShake, kMain, "Shake System", 1, kOpen),
    Row(kPositionSlow, kShake),
    Row(kPositionMedium, kShake),
    Row(kPositionFast, kShake),
    Line(10034, kShake),
    Row(kRotationSlow, kShake),
    Row(kRotationMedium, kShake),
    Row(kRotationFast, kShake),
    Line(10035, kShake),
    Row(kShakeSmooth, kShake),
    Group(kShakeRow, kShake, NULL, 5, kOpen),
    Row(kZeroPosition, kShakeRow),
    Row(kZeroRotation, kShakeRow),
    Row(kZeroInitials, kShakeRow),
    Row(kRandomizeSeeds, kShakeRow),
    Row(kFeelingLucky, kShakeRow),
    Group(kJolts, kMain, "Jolt System", 1, kOpen),
    Row(kJoltPositionIntensity, kJolts),
    Row(kJoltRotationIntensity, kJolts),
    Row(kJoltInterval, kJolts),
    Row(kCustomTrigger, kJolts),
    Line(6123, kJolts),
    Row(kJoltFalloff, kJolts),
    Line(10024, kJolts),
    Row(kJoltSmooth, kJolts),
    Line(6039, kJolts),
    Heading(6044, kMain, "Baking"),
    UntitledLine(6196, kMain),
    Group(kBakeRow, kMain, NULL, 3, kOpen),
    Row(kQuickBake, kBakeRow),
    Row(kBruteForceBake, kBakeRow),
    Row(kUnBake, kBakeRow),
    UntitledLine(6197, kMain),

    Group(kTargetTab, kPanelRoot, "Target", 1, kClosed),
    Group(kTargetRow, kTargetTab, NULL, 2, kOpen),
    Row(kTargetObject, kTargetRow),
    Row(kCreateTarget, kTargetRow),
    Heading(6167, kTargetTab, "Input Smoothing & Overshoot"),
    Row(kTargetSmooth, kTargetTab),
    Row(kTargetOvershoot, kTargetTab),
    Row(kTargetOvershootFade, kTargetTab),

    Group(kZoomTab, kPanelRoot, "Zoom", 1, kClosed),
    Heading(6052, kZoomTab, "Input Smoothing & Overshoot"),
    Row(kZoomSmooth, kZoomTab),
    Row(kZoomOvershoot, kZoomTab),
    Row(kZoomOvershootFade, kZoomTab),
    Heading(6133, kZoomTab, "Zoom Drift"),
    Row(kZoomDriftSlow, kZoomTab),
    Row(kZoomDriftMedium, kZoomTab),
    Row(kZoomDriftFast, kZoomTab),
    Line(6137, kZoomTab),
    Row(kZoomSpeed, kZoomTab),
    Line(6164, kZoomTab),
    Row(kZoomDriftSmooth, kZoomTab),

    Group(kFocusTab, kPanelRoot, "Focus", 1, kClosed),
    Group(kFocusRow, kFocusTab, "Focus Object", 2, kOpen),
    Row(kFocusObject, kFocusRow),
    Row(kCreateFocus, kFocusRow),
    Heading(6062, kFocusTab, "Input Smoothing & Overshoot"),
    Row(kFocusSmoothing, kFocusTab),
    Row(kFocusOvershoot, kFocusTab),
    Row(kFocusOvershootFade, kFocusTab),
    Heading(6127, kFocusTab, "Focus Drift"),
    Row(kFocusDriftSlow, kFocusTab),
    Row(kFocusDriftMedium, kFocusTab),
    Row(kFocusDriftFast, kFocusTab),
    Line(6131, kFocusTab),
    Row(kFocusSpeed, kFocusTab),
    Line(6166, kFocusTab),
    Row(kFocusDriftSmooth, kFocusTab),

    Group(kAdvancedTab, kPanelRoot, "Advanced", 1, kClosed),
    Row(kSeed, kAdvancedTab),
    Line(6143, kAdvancedTab),
    Row(kTimeOffset, kAdvancedTab),
    Line(6169, kAdvancedTab),
    Row(kShakeSpeed, kAdvancedTab),
    Row(kSpeedVariation, kAdvancedTab),
    Group(kRatios, kAdvancedTab, "Global Shake & Jolt Ratios", 1, kClosed),
    Row(kRatioX, kRatios),
    Row(kRatioY, kRatios),
    Row(kRatioZ, kRatios),
    Line(6079, kRatios),
    Row(kRatioH, kRatios),
    Row(kRatioP, kRatios),
    Row(kRatioB, kRatios),
    Line(6190, kAdvancedTab),
    Heading(6195, kAdvancedTab, "Export Preset"),
    Group(kExportRow, kAdvancedTab, NULL, 2, kOpen, FALSE),
    Row(kExportCurrent, kExportRow),
    Row(kExportAll, kExportRow),
    Heading(6183, kAdvancedTab, "Preset Path"),
    Group(kPathRow, kAdvancedTab, NULL, 2, kOpen, FALSE),
    Row(kChoosePresetFolder, kPathRow),
    Row(kResetPresetFolder, kPathRow),
    Row(kUserPresetFolder, kAdvancedTab),
};

}  // namespace

const LayoutElement *PanelLayout(LONG *count) {
    *count = (LONG)(sizeof(kLayout) / sizeof(kLayout[0]));
    return kLayout;
}
