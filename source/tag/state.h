// Keys of the tag's container that no panel shows: what the motion remembers from one frame to the next, saved and
// copied with the tag.
#pragma once

#include <cstdint>

// Bookkeeping of the evaluation
constexpr std::int32_t kBaked = 1005;              // bool: the motion is in keyframes, nothing is evaluated
constexpr std::int32_t kRecheckPreset = 5018;      // bool: check the remembered preset at the next evaluation
constexpr std::int32_t kFirstRun = 5019;           // bool: the tag has not been set up yet
constexpr std::int32_t kCatchingUp = 5021;         // bool: the frame was jumped to
constexpr std::int32_t kLastFrame = 10044;         // real: the last evaluated frame
constexpr std::int32_t kStartFrame = 1040796;      // real: the document's first frame
constexpr std::int32_t kPreviousRotation = 87651;  // vector: the last output's angles (HPB, radians)
constexpr std::int32_t kWorkContainer = 20004;

// Clocks (reals, in frames at speed 1)
constexpr std::int32_t kClockStep = 20000;  // how far the clocks go at the next frame
constexpr std::int32_t kShakeClock = 10051;
constexpr std::int32_t kFocusClock = 10052;
constexpr std::int32_t kZoomDriftClock = 10053;
constexpr std::int32_t kJoltClock = 10054;
constexpr std::int32_t kAuxiliaryClock = 10055;
constexpr std::int32_t kZoomClock = 10056;

// Filters: what is carried over, and the value
constexpr std::int32_t kPositionCarry = 5000, kPositionValue = 5001;            // vectors
constexpr std::int32_t kRotationCarry = 5002, kRotationValue = 5003;            // vectors
constexpr std::int32_t kPositionShakeCarry = 5004, kPositionShakeValue = 5005;  // vectors
constexpr std::int32_t kRotationShakeCarry = 5006, kRotationShakeValue = 5007;  // vectors
constexpr std::int32_t kZoomCarry = 5008, kZoomValue = 5009;
constexpr std::int32_t kFocusCarry = 5013, kFocusValue = 5014;
constexpr std::int32_t kFocusDriftCarry = 5015, kFocusDriftValue = 5016;
constexpr std::int32_t kZoomDriftCarry = 11004, kZoomDriftValue = 10059;

// Overshoot: one block of entries after each base
constexpr std::int32_t kOvershootRotation = 30002;  // angles
constexpr std::int32_t kOvershootPosition = 30022;
constexpr std::int32_t kOvershootTarget = 30042;  // angles
constexpr std::int32_t kOvershootZoom = 30062;
constexpr std::int32_t kOvershootSpare = 30082;  // of no layer; reset with the others
constexpr std::int32_t kOvershootFocus = 30102;
constexpr std::int32_t kOvershootOutput = 1, kOvershootInput = 2;  // vectors
constexpr std::int32_t kOvershootDistance = 3;                     // the input's last step, 0 for a small one
constexpr std::int32_t kOvershootRamp = 4;
constexpr std::int32_t kOvershootStiffnessFade = 5, kOvershootDampingFade = 6;
constexpr std::int32_t kOvershootMoving = 7;            // whole number, 1: the input is on its way
constexpr std::int32_t kOvershootVelocity = 8;          // vector
constexpr std::int32_t kOvershootPreviousDistance = 9;  // the input's last step
constexpr std::int32_t kOvershootRampIncrement = 10;

// Jolts
constexpr std::int32_t kJoltPositionTarget = 10045, kJoltRotationTarget = 10046;
constexpr std::int32_t kJoltPositionEnvelope = 10047, kJoltRotationEnvelope = 10048;
constexpr std::int32_t kJoltPositionCarry = 10026, kJoltRotationCarry = 10025;
constexpr std::int32_t kJoltPositionPrevious = 10043, kJoltRotationPrevious = 10042;
constexpr std::int32_t kJoltPositionFilterCarry = 20003, kJoltPositionFilterValue = 11001;  // vectors
constexpr std::int32_t kJoltRotationFilterCarry = 20002, kJoltRotationFilterValue = 11000;  // vectors
constexpr std::int32_t kJoltPositionOffset = 10061, kJoltRotationOffset = 10060;            // vectors

// Bakes
constexpr std::int32_t kPreBakeRecord = 10032;  // container

// Presets
constexpr std::int32_t kLibraryCategories = 3000, kLibraryIndices = 3001, kLibraryPresets = 3002;  // containers
constexpr std::int32_t kLibraryCount = 1040441;
constexpr std::int32_t kLuckyPosition = 3004;  // in the shuffled presets
constexpr std::int32_t kLuckyOrder = 3007;     // container: key n = which preset stands there
constexpr std::int32_t kRememberedCategory = 3005, kRememberedPreset = 3006;
constexpr std::int32_t kBuiltInPresetFolder = 5026;  // file name
constexpr std::int32_t kSettingsChanged = 20001;     // bool: the settings no longer match the preset
constexpr std::int32_t kAppliedPresetName = 30000;
constexpr std::int32_t kAppliedPresetValue = 30001;  // real
constexpr std::int32_t kReferencePresets = 10049;    // container: key k = preset k of the list it was chosen from
constexpr std::int32_t kReferencePreset = 10050;     // container: the applied preset
constexpr std::int32_t kAppliedPresetPath = 1040574;
constexpr std::int32_t kAppliedPresetPosition = 1040575;

// In the host's settings of the tag's plug-in id
constexpr std::int32_t kUserPresetFolderSetting = 5037;  // file name

// No frame has this number: whoever resets the motion writes it, so that every frame differs from it.
constexpr double kNoFrame = -1e9;
