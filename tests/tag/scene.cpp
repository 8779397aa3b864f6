#include "tests/tag/scene.h"

#include <algorithm>
#include <cmath>

#include "host/animation/passes.h"
#include "host/watch/judge.h"
#include "host/watch/watched_table.h"

namespace tag_test {

namespace fs = std::filesystem;

fs::path ModuleFile() { return TREMOLUX_MODULE_FILE; }

fs::path CopyModule(const fs::path &folder) {
    const fs::path plugin = folder / "plugins" / "TremoluxCam";
    fs::create_directories(plugin);
    fs::copy(ModuleFile().parent_path(), plugin, fs::copy_options::recursive);
    return plugin / ModuleFile().filename();
}

host::ApplicationSettings SettingsIn(const fs::path &folder) {
    host::ApplicationSettings settings;
    settings.application_folder = folder / "application";
    settings.user_folder = folder / "user";
    fs::create_directories(settings.application_folder);
    fs::create_directories(settings.user_folder);
    return settings;
}

RunningHost::RunningHost(const fs::path &module, const HostTable *table)
    : application_(std::make_unique<host::Application>(SettingsIn(folder_.Path()))),
      module_(host::LoadedModule::Load(module, &error_, table != nullptr ? table : host::WatchedTable())) {
    host::ForgetWrongCall();
}

RunningHost::~RunningHost() {
    // Documents hold the module's tags.
    while (!application_->Documents().empty()) application_->KillDocument(application_->Documents().front().get());
    module_.reset();
    application_.reset();
    EXPECT_EQ(host::FirstWrongCall(), "");
    host::ForgetWrongCall();
}

bool operator==(const Shot &a, const Shot &b) {
    return a.matrix == b.matrix && a.focal_length == b.focal_length && a.focus_distance == b.focus_distance;
}

Shot ShotOf(const host::Object *camera) {
    return {camera->GlobalMatrix(), camera->Data().Real(host::kCameraFocalLength),
            camera->Data().Real(host::kCameraFocusDistance)};
}

double Difference(const Shot &a, const Shot &b) {
    double most = std::max(std::fabs(a.focal_length - b.focal_length), std::fabs(a.focus_distance - b.focus_distance));
    const host::Vector *left = &a.matrix.off, *right = &b.matrix.off;
    for (int i = 0; i < 4; ++i) {
        const host::Vector d = left[i] - right[i];
        most = std::max({most, std::fabs(d.x), std::fabs(d.y), std::fabs(d.z)});
    }
    return most;
}

Scene::Scene(RunningHost &running, int fps, std::int64_t first_frame, std::int64_t last_frame) : running_(running) {
    document = running.App().NewDocument();
    document->SetFps(fps);
    document->SetRange(first_frame, last_frame);
    input = AddObject(host::kTypeCamera, {0, 0, 0});
    input->SetName("Input");
    camera = AddObject(host::kTypeCamera, {0, 0, 0});
    camera->SetName("Hand");
    tag = camera->MakeTag(kTag);
    if (tag == nullptr) return;
    Show(first_frame);  // the first evaluation only sets the tag up
    Link(kInput, input);
}

Scene::Scene(RunningHost &running, std::unique_ptr<host::Document> loaded) : document(loaded.get()), running_(running) {
    running.App().InsertDocument(loaded.release());
    input = document->FindObject("Input");
    camera = document->FindObject("Hand");
    if (camera) tag = camera->FindTag(kTag);
}

Scene::~Scene() { running_.App().KillDocument(document); }

void Scene::Show(std::int64_t frame) {
    document->SetFrame(frame);
    Evaluate();
}

void Scene::Play(std::int64_t first_frame, std::int64_t last_frame) {
    for (std::int64_t frame = first_frame; frame <= last_frame; ++frame) Show(frame);
}

void Scene::Evaluate() { EXPECT_TRUE(host::ExecutePasses(document, true, true, true)); }

std::int32_t Scene::Execute() {
    return tag->Registration().execute(tag->Plugin(), tag, document, camera, nullptr, tag->ExecutionPriority(), 0);
}

void Scene::Shake() {
    for (const std::int32_t id : {6024, 6025, 6026}) Set(id, 0.5);
    for (const std::int32_t id : {6028, 6029, 6030}) Set(id, 20 * kDegree);
    StopFilters();
}

void Scene::StopFilters() {
    for (const std::int32_t smooth : {6155, 6156, 6158, 6161, 6162, 6165, 6064, 6059}) Set(smooth, 0);
    for (const std::int32_t overshoot : {6153, 6034, 6071, 6053, 6063}) Set(overshoot, 0);
}

void Scene::PlaceInput(const host::Vector &position, const host::Vector &angles) {
    host::Transform transform = input->GetTransform();
    transform.position = position;
    transform.rotation = angles;
    input->SetTransform(transform);
}

host::Object *Scene::AddObject(std::int32_t type, const host::Vector &position, host::Object *parent) {
    host::Object *object = host::Object::Create(type).release();
    document->InsertObject(object, parent);
    host::Transform transform;
    transform.position = position;
    object->SetTransform(transform);
    return object;
}

}  // namespace tag_test
