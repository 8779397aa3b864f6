// The camera tag: turns an input camera into a hand-held one on the camera that carries the tag.
//
// Everything that must be saved or copied with the tag lives in its container; the members are working data that can
// be rebuilt at any moment.
#pragma once

#include <memory>
#include <vector>

#include "c4d.h"
#include "customgui_splinecontrol.h"
#include "engine/runup.h"
#include "presets/presetpath.h"
#include "tag/motionstate.h"
#include "tag/operations.h"
#include "tag/triggers.h"

class UndoStep;
struct PresetLibrary;
struct SceneInput;

class TremoluxCamClass : public TagData {
    INSTANCEOF(TremoluxCamClass, TagData)

  public:
    static NodeData *Alloc() { return gNew TremoluxCamClass; }
    TremoluxCamClass();
    virtual ~TremoluxCamClass();

    // ---- Callbacks of the host
    virtual Bool Init(GeListNode *node);
    virtual Bool Message(GeListNode *node, LONG type, void *data);
    virtual Bool GetDDescription(GeListNode *node, Description *description, DESCFLAGS_DESC &flags);
    virtual Bool GetDEnabling(GeListNode *node, const DescID &id, const GeData &value, DESCFLAGS_ENABLE flags,
                              const BaseContainer *settings);
    virtual EXECUTIONRESULT Execute(BaseTag *tag, BaseDocument *doc, BaseObject *op, BaseThread *bt, LONG priority,
                                    EXECUTIONFLAGS flags);

    // ---- The tag's own operations. Shake of one axis in scene units, of one angle in radians:
    //   seed, time_offset   the noise's place and a shift of the clock (frames at speed 1)
    //   slow, medium, fast  weights of the layers (fractions; radians for angles)
    //   ratio, intensity    factors of the axis and of all axes
    //   scale               of the scene, 1000 scene units at 1
    //   speed, clock        the layers' rates go with both, so speed acts as its square
    // Pure; finite in, finite out.
    virtual Real ShakePositionX(Real seed, Real time_offset, Real slow, Real medium, Real fast, Real ratio, LONG flag,
                                Real intensity, Real scale, Real speed, Real clock);
    virtual Real ShakePositionY(Real seed, Real time_offset, Real slow, Real medium, Real fast, Real ratio, LONG flag,
                                Real intensity, Real scale, Real speed, Real clock);
    virtual Real ShakePositionZ(Real seed, Real time_offset, Real slow, Real medium, Real fast, Real ratio, LONG flag,
                                Real intensity, Real scale, Real speed, Real clock);
    // Keys for every frame of the document, from what curves say; the scene is not evaluated. `data` is the bake's own.
    virtual void QuickBake(BaseContainer data, BaseObject *camera, BaseTag *tag);
    virtual Real ShakeRotationH(Real seed, LONG time_offset, Real slow, Real medium, Real fast, Real ratio,
                                Real intensity, Real speed, Real clock);
    virtual Real ShakeRotationP(Real seed, LONG time_offset, Real slow, Real medium, Real fast, Real ratio,
                                Real intensity, Real speed, Real clock);
    virtual Real ShakeRotationB(Real seed, LONG time_offset, Real slow, Real medium, Real fast, Real ratio,
                                Real intensity, Real speed, Real clock);

    // Drift of the focal length as a factor of it. `time` and `clock` add up to the noise's time, `multiplier` and
    // `rate` scale it. 0 when the host has no memory for the ease curve.
    virtual Real ZoomDrift(LONG time, Real seed, Real rate, Real slow, Real medium, Real fast, Real multiplier,
                           Real clock);
    // Drift of the focus distance, in the unit of `distance`, to which it is proportional. Reads the focus clock.
    virtual Real FocusDrift(BaseContainer *data, LONG time_offset, Real slow, Real medium, Real fast, LONG seed,
                            Real rate, Real speed, Real distance);

    // Computes and writes one frame of motion; leaves the camera as it was when anything is missing, or when the
    // frame is the one that it shows already.
    virtual void EvaluateFrame(BaseContainer *data, BaseObject *camera);

    // Maps x from one range to another, optionally along a curve. `curve_mode` 1: the curve also shapes what lies
    // past the input range, wrapped; 0: whole input ranges add whole output ranges. Clamps act on a flag of 1.
    virtual Real RemapValue(Real x, Real input_min, Real input_max, Real output_min, Real output_max, SplineData *curve,
                            LONG curve_mode, LONG clamp_low, LONG clamp_high);

