// Every call of the module's that may fail, and every use of a file, fails once: without memory, without the file,
// without the thing that was asked for. Nothing crashes, no file is left half written, and the camera works on
// afterwards.
#include <gtest/gtest.h>

#include <functional>

#include "host/animation/passes.h"
#include "host/description/description.h"
#include "host/files/faults.h"
#include "host/files/scenefile.h"
#include "host/ui/attribute_manager.h"
#include "host/watch/call_faults.h"
#include "tests/tag/preset_bench.h"
#include "tests/tag/tracks.h"

namespace {

using namespace tag_test;
namespace fs = std::filesystem;

// Sanitizers make each try many times dearer, and there are thousands: there some stand for their neighbours. Under
// Windows each load of a module keeps one of a process's few thread-local slots.
#ifdef TREMOLUX_SANITIZED
constexpr std::int64_t kStride = 7, kLoadStride = 25;
#elif defined(_WIN32)
constexpr std::int64_t kStride = 1, kLoadStride = 25;
#else
constexpr std::int64_t kStride = 1, kLoadStride = 1;
#endif

// The nth call that may fail, for every n; the number of calls that the work makes.
std::int64_t FailEveryCall(const std::function<void()> &work, const std::function<void(std::int64_t)> &check,
                           std::int64_t stride = kStride) {
    for (std::int64_t n = 1;; n += stride) {
        host::ArmCallFault(n);
        work();
        const std::int64_t calls = host::CallsThatMayFail();
        const std::string failed = host::FailedCall();
        host::ArmCallFault(0);
        SCOPED_TRACE(failed);
        check(n);
        if (calls < n || testing::Test::HasFailure()) return calls;
    }
}

// The same for uses of files: refused, or the last thing that the program did.
std::int64_t FailEveryFileUse(host::FileFault fault, const std::function<void()> &work,
                              const std::function<void(std::int64_t)> &check) {
    for (std::int64_t n = 1;; ++n) {
        host::ArmFileFault(n, fault);
        work();
        const std::int64_t uses = host::FileUses();
        host::ArmFileFault(0, host::FileFault::kNone);
        check(n);
        if (uses < n || testing::Test::HasFailure()) return uses;
    }
}

class Faults : public WithPresets {
  protected:
    Faults() {
        fs::copy_file(TREMOLUX_HOST_MEMORY_MODULE, module_, fs::copy_options::overwrite_existing);
        fs::current_path(elsewhere_.Path());
        BuiltIn("1_A", "1_Shaky", {{kPositionSlow, host::Data(0.2)}});
        BuiltIn("1_A", "2_Shakier", {{kPositionSlow, host::Data(0.4)}, {kRotationSlow, host::Data(0.3)}});
    }
    void TearDown() override {
        host::ArmCallFault(0);
        host::ArmFileFault(0, host::FileFault::kNone);
        WithPresets::TearDown();
        EXPECT_TRUE(fs::is_empty(elsewhere_.Path())) << "a path that was cut short leads there";
        fs::current_path(before_);
    }
    fs::path From() const { return Imports() / "User"; }
    // Plays on as if nothing had been.
    void ExpectAWorkingCamera(std::int64_t n) {
        for (const std::int64_t frame : {0, 1, 30}) {
            scene().Show(frame);
            ASSERT_TRUE(host::IsFinite(scene().Camera().matrix)) << "call " << n;
        }
    }
    // Each is the preset that was meant, and complete. What a killed program leaves is hidden, and never taken for one.
    void ExpectWholeFiles(const fs::path &folder, const host::Container &whole, std::int64_t n) {
        for (const std::string &name : NamesIn(folder)) {
            if (name[0] == '.') continue;
            ASSERT_TRUE(IsPresetFile(folder / name)) << name << ", fault " << n;
            ASSERT_TRUE(ReadPresetFile(folder / name) == whole) << name << ", fault " << n;
        }
    }
    const fs::path before_ = fs::current_path();
    const TemporaryFolder elsewhere_;
};

TEST_F(Faults, AtTheStartEndInOneLineOrInAModuleThatWorks) {
    const std::int64_t calls = FailEveryCall(
        [this] {
            running_ = std::make_unique<RunningHost>(module_);
            if (!running_->Started()) return;
            scene_ = std::make_unique<Scene>(*running_);
        },
        [this](std::int64_t n) {
            if (!running_->Started()) {
                EXPECT_NE(running_->Error(), "") << "call " << n;
            } else if (scene_->tag != nullptr) {
                ExpectAWorkingCamera(n);
            }
            scene_.reset();
            running_.reset();
        },
        kLoadStride);
    EXPECT_GT(calls, 100);
}

TEST_F(Faults, InAFrameLeaveTheCameraFinite) {
    Start();
    scene().Shake();
    std::int64_t frame = 10;
    const std::int64_t calls = FailEveryCall(
        [&] {
            scene().Show(frame += 7);  // a jump
            scene().Show(++frame);     // a plain step
            EXPECT_TRUE(host::IsFinite(scene().Camera().matrix)) << frame;
        },
        [&](std::int64_t n) { ExpectAWorkingCamera(n); });
    EXPECT_GT(calls, 10);
}

TEST_F(Faults, OfMemoryInAFrameLeaveTheClocksAsTheyAreInPlayback) {
    constexpr std::int32_t kTriggers = 6181;
    Start();
    // Jumps and a plain step; a jump to the frame after the one that a jump counts from.
    for (const std::vector<std::int64_t> &frames : {std::vector<std::int64_t>{300, 29, 30, 31}, {-5, 0}}) {
        const auto begin = [&] {
            scene_ = std::make_unique<Scene>(*running_, 30, -5);
            scene().Shake();
            State().Set(kTriggers, "31, 40");
        };
        bool had_no_memory = false;
        const auto play = [&] {
            for (const std::int64_t frame : frames) scene().Show(frame);
            had_no_memory = host::FailedCall() == "general.allocate_uncleared";
        };
        begin();
        play();
        std::vector<double> clocks;
        for (const std::int32_t clock : kClocks) clocks.push_back(scene().Real(clock));
        ASSERT_GT(clocks[1], 0);
        begin();
        int failures = 0;
        FailEveryCall(
            play,
            [&](std::int64_t n) {
                scene().Show(frames.back());
                if (had_no_memory) {
                    ++failures;
                    for (std::size_t i = 0; i < clocks.size(); ++i)
                        ASSERT_EQ(scene().Real(kClocks[i]), clocks[i]) << kClocks[i] << ", call " << n;
                }
                begin();
            },
            1);
        EXPECT_GT(failures, 1);
    }
}

TEST_F(Faults, InTheListsLeaveThemToBeReadAgain) {
    constexpr std::int32_t kLuckyPress = 6041;
    BuiltIn("2_B", "1_Other");
    Users("01_Mine");
    Start();
    Choose(kCategory, kAll);
    const std::vector<std::string> names = PresetNames();
    ASSERT_EQ(names.size(), 4u);
    const auto browse = [&] {
        State().Set(kCategory, 0);
        host::Description panel;
        const TableDescID list = host::MakeId(kPreset);
        host::BuildDescription(scene().tag, &list, 0, &panel);
        host::EditParameter(scene().tag, host::MakeId(kCategory), host::Data(kAll));
        for (const std::int32_t button : {kLuckyPress, kExportAll, kResetFolder})
            host::PressButton(scene().tag, host::MakeId(button));
    };
    const std::int64_t calls = FailEveryCall(
        browse,
        [&](std::int64_t n) {
            Press(kResetFolder);
            Choose(kCategory, kAll);
            ASSERT_EQ(PresetNames(), names) << "call " << n;
        },
        kStride * 5);
    EXPECT_GT(calls, 100);
    ExpectAWorkingCamera(calls);
}

TEST_F(Faults, InTheApplyCommandLeaveTheSelectedCameraAndNoOpenStep) {
    Start();
    host::Document *document = scene().document;
    host::Object *selected = host::Object::Create(host::kTypeCamera).release();
    selected->Data().SetReal(host::kCameraFocalLength, 85);
    document->InsertObject(selected);
    const std::size_t objects = document->AllObjects().size();
    const std::int64_t calls = FailEveryCall(
        [&] {
            document->SetActiveObject(selected);
            running_->App().CallCommand(1039960);
        },
        [&](std::int64_t n) {
            ASSERT_EQ(document->Undo().Depth(), 0) << "call " << n;
            while (document->Undo().Undo()) continue;
            // Where the step had no memory for it, the new camera is there to be deleted by hand.
            ASSERT_LE(document->AllObjects().size(), objects + 1) << "call " << n;
            if (document->AllObjects().size() > objects) delete document->FirstObject();
            ASSERT_EQ(document->AllObjects().size(), objects) << "call " << n;
            ASSERT_EQ(selected->Data().Real(host::kCameraFocalLength), 85) << "call " << n;
            document->Undo().Flush();
        });
    EXPECT_GT(calls, 20);
}

TEST_F(Faults, InABakeAndItsUnBakeLoseNoKeyOfTheArtists) {
    Start();
    scene().document->SetRange(0, 4);
    Animate(scene().camera, host::MakeId(500), 30, {{2, 40}, {9, 50}});
    for (const std::int32_t bake : {6046, 6175}) {
        FailEveryCall([&] { host::PressButton(scene().tag, host::MakeId(bake)); },
                      [&](std::int64_t n) {
                          // What was begun can be taken back.
                          while (scene().document->Undo().Undo()) continue;
                          ASSERT_EQ(scene().camera->Tracks().size(), 1u) << "call " << n;
                          ASSERT_EQ(scene().camera->Tracks()[0]->GetCurve()->KeyCount(), 2) << "call " << n;
                          State().Set(kBaked, 0);
                          scene().document->Undo().Flush();
                          ExpectAWorkingCamera(n);
                      });
        host::PressButton(scene().tag, host::MakeId(bake));
        scene().document->Undo().Flush();
        FailEveryCall([&] { host::PressButton(scene().tag, host::MakeId(6047)); },
                      [&](std::int64_t n) {
                          while (scene().document->Undo().Undo()) continue;
                          ASSERT_EQ(State().Whole(kBaked), 1) << "call " << n;
                          ASSERT_EQ(scene().camera->Tracks().size(), 8u) << "call " << n;
                          scene().document->Undo().Flush();
                      });
        host::PressButton(scene().tag, host::MakeId(6047));
        scene().document->Undo().Flush();
        ASSERT_EQ(scene().camera->Tracks().size(), 1u);
        ASSERT_EQ(scene().camera->Tracks()[0]->GetCurve()->KeyCount(), 2);
    }
}

TEST_F(Faults, InASaveLeaveTheWholePresetOrNone) {
    Start();
    scene().Set(kPositionSlow, 0.7);
    const auto save = [this] {
        Dialogs().AnswerText("Mine");
        host::PressButton(scene().tag, host::MakeId(kSave));
        Dialogs().Clear();
    };
    save();
    ASSERT_EQ(NamesIn(UserFolder()).size(), 1u);
    const host::Container whole = ReadPresetFile(UserFolder() / NamesIn(UserFolder())[0]);
    const auto again = [&] {
        fs::remove_all(UserFolder());
        fs::create_directories(UserFolder());
        scene().Set(kPositionSlow, 0.7);
    };
    const auto check = [&](std::int64_t n) {
        ExpectWholeFiles(UserFolder(), whole, n);
        ExpectAWorkingCamera(n);
        again();
    };
    again();
    EXPECT_GT(FailEveryCall(save, check), 100);
    for (const host::FileFault fault : {host::FileFault::kFails, host::FileFault::kKilled})
        EXPECT_GT(FailEveryFileUse(fault, save, check), 3);
}

TEST_F(Faults, InAnImportLoseNoPreset) {
    Start();
    const host::Container whole = PresetOf("Came", {{kPositionSlow, host::Data(0.9)}});
    const auto begin = [&] {
        for (const fs::path &folder : {UserFolder(), Root() / "User"}) fs::remove_all(folder);
        fs::create_directories(UserFolder());
        WritePresetFile(From() / "1_Came", whole);
    };
    const auto import = [this] {
        State().Set(kFirstRun, 1);
        scene().Evaluate();
    };
    const auto check = [&](std::int64_t n) {
        // Without memory for a name it may become a built-in preset.
        std::size_t places = 0;
        for (const fs::path &folder : {UserFolder(), From(), Root() / "User"}) {
            ExpectWholeFiles(folder, whole, n);
            places += NamesIn(folder).size();
        }
        ASSERT_GE(places, 1u) << "fault " << n;
        begin();
    };
    begin();
    EXPECT_GT(FailEveryCall(import, check), 100);
    for (const host::FileFault fault : {host::FileFault::kFails, host::FileFault::kKilled})
        EXPECT_GT(FailEveryFileUse(fault, import, check), 3);
}

TEST_F(Faults, InALoadAreRefusedOrGiveATagThatWorks) {
    Start();
    scene().Shake();
    const fs::path file = folder_.Path() / "shot.scene";
    std::string error;
    ASSERT_TRUE(host::SaveDocument(scene().document, file, &error)) << error;
    std::unique_ptr<host::Document> loaded;
    const auto load = [&] { loaded = host::LoadDocument(file, &error); };
    const auto check = [&](std::int64_t n) {
        if (!loaded) {
            ASSERT_NE(error, "") << "fault " << n;
            return;
        }
        for (const std::int64_t frame : {0, 1, 30}) {
            loaded->SetFrame(frame);
            host::ExecutePasses(loaded.get(), true, true, true);
            for (const host::Object *object : loaded->AllObjects())
                ASSERT_TRUE(host::IsFinite(object->GlobalMatrix())) << "fault " << n;
        }
        loaded.reset();
    };
    EXPECT_GT(FailEveryCall(load, check), 10);
    EXPECT_GT(FailEveryFileUse(host::FileFault::kFails, load, check), 0);
}

}  // namespace
