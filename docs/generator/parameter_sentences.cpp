#include "docs/generator/parameter_sentences.h"

#include "tag/parameters.h"

namespace {

constexpr ParameterSentence kSentences[] = {
    {kInputCamera, "The camera whose move is made hand-held; without one the tag does nothing."},
    {kHelp, "Opens the help page in the browser."},
    {kCategory, "Chooses which presets the list beside it offers; the motion stays as it is."},
    {kPreset, "Sets all parameters of the motion to those of a preset; \"Custom\" means that they match none."},
    {kSavePreset, "Saves the present settings as a preset of the user's own."},
    {kDeletePreset, "Deletes the chosen preset of the user's own."},

    {kPositionIntensity, "Multiplies the shake and the jolts of the position."},
    {kRotationIntensity, "Multiplies the shake and the jolts of the rotation."},
    {kOverallScale, "Fits the shake and the jolts of the position to the size of the scene."},
    {kScaleCoffeeCup, "Sets Overall Scale for a scene the size of a coffee cup: 20 %."},
    {kScaleHuman, "Sets Overall Scale for a scene the size of a person: 100 %."},
    {kScaleCar, "Sets Overall Scale for a scene the size of a car: 130 %."},
    {kScaleHouse, "Sets Overall Scale for a scene the size of a house: 500 %."},
    {kScaleSkyscraper, "Sets Overall Scale for a scene the size of a skyscraper: 2000 %."},

    {kUsePositionX, "Lets the shake move the camera along X."},
    {kUsePositionY, "Lets the shake move the camera along Y."},
    {kUsePositionZ, "Lets the shake move the camera along Z."},
    {kUseRotationH, "Lets the shake turn the heading."},
    {kUseRotationP, "Lets the shake turn the pitch."},
    {kUseRotationB, "Lets the shake turn the bank."},
    {kUseZoom, "Lets the focal length drift."},
    {kUseFocus, "Lets the focus distance drift."},
    {kUseTarget, "Turns the camera to the target object; off, it keeps the input camera's angles."},
    {kUseJolt, "Lets jolts push the camera."},

    {kInitialPositionSmooth, "How far the position lags behind the input camera's; at 0 % it follows at once."},
    {kInitialPositionOvershoot, "How far the position swings past where the input camera stops."},
    {kPositionOvershootFade, "How soon the swing of the position dies out."},
    {kInitialRotationSmooth,
     "How far the angles lag behind the input camera's; at 0 % they follow at once. Target Smooth takes its place "
     "while the camera turns to a target."},
    {kInitialRotationOvershoot, "How far the angles swing past where the input camera's stop."},
    {kRotationOvershootFade, "How soon the swing of the angles dies out."},

    {kPositionSlow, "Sway of the position over about 200 frames, up to 198 scene units at 100 %."},
    {kPositionMedium, "Wobble of the position over about 29 frames, up to 22.5 scene units at 100 %."},
    {kPositionFast, "Tremor of the position over about 2 frames, up to 1.9 scene units at 100 %."},
    {kRotationSlow, "Sway of the angles over about 100 frames, up to a quarter of this angle."},
    {kRotationMedium, "Wobble of the angles over about 10 frames, up to a twentieth of this angle."},
    {kRotationFast, "Tremor of the angles over about 1.4 frames, up to 1/320 of this angle."},
    {kShakeSmooth, "Rounds the shake off: the higher, the less of its quick parts comes through."},
    {kZeroPosition, "Sets the three position amounts of the shake to 0."},
    {kZeroRotation, "Sets the three rotation amounts of the shake to 0."},
    {kZeroInitials,
     "Sets smoothing and overshoot of the position to 0, and those of the target where one is linked, else those of "
     "the rotation."},
    {kRandomizeSeeds, "Picks another seed: the same kind of shake, moving differently."},
    {kFeelingLucky,
     "Applies another of all presets that shake, with another seed, and leaves the category for \"User\"; each comes "
     "once before any repeats."},

    {kJoltPositionIntensity, "How far a jolt pushes the position: up to 150 scene units at 100 %."},
    {kJoltRotationIntensity, "How far a jolt turns the camera: up to one radian at 100 %."},
    {kJoltInterval, "One jolt hits in every interval, at a frame that the seed picks; at 0 none does."},
    {kCustomTrigger, "Frames on which a jolt hits, separated by commas."},
    {kJoltFalloff,
     "What a jolt's intensity loses at each frame: a tenth of this amount, so that 10 % ends a jolt of 5 % after about "
     "five frames."},
    {kJoltSmooth, "Softens a jolt: the higher, the slower it comes and goes."},
    {kQuickBake, "Writes the motion as keys, computed from keys alone; it does not see a zoom."},
    {kBruteForceBake, "Writes the motion as keys, playing the whole scene frame by frame."},
    {kUnBake, "Takes the baked keys away and lets the tag move the camera again."},

    {kTargetObject, "The object that the camera turns to."},
    {kCreateTarget, "Makes a null object and links it as the target."},
    {kTargetSmooth, "How far the look lags behind the target; at 0 % it follows at once."},
    {kTargetOvershoot, "How far the look swings past where the target stops."},
    {kTargetOvershootFade, "How soon the swing of the look dies out."},

    {kZoomSmooth, "How far the focal length lags behind the input camera's; at 0 % it follows at once."},
    {kZoomOvershoot, "How far the focal length swings past where the zoom stops."},
    {kZoomOvershootFade, "How soon the swing of the focal length dies out."},
    {kZoomDriftSlow, "Drift of the focal length over about 200 frames, up to its whole length at 100 %."},
    {kZoomDriftMedium, "Drift of the focal length over about 29 frames, up to 60 % of it at 100 %."},
    {kZoomDriftFast, "Drift of the focal length over about 4 frames, up to 15 % of it at 100 %."},
    {kZoomSpeed, "Speed of the zoom drift; like Shake Speed it acts squared."},
    {kZoomDriftSmooth, "Rounds the zoom drift off."},

    {kFocusObject, "The object whose distance the focus follows, in place of the input camera's focus distance."},
    {kCreateFocus, "Makes a null object and links it as the focus object."},
    {kFocusSmoothing, "How far the focus lags behind its goal; at 0 % it follows at once."},
    {kFocusOvershoot, "How far the focus swings past where its goal stops."},
    {kFocusOvershootFade, "How soon the swing of the focus dies out."},
    {kFocusDriftSlow, "Drift of the focus over about 200 frames, up to 1.5 times its distance for each 1."},
    {kFocusDriftMedium, "Drift of the focus over about 29 frames, up to 40 % of its distance for each 1."},
    {kFocusDriftFast, "Drift of the focus over about 4 frames, up to 10 % of its distance for each 1."},
    {kFocusSpeed, "Speed of the focus drift; like Shake Speed it acts squared."},
    {kFocusDriftSmooth, "Rounds the focus drift off."},

    {kSeed, "Picks the shake: each seed moves the camera differently, and the same seed always in the same way."},
    {kTimeOffset, "Starts the shake this many frames further on."},
    {kShakeSpeed,
     "Speed of shake, jolts and drifts. It drives their clock and their rate, so it acts squared: 200 % is four times "
     "as fast."},
    {kSpeedVariation, "Lets the speed rise and fall over time by up to this share of itself."},
    {kRatioX, "Share of the position's shake and jolts that goes along X."},
    {kRatioY, "Share of the position's shake and jolts that goes along Y."},
    {kRatioZ, "Share of the position's shake and jolts that goes along Z."},
    {kRatioH, "Share of the rotation's shake and jolts that goes into the heading."},
    {kRatioP, "Share of the rotation's shake and jolts that goes into the pitch."},
    {kRatioB, "Share of the rotation's shake and jolts that goes into the bank."},
    {kExportCurrent, "Copies the chosen preset to the export folder, to be passed on."},
    {kExportAll, "Copies all presets of the user's own to the export folder, to be passed on."},
    {kChoosePresetFolder, "Chooses the folder of the user's own presets."},
    {kResetPresetFolder, "Goes back to the usual folder of the user's own presets."},
    {kUserPresetFolder, "The folder of the user's own presets."},
    {kStoredOnlyA, "Kept with presets; moves nothing."},
    {kStoredOnlyB, "Kept with presets; moves nothing."},
    {kCustomTriggerTwin, "A second list of frames, read like Custom Trigger; no jolt listens to it."},
    {kZoomHiddenTime, "Handed to the zoom, which does not use it."},
    {kZoomHidden1, "Handed to the zoom, which does not use it."},
    {kZoomHidden2, "Handed to the zoom, which does not use it."},
    {kZoomHidden3, "Handed to the zoom, which does not use it."},
    {kZoomHidden4, "Handed to the zoom, which does not use it."},
    {kTargetReserved, "Kept with presets; moves nothing."},
};

}  // namespace

const ParameterSentence *ParameterSentences(LONG *count) {
    *count = (LONG)(sizeof(kSentences) / sizeof(kSentences[0]));
    return kSentences;
}