    // One step of the smoothing filter: the value moves towards the goal, the carry keeps what was left over.
    //   a, b  share of the error kept for later, [0, 0.95]; damping of the carry, [0, 1], 1 = no swing
    // Source: exponential smoothing (Brown, 1956) with the left-over error carried into the next step.
    virtual Vector SmoothVectorValue(Real a, Real b, const Vector &carry, const Vector &value, const Vector &goal);
    virtual Vector SmoothVectorCarry(Real a, Real b, const Vector &carry, const Vector &value, const Vector &goal);
    virtual Real SmoothRealCarry(Real a, Real b, Real carry, Real value, Real goal);
    virtual Real SmoothRealValue(Real a, Real b, Real carry, Real value, Real goal);

    // Writes the fixed reset value of one parameter; other ids are left alone. Always TRUE.
    virtual Bool ResetParameter(LONG id, BaseContainer *data);

    // From a smoothing amount, held to [0, 1], to the filter's coefficients: a in [0, 0.95], b in [0.15, 1] (input) or
    // [0, 0.25] (shake and drift). Without memory for a curve the filter lets its goal through: a = 0, b = 1.
    virtual void InputSmoothing(Real amount, Real *a, Real *b);      // position, zoom, focus
    virtual void InputSmoothingTwin(Real amount, Real *a, Real *b);  // rotation, jolts
    virtual void ShakeSmoothing(Real amount, Real *a, Real *b);
    // A spring that follows `input` and swings past it when it slows down: the output. The channel's memory stands in
    // the container behind `base`.
    //   amount, fade  [0, 1]: looseness, 0 = no spring; how fast the swing dies out
    //   mode          0: plain values, 1: angles (HPB, radians), continued without jumps over whole turns
    virtual Vector Overshoot(const Vector &input, Real amount, Real fade, BaseContainer *data, LONG base, LONG mode);

    // Replays the clocks from the start of playback up to the frame before `frame`, without evaluating any motion.
    virtual void SimulateToFrame(Real frame, BaseContainer *data, BaseObject *camera);
    // Puts the motion at rest on the input camera: clocks and jolts at 0, filters and overshoot seeded.
    virtual void ResetSimulation(BaseContainer *data, BaseObject *camera, BaseDocument *doc);

    // The layers. Angles are HPB in radians, positions and distances global scene units, the focal length millimetres,
    // smoothing, overshoot and fade amounts [0, 1], offsets, clocks and frames in frames. A layer whose result is not
    // finite adds nothing on that frame and starts again from rest.

    // The focus distance: towards `object`, at `object_position`, from the new camera position, or as the input's where
    // there is none; drift added.
    virtual Real EvaluateFocus(BaseContainer *data, Real input_distance, BaseObject *object, Real smooth,
                               Real overshoot, Real fade, const Vector &object_position, const Vector &camera_position,
                               Real drift_smooth, LONG use_drift, Real time_offset, Real slow, Real medium, Real fast,
                               LONG seed, Real rate, Real speed, Real frame);
    // Leaves two offsets in the container, for the position and for the rotation.
    //   interval      whole frames between two knocks, below 1 = none
    //   clock         the jolt clock, cut to a whole number
    //   falloff_step  what a knock loses each frame
    //   use_list      1: the listed frames hit too
    virtual void EvaluateJolts(BaseContainer *data, Real time_scale, Real seed, LONG interval, Real frames_per_second,
                               LONG clock, Real time_offset, Real position_intensity, Real rotation_intensity,
                               Real smooth, LONG flag, Real scale, Real shake_position_intensity, Real speed,
                               Real ratio_x, Real ratio_y, Real ratio_z, Real ratio_h, Real ratio_p, Real ratio_b,
                               Real shake_rotation_intensity, Real falloff_step, LONG frame, LONG use_list);
    // The input's position, smoothed, with its swing and the shake.
    virtual Vector EvaluatePosition(BaseContainer *data, const Vector &input, Real smooth, Real time_offset, Real slow,
                                    Real medium, Real fast, Real frame, Real overshoot, Real fade, Real shake_smooth,
                                    Real seed, LONG use_x, LONG use_y, LONG use_z, Real intensity, Real scale,
                                    Real ratio_x, Real ratio_y, Real ratio_z, Real speed, Real clock);
    // The focal length, smoothed, with its swing and drift. The zoom clock and what follows it belong to no formula.
    virtual Real EvaluateZoom(BaseContainer *data, Real time_offset, Real seed, LONG use_drift, Real rate, Real slow,
                              Real medium, Real fast, Real speed, Real drift_smooth, Real smooth, Real overshoot,
                              Real fade, Real focal_length, Real frame, Real drift_clock, Real zoom_clock,
                              LONG hidden_frames, Real hidden_1, Real hidden_2, Real hidden_3, Real hidden_4);
    // The input's angles, or those of the look from `position` to `target` when use_target is 1: smoothed, with their
    // swing and the shake.
    virtual Vector EvaluateRotation(BaseContainer *data, LONG use_target, const Vector &target, const Vector &position,
                                    Real target_smooth, Real time_offset, Real target_overshoot, Real target_fade,
                                    const Vector &input, Real smooth, Real overshoot, Real fade, Real seed, LONG use_h,
                                    LONG use_p, LONG use_b, Real intensity, Real scale, Real ratio_h, Real ratio_p,
                                    Real ratio_b, Real speed, Real clock, Real shake_smooth, Real slow, Real medium,
                                    Real fast, Real frame);

