#include "tremolux/stage.h"

#include <functional>

#include "host/animation/passes.h"
#include "host/animation/track.h"
#include "host/application.h"
#include "host/scene/angles.h"
#include "host/value/descid.h"
#include "tremolux/failure.h"

namespace tremolux {
namespace {

constexpr std::int32_t kTremoluxCamTag = 1039736;
constexpr std::int32_t kInputCameraLink = 6001;

using Channel = std::function<double(const CameraSample &)>;

bool IsConstant(const CameraMove &move, const Channel &channel) {
    for (const CameraSample &sample : move.samples) {
        if (channel(sample) != channel(move.samples.front())) return false;
    }
    return true;
}

// A linear key on every frame; a channel that never changes gets one key, which holds for all time.
void Animate(host::Object *camera, const TableDescID &id, const CameraMove &move, int frames_per_second,
             const Channel &channel) {
    std::unique_ptr<host::Track> track = host::Track::Create(camera, id);
    if (!track) throw Failure(kExitInternal, "the input camera cannot be animated");
    const std::size_t keys = IsConstant(move, channel) ? 1 : move.samples.size();
    for (std::size_t i = 0; i < keys; ++i) {
        const double frame = static_cast<double>(move.first_frame + static_cast<std::int64_t>(i));
        host::Key *key = track->GetCurve()->AddKey(host::MakeTime(frame, frames_per_second));
        key->SetInterpolation(host::kInterpolationLinear);
        key->SetValue(channel(move.samples[i]));
    }
    camera->InsertTrack(track.release());
}

void AnimateVector(host::Object *camera, std::int32_t parameter, const CameraMove &move, int frames_per_second,
                   host::Vector CameraSample::*vector) {
    const auto animate = [&](std::int32_t component, double host::Vector::*number) {
        Animate(camera, host::MakeId(parameter, component), move, frames_per_second,
                [=](const CameraSample &sample) { return sample.*vector.*number; });
    };
    animate(host::kVectorX, &host::Vector::x);
    animate(host::kVectorY, &host::Vector::y);
    animate(host::kVectorZ, &host::Vector::z);
}

void AnimateCamera(host::Object *camera, const CameraMove &move, int frames_per_second) {
    AnimateVector(camera, host::kParamRelPosition, move, frames_per_second, &CameraSample::position);
    AnimateVector(camera, host::kParamRelRotation, move, frames_per_second, &CameraSample::angles);
    Animate(camera, host::MakeId(host::kCameraFocalLength), move, frames_per_second,
            [](const CameraSample &sample) { return sample.focal_length; });
    Animate(camera, host::MakeId(host::kCameraFocusDistance), move, frames_per_second,
            [](const CameraSample &sample) { return sample.focus_distance; });
}

host::Object *InsertCamera(host::Document *document, const char *name) {
    std::unique_ptr<host::Object> camera = host::Object::Create(host::kTypeCamera);
    camera->SetName(name);
    document->InsertObject(camera.get());
    return camera.release();
}

double Lens(const host::Object &camera, std::int32_t parameter) {
    host::Data value;
    return camera.GetParameter(host::MakeId(parameter), &value) ? value.Real() : 0;
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

Stage::Stage(const CameraMove &move, int frames_per_second)
    : document_(host::Application::Current()->NewDocument()),
      input_(InsertCamera(document_.get(), "Input Camera")),
      output_(InsertCamera(document_.get(), "Camera")) {
    document_->SetFps(frames_per_second);
    document_->SetRange(move.first_frame, move.LastFrame());
    AnimateCamera(input_, move, frames_per_second);
    tag_ = output_->MakeTag(kTremoluxCamTag);
    if (tag_ == nullptr) {
        throw Failure(kExitModule, "the module's camera tag cannot be made, expected a tag of type " +
                                       std::to_string(kTremoluxCamTag));
    }
    tag_->SetParameter(host::MakeId(kInputCameraLink), host::Data::LinkTo(input_));
    Evaluate(move.first_frame);
    output_sample_.angles = input_->GetTransform().rotation;
}

void Stage::KillDocument::operator()(host::Document *document) const {
    host::Application::Current()->KillDocument(document);
}

void Stage::Evaluate(std::int64_t frame) {
    document_->SetFrame(frame);
    if (!host::ExecutePasses(document_.get(), true, true, true)) {
        throw Failure(kExitModule, "the module broke off at frame " + std::to_string(frame));
    }
}

void Stage::PlayFrame(std::int64_t frame) {
    Evaluate(frame);
    output_sample_ = SampleOf(*output_, output_sample_.angles);
}

CameraSample Stage::Input() const { return SampleOf(*input_, input_->GetTransform().rotation); }

}  // namespace tremolux
