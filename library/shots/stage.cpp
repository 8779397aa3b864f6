#include "library/shots/stage.h"

#include <algorithm>

#include "generated/module_ids.h"
#include "host/animation/passes.h"
#include "host/application.h"
#include "host/scene/angles.h"
#include "host/ui/attribute_manager.h"
#include "host/value/descid.h"
#include "library/failure.h"
#include "library/moves/cut.h"
#include "library/shots/keys.h"

namespace tremolux {
namespace {

// A key takes some 300 bytes: those of a long move would take gigabytes, and longer to make than the motion.
constexpr std::size_t kKeyedAtOnce = 10000;

host::Object *InsertObject(host::Document *document, std::int32_t type, const char *name) {
    std::unique_ptr<host::Object> object = host::Object::Create(type);
    object->SetName(name);
    document->InsertObject(object.get());
    return object.release();
}

double Lens(const host::Object &camera, std::int32_t parameter) {
    host::Data value;
    return camera.GetParameter(host::MakeId(parameter), &value) ? value.Real() : 0;
}

host::Tag *MakeCameraTag(host::Object *camera, host::Object *input) {
    host::Tag *tag = camera->MakeTag(ids::kTremoluxCamId);
    if (tag == nullptr) {
        throw Failure(kExitModule, "the module's camera tag cannot be made, expected a tag of type " +
                                       std::to_string(ids::kTremoluxCamId));
    }
    tag->SetParameter(host::MakeId(ids::kInputCamera), host::Data::LinkTo(input));
    return tag;
}

CameraSample SampleOf(const host::Object &camera, const host::Vector &nearby_angles) {
    const host::Matrix matrix = camera.GlobalMatrix();
    CameraSample sample;
    sample.position = matrix.off;
    sample.angles = host::OptimalAngle(nearby_angles, host::MatrixToHpb(matrix));
    sample.focal_length = Lens(camera, host::kCameraFocalLength);
    sample.focus_distance = Lens(camera, host::kCameraFocusDistance);
    return sample;
}

}  // namespace

Stage::Stage(const CameraMove &move)
    : document_(host::Application::Current()->NewDocument()),
      input_(InsertObject(document_.get(), host::kTypeCamera, "Input Camera")),
      output_(InsertObject(document_.get(), host::kTypeCamera, "Camera")),
      shown_(output_),
      first_frame_(move.first_frame),
      rate_(move.rate) {
    document_->SetFps(move.rate.Whole());
    document_->SetRange(move.first_frame, move.LastFrame());
    if (move.samples.size() > kKeyedAtOnce) {
        long_move_ = move;
        KeyPartWith(first_frame_);
    } else {
        KeyCamera(input_, move, move.rate.Whole());
    }
    for (host::Object *camera : {input_, output_})
        camera->SetParameter(host::MakeId(host::kCameraAperture), host::Data(move.aperture_width));
    tag_ = MakeCameraTag(output_, input_);
    Evaluate(first_frame_);
}

host::Tag *Stage::AddSecondCamera() {
    std::unique_ptr<host::Object> camera = host::Object::Create(host::kTypeCamera);
    camera->SetName("Second Camera");
    // An input camera without a name of its own gets one from the module.
    output_->SetName("First Camera");
    // Tags run in the order of the scene: the first camera's before this one's.
    document_->InsertObject(camera.get(), nullptr, output_);
    host::Object *second = camera.release();
    host::Data aperture;
    if (output_->GetParameter(host::MakeId(host::kCameraAperture), &aperture))
        second->SetParameter(host::MakeId(host::kCameraAperture), aperture);
    second_tag_ = MakeCameraTag(second, output_);
    shown_ = second;
    Evaluate(first_frame_);
    return second_tag_;
}

void Stage::RemoveSecondCamera() {
    if (second_tag_ == nullptr) return;
    // It leaves the scene as it goes.
    delete second_tag_->GetObject();
    second_tag_ = nullptr;
    shown_ = output_;
}

void Stage::KillDocument::operator()(host::Document *document) const {
    host::Application::Current()->KillDocument(document);
}

void Stage::KeyPartWith(std::int64_t frame) {
    keyed_from_ = frame;
    keyed_to_ = std::min(frame + static_cast<std::int64_t>(kKeyedAtOnce) - 1, long_move_->LastFrame());
    KeyCamera(input_, CutMove(*long_move_, keyed_from_, keyed_to_), rate_.Whole());
}

void Stage::KeyWholeMove() {
    if (long_move_) KeyCamera(input_, *long_move_, rate_.Whole());
    long_move_.reset();
}

void Stage::Evaluate(std::int64_t frame) {
    document_->SetFrame(frame);
    if (!host::ExecutePasses(document_.get(), true, true, true)) {
        throw Failure(kExitModule, "the module broke off at frame " + std::to_string(frame));
    }
}

host::Object *Stage::AddAimPoint(const char *name, std::int32_t link, const CameraMove &points) {
    host::Object *object = InsertObject(document_.get(), host::kTypeNull, name);
    KeyPosition(object, points, document_->Fps());
    tag_->SetParameter(host::MakeId(link), host::Data::LinkTo(object));
    return object;
}

const host::Object *Stage::InScene(const std::shared_ptr<host::NodeAnchor> &object) const {
    const bool is_there =
        object != nullptr && object->node != nullptr && object->node->GetDocument() == document_.get();
    return is_there ? static_cast<const host::Object *>(object->node) : nullptr;
}

host::Object *Stage::AddTarget(const CameraMove &points) {
    host::Object *target = AddAimPoint("Target", ids::kTargetObject, points);
    target_ = static_cast<host::Node *>(target)->Anchor();
    tag_->SetParameter(host::MakeId(ids::kUseTarget), host::Data(1));
    return target;
}

host::Object *Stage::AddFocusObject(const CameraMove &points) {
    host::Object *object = AddAimPoint("Focus Object", ids::kFocusObject, points);
    focus_object_ = static_cast<host::Node *>(object)->Anchor();
    return object;
}

void Stage::PlayFrame(std::int64_t frame) {
    if (long_move_ && (frame < keyed_from_ || frame > keyed_to_)) KeyPartWith(frame);
    Evaluate(frame);
    if (frame == first_frame_) output_sample_.angles = input_->GetTransform().rotation;
    output_sample_ = SampleOf(*shown_, output_sample_.angles);
}

void Stage::Bake(std::int32_t button) {
    KeyWholeMove();
    // What the second camera follows has its keys first.
    for (host::Tag *tag : {tag_, second_tag_}) {
        if (tag == nullptr) continue;
        host::PressButton(tag, host::MakeId(button));
        if (tag->Data().Whole(ids::kBaked) == 0 || tag->GetObject()->Tracks().empty())
            throw Failure(kExitModule, "the module baked nothing, expected keys on the camera");
    }
}

bool Stage::TurnsToTarget() const { return Target() != nullptr && tag_->Data().Whole(ids::kUseTarget) != 0; }

CameraSample Stage::Input() const { return SampleOf(*input_, input_->GetTransform().rotation); }

}  // namespace tremolux
