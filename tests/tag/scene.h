// A running host with the module in it, and a scene that the module's tag works in.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include "host/application.h"
#include "host/scene/object.h"
#include "host/scene/tag.h"
#include "host/services/module.h"
#include "host/value/descid.h"
#include "tests/support/temporary_folder.h"

namespace tag_test {

// The host's vectors are plain structs of the border: their operators are not found by themselves.
using host::operator==;
using host::operator+;
using host::operator-;
using host::operator*;

constexpr std::int32_t kTag = 1039736;
constexpr double kPi = 3.14159265358979323846, kDegree = kPi / 180;

// Keys of the tag's container.
constexpr std::int32_t kBaked = 1005, kRecheck = 5018, kFirstRun = 5019, kCatchingUp = 5021, kLastFrame = 10044,
                       kStartFrame = 1040796, kPreviousRotation = 87651, kStep = 20000;
constexpr std::int32_t kInput = 6001, kTarget = 6068, kFocusObject = 6057, kSeed = 6142, kSpeed = 6152,
                       kVariation = 6149, kFocusSpeed = 6132, kZoomSpeed = 6138, kTimeOffset = 6151;
constexpr std::int32_t kClocks[] = {20000, 10051, 10052, 10053, 10054, 10055, 10056};

using test_support::TemporaryFolder;

std::filesystem::path ModuleFile();
// The module's file and its resources, copied below `folder`; the copied module's path.
std::filesystem::path CopyModule(const std::filesystem::path &folder);
host::ApplicationSettings SettingsIn(const std::filesystem::path &folder);

// A host that runs, with the module started; without a table behind the judge.
class RunningHost {
  public:
    explicit RunningHost(const std::filesystem::path &module = ModuleFile(), const HostTable *table = nullptr);
    ~RunningHost();
    host::Application &App() { return *application_; }
    const std::filesystem::path &UserFolder() const { return application_->settings.user_folder; }
    const std::string &Error() const { return error_; }
    bool Started() const { return module_ != nullptr; }
    host::LoadedModule &Module() { return *module_; }

  private:
    TemporaryFolder folder_;
    std::unique_ptr<host::Application> application_;
    std::string error_;
    std::unique_ptr<host::LoadedModule> module_;
};

// Everything that a frame shows.
struct Shot {
    host::Matrix matrix;
    double focal_length, focus_distance;
};
bool operator==(const Shot &a, const Shot &b);
Shot ShotOf(const host::Object *camera);
// The largest difference of any number.
double Difference(const Shot &a, const Shot &b);

// An input camera and a camera with the tag, linked and set up. Lives in that host's application.
class Scene {
  public:
    explicit Scene(RunningHost &running, int fps = 30, std::int64_t first_frame = 0, std::int64_t last_frame = 400);
    Scene(RunningHost &running, std::unique_ptr<host::Document> loaded);  // by the names of the objects
    ~Scene();
    Scene(const Scene &) = delete;
    Scene &operator=(const Scene &) = delete;

    void Show(std::int64_t frame);  // the time, then tracks, expressions and caches
    void Play(std::int64_t first_frame, std::int64_t last_frame);
    void Evaluate();
    // The tag's own evaluation alone; the host's result code.
    std::int32_t Execute();
    void Set(std::int32_t id, double value) { State().SetReal(id, value); }
    void Link(std::int32_t id, host::Object *object) { State().Set(id, host::Data::LinkTo(object)); }
    // Weights of all layers, and nothing that smooths: the shake as it is made. The toggles are on already.
    void Shake();
    // Every smoothing and overshoot amount at 0: what goes in comes out at once.
    void StopFilters();
    void PlaceInput(const host::Vector &position, const host::Vector &angles);
    host::Object *AddObject(std::int32_t type, const host::Vector &position, host::Object *parent = nullptr);

    host::Container &State() { return tag->Data(); }
    double Real(std::int32_t key) { return State().Real(key); }
    Shot Camera() const { return ShotOf(camera); }
    host::Vector Position() const { return camera->GlobalMatrix().off; }

    host::Document *document = nullptr;
    host::Object *input = nullptr, *camera = nullptr;
    host::Tag *tag = nullptr;

  private:
    RunningHost &running_;
};

class WithModule : public testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(running_.Started()) << running_.Error(); }
    RunningHost running_;
};

class WithScene : public WithModule {
  protected:
    void SetUp() override {
        WithModule::SetUp();
        scene_ = std::make_unique<Scene>(running_);
        ASSERT_NE(scene_->tag, nullptr);
    }
    void TearDown() override { scene_.reset(); }
    Scene &scene() { return *scene_; }
    std::unique_ptr<Scene> scene_;
};

}  // namespace tag_test
