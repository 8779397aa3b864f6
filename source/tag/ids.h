// The ids of the tag's parameters, in plain numbers: every room has them from here.
#pragma once

#include <cstdint>

// Of the plug-ins
constexpr std::int32_t kTremoluxCamId = 1039736;
constexpr std::int32_t kTremoluxCommandId = 1039960;

// Entries of the cycles: places in a list, and those with values of their own behind the longest list
constexpr std::int32_t kLongestList = 4000;
constexpr std::int32_t kPresetCustom = 5803, kCategoryAll = 5809, kCategoryUser = 5810;
constexpr std::int32_t kPresetBlankA = 6179, kPresetBlankB = 5805;

constexpr std::int32_t kInputCamera = 6001, kHelp = 6172, kCategory = 5806, kPreset = 10028, kSavePreset = 6003,
                       kDeletePreset = 6005;
constexpr std::int32_t kPositionIntensity = 6020, kRotationIntensity = 6021, kOverallScale = 6022;
constexpr std::int32_t kScaleCoffeeCup = 6184, kScaleHuman = 6185, kScaleCar = 6186, kScaleHouse = 6187,
                       kScaleSkyscraper = 6188;
constexpr std::int32_t kUsePositionX = 6010, kUsePositionY = 6011, kUsePositionZ = 6012, kUseRotationH = 6013,
                       kUseRotationP = 6014, kUseRotationB = 6015, kUseZoom = 6016, kUseFocus = 6017, kUseTarget = 6018,
                       kUseJolt = 6145;
constexpr std::int32_t kInitialPositionSmooth = 6155, kInitialPositionOvershoot = 6153, kPositionOvershootFade = 6154,
                       kInitialRotationSmooth = 6156, kInitialRotationOvershoot = 6034, kRotationOvershootFade = 6035;
constexpr std::int32_t kPositionSlow = 6024, kPositionMedium = 6025, kPositionFast = 6026, kRotationSlow = 6028,
                       kRotationMedium = 6029, kRotationFast = 6030, kShakeSmooth = 6158;
constexpr std::int32_t kZeroPosition = 6042, kZeroRotation = 6043, kZeroInitials = 6174, kRandomizeSeeds = 6004,
                       kFeelingLucky = 6041;
// The twin is a second list that is read and kept, and hits nothing.
constexpr std::int32_t kJoltPositionIntensity = 6037, kJoltRotationIntensity = 6144, kJoltInterval = 6038,
                       kCustomTrigger = 6181, kCustomTriggerTwin = 6209, kJoltFalloff = 6140, kJoltSmooth = 6170;
constexpr std::int32_t kQuickBake = 6046, kBruteForceBake = 6175, kUnBake = 6047;
constexpr std::int32_t kTargetObject = 6068, kCreateTarget = 6069, kTargetSmooth = 6161, kTargetOvershoot = 6071,
                       kTargetOvershootFade = 6072,
                       kTargetReserved = 6210;  // greyed with the target's amounts, shown nowhere
constexpr std::int32_t kZoomSmooth = 6162, kZoomOvershoot = 6053, kZoomOvershootFade = 6054, kZoomDriftSlow = 6134,
                       kZoomDriftMedium = 6135, kZoomDriftFast = 6136, kZoomSpeed = 6138, kZoomDriftSmooth = 6165;
constexpr std::int32_t kFocusObject = 6057, kCreateFocus = 6058, kFocusSmoothing = 6064, kFocusOvershoot = 6063,
                       kFocusOvershootFade = 6163, kFocusDriftSlow = 6128, kFocusDriftMedium = 6129,
                       kFocusDriftFast = 6130, kFocusSpeed = 6132, kFocusDriftSmooth = 6059;
constexpr std::int32_t kSeed = 6142, kTimeOffset = 6151, kShakeSpeed = 6152, kSpeedVariation = 6149;
constexpr std::int32_t kRatioX = 6076, kRatioY = 6077, kRatioZ = 6078, kRatioH = 6100, kRatioP = 6101, kRatioB = 6102;
// Handed to the zoom layer, shown nowhere.
constexpr std::int32_t kZoomHiddenTime = 6203, kZoomHidden1 = 6204, kZoomHidden2 = 6206, kZoomHidden3 = 6207,
                       kZoomHidden4 = 6205;
// Stored in presets and reset with the others, shown nowhere.
constexpr std::int32_t kStoredOnlyA = 6049, kStoredOnlyB = 6119;
constexpr std::int32_t kExportCurrent = 6171, kExportAll = 10033, kChoosePresetFolder = 6176, kResetPresetFolder = 6182,
                       kUserPresetFolder = 6178;

// The ids that a preset or a first set-up may touch; the links, the scale and the folder are the scene's own.
constexpr std::int32_t kFirstPresetId = 6000, kLastPresetId = 6210;
