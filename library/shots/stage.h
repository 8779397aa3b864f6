// The scene that a move is played in: an input camera that follows it, and a second camera with the module's tag.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "generated/module_ids.h"
#include "host/scene/document.h"
#include "host/scene/tag.h"
#include "library/moves/camera_move.h"

namespace tremolux {

class Stage {
  public:
    // In the running host; its document begins with the move's first frame. The tag has had its first evaluation,
    // which only sets it up and evaluates nothing: parameters that are set from now on hold. Throws a Failure when
    // the module has no such tag.
    explicit Stage(const CameraMove &move);

    // A null object with these positions, linked to the tag as what the camera turns to or focuses on; a single sample
    // holds for all time. Turning to a target is switched on with it; a parameter that is set later may switch it off.
    host::Object *AddTarget(const CameraMove &points);
    host::Object *AddFocusObject(const CameraMove &points);

    // A second camera behind the first, with a tag of its own whose input the first is; Output() is its motion from now on. Its
    // settings are those of a new tag. Throws a Failure.
    host::Tag *AddSecondCamera();
    void RemoveSecondCamera();  // where there is one
    host::Tag *SecondTag() const { return second_tag_; }  // null: there is none

    // Evaluates one frame of playback. Frames are played one after the other, from the document's first, which may be gone
    // back to.
    void PlayFrame(std::int64_t frame);
    // The keys of a long move are there a part at a time, the part that is played. What looks at others needs them all.
    void KeyWholeMove();
    // Turns the motion into keys, which the frames then follow. Throws a Failure when the module bakes nothing.
    void BakeQuickly() { Bake(ids::kQuickBake); }
    void BakeByBruteForce() { Bake(ids::kBruteForceBake); }
    host::Tag &CameraTag() const { return *tag_; }
    host::Document *Scene() const { return document_.get(); }
    const host::Document &Document() const { return *document_; }
    // The move's own, where the document counts whole frames at a whole rate.
    FrameRate Rate() const { return rate_; }
    CameraSample Input() const;
    bool TurnsToTarget() const;
    // Null when there is none, or it was taken back.
    const host::Object *Target() const { return InScene(target_); }
    const host::Object *FocusObject() const { return InScene(focus_object_); }
    // As evaluated; its angles are those closest to the frame before, and on the first frame to the input's.
    CameraSample Output() const { return output_sample_; }

  private:
    void Bake(std::int32_t button);
    void KeyPartWith(std::int64_t frame);
    struct KillDocument {
        void operator()(host::Document *document) const;
    };
    void Evaluate(std::int64_t frame);
    const host::Object *InScene(const std::shared_ptr<host::NodeAnchor> &object) const;
    host::Object *AddAimPoint(const char *name, std::int32_t link, const CameraMove &points);
    std::unique_ptr<host::Document, KillDocument> document_;  // the running host's; the cameras and the tag are in it
    host::Object *input_, *output_;
    host::Object *shown_;  // whose motion Output() is
    std::shared_ptr<host::NodeAnchor> target_, focus_object_;  // an undo may take them away
    host::Tag *tag_ = nullptr, *second_tag_ = nullptr;
    std::int64_t first_frame_;
    std::optional<CameraMove> long_move_;  // whose keys are there from keyed_from_ to keyed_to_
    std::int64_t keyed_from_ = 0, keyed_to_ = 0;
    FrameRate rate_;
    CameraSample output_sample_;
};

}  // namespace tremolux
