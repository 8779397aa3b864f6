// Keys of the tag's container that no panel shows: what the motion remembers from one frame to the next, saved and
// copied with the tag.
#pragma once

#include "c4d.h"

// Bookkeeping of the evaluation
constexpr LONG kBaked = 1005;              // bool: the motion is in keyframes, nothing is evaluated
constexpr LONG kRecheckPreset = 5018;      // bool: check the remembered preset at the next evaluation
constexpr LONG kFirstRun = 5019;           // bool: the tag has not been set up yet
constexpr LONG kCatchingUp = 5021;         // bool: the frame was jumped to
constexpr LONG kLastFrame = 10044;         // real: the last evaluated frame
constexpr LONG kStartFrame = 1040796;      // real: the document's first frame
constexpr LONG kPreviousRotation = 87651;  // vector: the last output's angles (HPB, radians)
constexpr LONG kWorkContainer = 20004;

// Clocks (reals, in frames at speed 1)
constexpr LONG kClockStep = 20000;  // how far the clocks go at the next frame
constexpr LONG kShakeClock = 10051;
constexpr LONG kFocusClock = 10052;
constexpr LONG kZoomDriftClock = 10053;
constexpr LONG kJoltClock = 10054;
constexpr LONG kAuxiliaryClock = 10055;
constexpr LONG kZoomClock = 10056;

// Filters: what is carried over, and the value
constexpr LONG kPositionCarry = 5000, kPositionValue = 5001;            // vectors
constexpr LONG kRotationCarry = 5002, kRotationValue = 5003;            // vectors
constexpr LONG kPositionShakeCarry = 5004, kPositionShakeValue = 5005;  // vectors
constexpr LONG kRotationShakeCarry = 5006, kRotationShakeValue = 5007;  // vectors
constexpr LONG kZoomCarry = 5008, kZoomValue = 5009;
constexpr LONG kFocusCarry = 5013, kFocusValue = 5014;
constexpr LONG kFocusDriftCarry = 5015, kFocusDriftValue = 5016;
constexpr LONG kZoomDriftCarry = 11004, kZoomDriftValue = 10059;

// Overshoot: one block of entries after each base
constexpr LONG kOvershootRotation = 30002;  // angles
constexpr LONG kOvershootPosition = 30022;
constexpr LONG kOvershootTarget = 30042;  // angles
constexpr LONG kOvershootZoom = 30062;
constexpr LONG kOvershootSpare = 30082;
constexpr LONG kOvershootFocus = 30102;
constexpr LONG kOvershootOutput = 1, kOvershootInput = 2;  // vectors
constexpr LONG kOvershootDistance = 3;                     // the input's last step, 0 for a small one
constexpr LONG kOvershootRamp = 4;
constexpr LONG kOvershootStiffnessFade = 5, kOvershootDampingFade = 6;
constexpr LONG kOvershootMoving = 7;            // whole number, 1: the input is on its way
constexpr LONG kOvershootVelocity = 8;          // vector
constexpr LONG kOvershootPreviousDistance = 9;  // the input's last step
constexpr LONG kOvershootRampIncrement = 10;

// Jolts
constexpr LONG kJoltPositionTarget = 10045, kJoltRotationTarget = 10046;
constexpr LONG kJoltPositionEnvelope = 10047, kJoltRotationEnvelope = 10048;
constexpr LONG kJoltPositionCarry = 10026, kJoltRotationCarry = 10025;
constexpr LONG kJoltPositionPrevious = 10043, kJoltRotationPrevious = 10042;
constexpr LONG kJoltPositionFilterCarry = 20003, kJoltPositionFilterValue = 11001;  // vectors
constexpr LONG kJoltRotationFilterCarry = 20002, kJoltRotationFilterValue = 11000;  // vectors
constexpr LONG kJoltPositionOffset = 10061, kJoltRotationOffset = 10060;            // vectors

// Bakes
constexpr LONG kPreBakeRecord = 10032;  // container

// Presets
constexpr LONG kLibraryCategories = 3000, kLibraryIndices = 3001, kLibraryPresets = 3002;  // containers
constexpr LONG kLibraryCount = 1040441;
constexpr LONG kLuckyPosition = 3004;  // in the shuffled presets
constexpr LONG kLuckyOrder = 3007;     // container: key n = which preset stands there
constexpr LONG kRememberedCategory = 3005, kRememberedPreset = 3006;
constexpr LONG kBuiltInPresetFolder = 5026;  // file name
constexpr LONG kSettingsChanged = 20001;     // bool: the settings no longer match the preset
constexpr LONG kAppliedPresetName = 30000;
constexpr LONG kAppliedPresetValue = 30001;  // real
constexpr LONG kReferencePresets = 10049;    // container: key k = preset k of the list it was chosen from
constexpr LONG kReferencePreset = 10050;     // container: the applied preset
constexpr LONG kAppliedPresetPath = 1040574;
constexpr LONG kAppliedPresetPosition = 1040575;

// In the host's settings of the tag's plug-in id
constexpr LONG kUserPresetFolderSetting = 5037;  // file name

// No frame has this number: whoever resets the motion writes it, so that every frame differs from it.
constexpr Real kNoFrame = -1e9;