    // ---- Presets
    // Every preset there is, into the container.
    virtual void LoadPresetLibrary(BaseContainer *data);
    // The presets of the chosen category, into the list that the "Preset" cycle shows.
    virtual void CollectCategoryPresets(BaseContainer *data);
    // The built-in categories, into the list that the "Category" cycle shows.
    virtual void ScanPresetCategories(const String &category, BaseContainer *data);

    // Read a text of frame numbers, separated by commas, into the list of frames on which a jolt fires. An empty text
    // is replaced by the placeholder.
    virtual void ParseCustomTrigger(BaseContainer *data);
    virtual void ParseCustomTriggerTwin(BaseContainer *data);

    // Copies a preset's values into the tag, as chosen under the "Preset" cycle's present value; what the preset lacks
    // is put back to its reset value or default.
    virtual void ApplyPreset(BaseContainer *data, BaseContainer preset);
    // Called in the initialisation, before missing defaults are written and presets are read.
    virtual void AfterInit();
    // Takes over what lies in the import folder.
    virtual void ImportPresets();

  private:
    // ---- Init
    Bool Prepare(BaseTag *tag);

    // ---- Execute
    void ShowFrame(BaseTag *tag, BaseContainer *data, BaseObject *camera, BaseDocument *doc);
    void SetUp(BaseTag *tag, BaseContainer *data, BaseObject *camera, BaseDocument *doc);
    void ApplyFirstPreset(BaseContainer *data);
    void Restart(BaseContainer *data, BaseObject *camera, BaseObject *input, BaseDocument *doc);
    void Jump(Real frame, BaseContainer *data, BaseObject *camera, BaseDocument *doc);

    // ---- The motion, between the container and the engine
    friend class TagOperations;
    // What the container says: read again where it has changed.
    MotionState &ReadMotion(BaseContainer *data);
    void StoreClocks(BaseContainer *data);
    // One step of the whole motion, which goes on in the container. FALSE, and no motion, when the host has no memory
    // or a result is not finite.
    Bool ComputeFrame(const SceneInput &scene, BaseContainer *data, engine::FrameMotion *motion);
    // Everything that the motion remembers at rest on the frame that it starts with, or on nothing.
    void RestMotion(const engine::FrameInput *start, BaseContainer *data);

    // ---- Presets
    // All preset parameters: the preset's values, or reset values and defaults where it has none to be trusted.
    void CopyPreset(const BaseContainer &preset, BaseContainer *data);
    void CopyPresetParameter(const BaseContainer &preset, LONG id, BaseContainer *data);
    // Collected for the category that the container names.
    const std::vector<PresetPath> &PresetList(BaseContainer *data);
    // In the order of that category's list.
    std::vector<PresetPath> PresetsOf(LONG category) const;
    // The one under the "Preset" cycle's value; NULL for the fixed entries and past the end of the list.
    const PresetPath *ListedPreset(BaseContainer *data);
    // The same where it is the one that was applied, or NULL: a value may be left over from another list.
    const PresetPath *ChosenPreset(BaseContainer *data);
    void ChoosePreset(BaseContainer *data);
    void ChooseCategory(BaseContainer *data);
    // Marks preset `position` of the list as the one that the settings are.
    void RememberPreset(LONG position, const BaseContainer &preset, BaseContainer *data);
    void SelectNoPreset(BaseContainer *data);
    // Library, categories and list from the files; the remembered preset stays selected where it is still listed.
    void ReloadPresets(BaseContainer *data);
    // Selects the remembered preset in the list as the files are now, where it is what was applied, or "Custom".
    void FindRememberedPreset(BaseContainer *data);
    void CorrectSelection(BaseContainer *data);
    void CheckRememberedPreset(BaseContainer *data);
    void NoticeEdit(LONG id, BaseContainer *data);
    BaseContainer CategoryEntries() const;
    BaseContainer PresetEntries(BaseContainer *data);

