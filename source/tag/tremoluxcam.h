// The camera tag: turns an input camera into a hand-held one on the camera that carries the tag.
//
// Everything that must be saved or copied with the tag lives in its container; the members are working data that can
// be rebuilt at any moment.
#pragma once

#include <vector>

#include "c4d.h"
#include "engine/clocks.h"

class SplineData;

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
    virtual void QuickBake(BaseContainer *data, BaseObject *camera);
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

    // Replays the clocks from the start of playback up to the frame before `frame`, without evaluating any motion.
    virtual void SimulateToFrame(Real frame, BaseContainer *data, BaseObject *camera);
    // Puts the motion at rest on the input camera: clocks and jolts at 0, filters and overshoot seeded.
    virtual void ResetSimulation(BaseContainer *data, BaseObject *camera, BaseDocument *doc);

    // The layers. Angles are HPB in radians, positions global, the focal length in millimetres.
    virtual Real EvaluateFocus(BaseContainer *data, Real input_distance);
    virtual void EvaluateJolts(BaseContainer *data);
    virtual Vector EvaluatePosition(BaseContainer *data, const Vector &input_position);
    virtual Real EvaluateZoom(BaseContainer *data, Real input_focal_length);
    virtual Vector EvaluateRotation(BaseContainer *data, const Vector &input_angles);

    virtual void LoadPresetLibrary(BaseContainer *data);
    virtual void CollectCategoryPresets(BaseContainer *data);
    virtual void ScanPresetCategories(const String &category, BaseContainer *data);

    // Read a text of frame numbers, separated by commas, into the list of frames on which a jolt fires. An empty text
    // is replaced by the placeholder.
    virtual void ParseCustomTrigger(BaseContainer *data);
    virtual void ParseCustomTriggerTwin(BaseContainer *data);

    virtual void ApplyPreset(BaseContainer *data);
    // Called at the end of the initialisation.
    virtual void AfterInit();
    virtual void ImportPresets();

  private:
    // ---- Execute
    void SetUp(BaseTag *tag, BaseContainer *data, BaseObject *camera, BaseDocument *doc);
    void ApplyFirstPreset(BaseContainer *data);
    void CheckRememberedPreset(BaseContainer *data);
    void Restart(BaseContainer *data, BaseObject *camera, BaseObject *input, BaseDocument *doc);
    void Jump(Real frame, BaseContainer *data, BaseObject *camera, BaseDocument *doc);

    // ---- Clocks
    void AdvanceClocks(Clocks *clocks, const ClockRates &rates, Real frame, SplineData *warp_curve);

    void ParseTrigger(BaseContainer *data, LONG parameter, std::vector<LONG> *frames);
    void RefreshTrigger(BaseContainer *data, LONG parameter, const std::vector<LONG> &frames);

    LONG working_number_;
    Random random_;
    std::vector<LONG> trigger_frames_, twin_trigger_frames_;  // ascending, none negative
};
