#include "bench/scene.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>

#include "bench/layers.h"
#include "generated/module_ids.h"
#include "host/animation/passes.h"
#include "host/animation/track.h"
#include "host/ui/attribute_manager.h"
#include "host/value/descid.h"

namespace bench {
namespace {

constexpr int kFps = 30, kLastKey = 1000, kFramesBetweenKeys = 20;

constexpr struct {
    std::int32_t parameter;
    Layer layer;
} kSwitches[] = {{ids::kUsePositionX, Layer::kPositionShake}, {ids::kUsePositionY, Layer::kPositionShake},
                 {ids::kUsePositionZ, Layer::kPositionShake}, {ids::kUseRotationH, Layer::kRotationShake},
                 {ids::kUseRotationP, Layer::kRotationShake}, {ids::kUseRotationB, Layer::kRotationShake},
                 {ids::kUseZoom, Layer::kZoomDrift},          {ids::kUseFocus, Layer::kFocusDrift},
                 {ids::kUseTarget, Layer::kTarget},           {ids::kUseJolt, Layer::kJolts}};

[[noreturn]] void Fail(const std::string &why) {
    std::fprintf(stderr, "tremolux_bench: %s\n", why.c_str());
    std::exit(1);
}

// A parameter that swings around `centre` by `swing` in about `period` frames.
void AnimateComponent(host::Object *object, std::int32_t parameter, std::int32_t component, double centre, double swing,
                      double period) {
    std::unique_ptr<host::Track> track = host::Track::Create(object, host::MakeId(parameter, component));
    if (!track) Fail("a camera parameter cannot be animated");
    host::Curve *curve = track->GetCurve();
    for (int frame = 0; frame <= kLastKey; frame += kFramesBetweenKeys)
        curve->AddKey(host::MakeTime(frame, kFps))->SetValue(centre + swing * std::sin(frame / period));
    object->InsertTrack(track.release());
}

// A folder of this run alone: two measurements at the same time keep out of each other's way.
std::filesystem::path NewTemporaryFolder() {
    std::random_device random;
    std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("tremolux-bench-" + std::to_string(random()));
    std::filesystem::create_directories(folder);
    return folder;
}

}  // namespace

Scene::Scene(const HostTable *table) : table_(table), folder_(NewTemporaryFolder()) {
    host::ApplicationSettings settings;
    settings.application_folder = folder_ / "application";
    settings.user_folder = folder_ / "user";
    std::filesystem::create_directories(settings.user_folder);
    application_ = std::make_unique<host::Application>(settings);
    LoadModule();
    NewShot();
}

void Scene::NewShot() {
    application_->KillDocument(document_);
    document_ = application_->NewDocument();
    document_->SetFps(kFps);
    document_->SetRange(0, 20000);

    host::Object *input = host::Object::Create(host::kTypeCamera).release();
    document_->InsertObject(input);
    AnimateComponent(input, host::kParamRelPosition, host::kVectorX, 0, 100, 90);
    AnimateComponent(input, host::kParamRelPosition, host::kVectorY, 150, 20, 70);
    AnimateComponent(input, host::kParamRelPosition, host::kVectorZ, -500, 300, 150);
    AnimateComponent(input, host::kParamRelRotation, host::kVectorX, 0, 20 * kDegree, 110);
    AnimateComponent(input, host::kParamRelRotation, host::kVectorY, -5 * kDegree, 5 * kDegree, 80);

    camera_ = host::Object::Create(host::kTypeCamera).release();
    document_->InsertObject(camera_);
    tag_ = camera_->MakeTag(ids::kTremoluxCamId);
    if (tag_ == nullptr) Fail("the module gives no tag");
    tag_->Data().Set(ids::kInputCamera, host::Data::LinkTo(input));
    Evaluate(0);  // sets the tag up
    host::Object *subject = host::Object::Create(host::kTypeNull).release();
    document_->InsertObject(subject);
    AnimateComponent(subject, host::kParamRelPosition, host::kVectorX, 0, 150, 60);
    tag_->Data().Set(ids::kTargetObject, host::Data::LinkTo(subject));
    tag_->Data().Set(ids::kFocusObject, host::Data::LinkTo(subject));
    tag_->Data().Set(ids::kJoltInterval, host::Data(host::MakeTime(kJoltIntervalFrames, kFps)));
    for (const Amount &amount : kEveryLayer) tag_->Data().SetReal(amount.parameter, amount.value);
    tag_->Data().SetReal(ids::kSpeedVariation, kSpeedVariation);
    Evaluate(0);
}

Scene::~Scene() {
    application_->KillDocument(document_);
    module_.reset();
    application_.reset();
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

void Scene::LoadModule() {
    std::string error;
    module_ = host::LoadedModule::Load(TREMOLUX_MODULE_FILE, &error, table_);
    if (!module_) Fail(error);
}

void Scene::KeepLayer(Layer layer) {
    for (const Amount &amount : kEveryLayer)
        if (amount.layer != layer) tag_->Data().SetReal(amount.parameter, 0);
    for (const auto &[parameter, of] : kSwitches)
        if (of != layer) tag_->Data().SetWhole(parameter, 0);
}

void Scene::RestartModule() {
    application_->KillDocument(document_);
    document_ = nullptr;
    module_.reset();
    LoadModule();
    document_ = application_->NewDocument();
    camera_ = host::Object::Create(host::kTypeCamera).release();
    document_->InsertObject(camera_);
}

void Scene::MakeTag() {
    tag_ = camera_->MakeTag(ids::kTremoluxCamId);
    if (tag_ == nullptr) Fail("the module gives no tag");
}

void Scene::Evaluate(std::int64_t frame) {
    document_->SetFrame(frame);
    host::ExecutePasses(document_, true, true, true);
}

void Scene::SetLastFrame(std::int64_t frame) { document_->SetRange(0, frame); }

void Scene::Press(std::int32_t button) {
    if (!host::PressButton(tag_, host::MakeId(button))) Fail("a button cannot be pressed");
    document_->Undo().Flush();
}

host::Vector Scene::CameraPosition() const { return camera_->GlobalMatrix().off; }

}  // namespace bench