    // ---- The user's presets
    void SaveUserPreset(BaseContainer *data);
    void DeleteUserPreset(BaseContainer *data);
    void SetUserPresetFolder(BaseContainer *data);
    void ResetUserPresetFolder(BaseContainer *data);
    void TypeUserPresetFolder(BaseContainer *data);
    void UseUserPresetFolder(const Filename &folder, BaseContainer *data);
    void ShowUserPresetFolder(BaseContainer *data);
    void ExportCurrentPreset(BaseContainer *data);
    void ExportAllPresets();

    // ---- Buttons
    template <LONG count>
    void ZeroParameters(const LONG (&ids)[count], BaseContainer *data);
    // Where the present one is a whole number.
    void RandomizeSeed(BaseContainer *data);
    Bool HasLuckyPresets(const BaseContainer &data);
    // One of the shaking presets, of which there must be some.
    void ApplyLuckyPreset(BaseContainer *data);
    void CreateLinkedNull(const CHAR *name, LONG link, UndoStep *step, BaseDocument *doc, BaseContainer *data);
    void SetOverallScale(LONG button, BaseContainer *data);

    // ---- The input camera
    // The tag's camera begins as a copy of a new input camera.
    void SetUpInputCamera(BaseTag *tag, BaseContainer *data);
    void TakeDrop(DragAndDrop *drag, BaseTag *tag, BaseContainer *data);
    // The view looks through the input camera and the tag's in turn.
    void ToggleViewCamera(BaseTag *tag, BaseContainer *data);

    // ---- Bakes
    // Keys for every frame of the document, from what the camera does while the scene is played.
    void BruteForceBake(BaseTag *tag, BaseContainer *data);
    // Both bakes begin alike: the old keys are in the record, and the scene and the motion stand at the first frame.
    // FALSE when the input has gone on the way.
    Bool BeginBake(BaseTag *tag, BaseContainer *data);
    // The quick bake as the button starts it.
    void StartQuickBake(BaseTag *tag, BaseContainer *data);
    // Takes all keys of the camera away and puts those from before the bake back.
    void UnBake(BaseTag *tag, BaseContainer *data);

    // ---- Description
    Bool DescribePanel(BaseTag *tag, Description *description, DESCFLAGS_DESC *flags);

    // ---- Messages
    Bool Answer(BaseTag *tag, LONG type, void *message);
    Bool ShowIcon(GetCustomIconData *icon, BaseTag *tag, const BaseContainer &data);
    void PressButton(LONG id, BaseTag *tag, BaseContainer *data);
    void ChangeSettings(LONG button, BaseTag *tag, BaseContainer *data);
    Bool RunOperation(LONG button, BaseTag *tag, BaseContainer *data);
    void DocumentChanged(LONG type, BaseContainer *data);
    void ParameterChanged(LONG id, BaseTag *tag, BaseContainer *data);

    void ParseTrigger(BaseContainer *data, LONG parameter, Trigger *trigger);
    // Before each frame: the lists follow texts that nobody told of, as after an undo.
    void RefreshTriggers(BaseContainer *data);

    BaseBitmap *icon_;                // what the host was shown last
    const BaseObject *set_up_input_;  // by the first of two messages about a link; compared alone
    Random random_;
    MotionState motion_;
    TagOperations operations_;
    Bool is_alone_;  // nobody else changes the container that is worked on meanwhile, whoever's it is
    engine::RunUpMemory run_up_;
    Trigger trigger_, twin_trigger_;
    LONG trigger_reading_;                               // of the container, when the lists were compared with it
    std::vector<String> sorted_folders_, sorted_names_;  // the built-in categories: folder and display name
    std::vector<PresetPath> presets_;                    // of the chosen category
    Bool is_collected_;                                  // whether presets_ was read,
    LONG collected_category_;                            // and for which category
    std::shared_ptr<const PresetLibrary> library_;       // as it was read last
    std::vector<String> lucky_order_;                    // of the first round, where none has begun
};
