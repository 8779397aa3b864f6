#include "host/files/scenefile.h"

#include <gtest/gtest.h>

#include "host/animation/passes.h"
#include "host/animation/track.h"
#include "tests/host/scene_fixture.h"
#include "tests/support/temporary_folder.h"

namespace host::testing {

using test_support::TemporaryFolder;
namespace {

class SceneFile : public SceneTest {
  protected:
    // Two cameras, one below the other, a tag that links the first, a track, a scene camera, its own settings.
    void SetUp() override {
        Object *input = AddCamera("Eing\xC3\xA4nge"), *camera = AddCamera("Camera", input);
        Transform transform;
        transform.position = {1, 2, 3};
        transform.rotation = {0, 7, 0};  // kept as angles, not as a matrix
        transform.frozen_position = {10, 0, -10};
        transform.frozen_rotation = {0.1, 0.2, 0.3};
        transform.scale = {1, 2, 1};
        camera->SetTransform(transform);
        camera->SetParameter(MakeId(kCameraFocalLength), Data(85.0));
        camera->SetBits(kBitActive);
        Tag *tag = AddTag(camera, "My tag");
        tag->Data().Set(kTarget, Data::LinkTo(input));
        tag->Data().Set(-6000, Data("text"));
        auto track = Track::Create(input, MakeId(kParamRelPosition, kVectorY));
        Key *key = track->GetCurve()->AddKey(MakeTime(1, 30));
        key->SetValue(4.5);
        key->SetInterpolation(kInterpolationLinear);
        track->GetCurve()->AddKey(MakeTime(10, 30))->SetValue(-1);
        track->after = kLoopRepeat;
        input->InsertTrack(track.release());
        document->SetFps(25);
        document->SetRange(-5, 120);
        document->SetFrame(7);
        document->ActiveView()->SetSceneCamera(camera);
    }

    std::string Saved(Document *from) {
        std::string error;
        EXPECT_TRUE(SaveDocument(from, folder_ / "scene", &error)) << error;
        return folder_.Read("scene");
    }

    std::unique_ptr<Document> Loaded(const std::string &bytes) {
        return LoadDocument(folder_.Write("scene", bytes), &error_);
    }

    TemporaryFolder folder_;
    std::string error_;
};

TEST_F(SceneFile, GivesBackTheWholeScene) {
    const auto loaded = Loaded(Saved(document));
    ASSERT_NE(loaded, nullptr) << error_;
    EXPECT_EQ(loaded->Fps(), 25);
    EXPECT_TRUE(SameTime(loaded->GetTime(), MakeTime(7, 25)));
    EXPECT_TRUE(SameTime(loaded->Settings().GetTime(kDocumentMinTime), MakeTime(-5, 25)));
    Object *input = loaded->FirstObject();
    ASSERT_NE(input, nullptr);
    EXPECT_EQ(input->Name(), "Eing\xC3\xA4nge");
    Object *camera = input->FirstChild();
    ASSERT_NE(camera, nullptr);
    EXPECT_EQ(camera->Type(), kTypeCamera);
    EXPECT_TRUE(camera->GlobalMatrix() == document->FirstObject()->FirstChild()->GlobalMatrix());
    EXPECT_EQ(camera->GetTransform().rotation.y, 7);
    EXPECT_EQ(RealParameter(camera, MakeId(kCameraFocalLength)), 85);
    EXPECT_EQ(camera->Bits(), kBitActive);
    EXPECT_EQ(loaded->ActiveView()->SceneCamera(loaded.get()), camera);
    Tag *tag = camera->FindTag(kFakeTag);
    ASSERT_NE(tag, nullptr);
    EXPECT_EQ(tag->Name(), "My tag");
    EXPECT_EQ(tag->Data().Text(-6000), "text");
    const Track *track = input->FindTrack(MakeId(kParamRelPosition, kVectorY));
    ASSERT_NE(track, nullptr);
    EXPECT_EQ(track->after, kLoopRepeat);
    ASSERT_EQ(track->GetCurve()->KeyCount(), 2);
    EXPECT_EQ(track->GetCurve()->KeyAt(0)->GetValue(), 4.5);
    EXPECT_EQ(track->GetCurve()->KeyAt(0)->GetInterpolation(), kInterpolationLinear);
}

TEST_F(SceneFile, ConnectsLinksToTheLoadedNodes) {
    const auto loaded = Loaded(Saved(document));
    ASSERT_NE(loaded, nullptr);
    const Container &data = loaded->FirstObject()->FirstChild()->FirstTag()->Data();
    EXPECT_EQ(data.Link(kTarget, loaded.get()), loaded->FirstObject());
    EXPECT_EQ(data.Link(kTarget, document), nullptr);
}

TEST_F(SceneFile, IsTheSameBytesForTheSameScene) {
    const std::string bytes = Saved(document);
    EXPECT_EQ(Saved(document), bytes);
    const auto loaded = Loaded(bytes);
    ASSERT_NE(loaded, nullptr);
    EXPECT_EQ(Saved(loaded.get()), bytes);
}

TEST_F(SceneFile, InitializesATagBeforeItsStoredEntriesAreWrittenOver) {
    fake.on_init = [](Node *node) {
        node->Data().Set(-6000, Data("from Init"));
        node->Data().Set(-6001, Data("new in this version"));
    };
    const auto loaded = Loaded(Saved(document));
    ASSERT_NE(loaded, nullptr);
    const Container &data = loaded->FirstObject()->FirstChild()->FirstTag()->Data();
    EXPECT_EQ(data.Text(-6000), "text");
    EXPECT_EQ(data.Text(-6001), "new in this version");
}

TEST_F(SceneFile, TellsTheTagsWhenAllIsLoaded) {
    const std::string bytes = Saved(document);
    std::vector<std::int32_t> told;
    Node *linked = nullptr;
    fake.on_message = [&](Node *node, std::int32_t type, void *data) {
        if (type != kMessageDocumentImported && type != kMessageDocumentInfo) return;
        told.push_back(type);
        if (type != kMessageDocumentInfo) return;
        told.push_back(static_cast<TableDocumentInfo *>(data)->type);
        linked = static_cast<Node *>(node->Data().Link(kTarget, node->GetDocument()));
    };
    const auto loaded = Loaded(bytes);
    ASSERT_NE(loaded, nullptr);
    EXPECT_EQ(told, (std::vector<std::int32_t>{kMessageDocumentImported, kMessageDocumentInfo, kInfoLoad}));
    EXPECT_EQ(linked, loaded->FirstObject());
}

TEST_F(SceneFile, KeepsTagsOfModulesThatAreMissing) {
    const std::string bytes = Saved(document);
    delete document->FirstObject()->FirstChild()->FirstTag();
    application.registry.Clear();
    const auto loaded = Loaded(bytes);
    ASSERT_NE(loaded, nullptr) << error_;
    EXPECT_EQ(loaded->FirstObject()->FirstChild()->FirstTag()->Plugin(), nullptr);
    EXPECT_EQ(Saved(loaded.get()), bytes);
    const std::unique_ptr<Node> clone(loaded->Clone(kCopyDocument, nullptr));
    EXPECT_EQ(Saved(static_cast<Document *>(clone.get())), bytes);
    RegisterFakeTag(&application);
}

TEST_F(SceneFile, FailsInOneLineWhereverItIsCutOff) {
    const std::string bytes = Saved(document);
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        ASSERT_EQ(Loaded(bytes.substr(0, size)), nullptr) << size;
        ASSERT_EQ(error_.rfind((folder_ / "scene").string() + ": ", 0), 0u) << error_;
        ASSERT_EQ(error_.find('\n'), std::string::npos);
    }
    EXPECT_EQ(fake.alive, 1);  // of the scene that is open
}

TEST_F(SceneFile, SurvivesDamage) {
    const std::string bytes = Saved(document);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        for (int flip : {0x01, 0x80, 0xFF}) {
            std::string damaged = bytes;
            damaged[i] = static_cast<char>(damaged[i] ^ flip);
            const auto loaded = Loaded(damaged);
            if (loaded != nullptr) ExecutePasses(loaded.get(), true, true, true);
        }
    }
    EXPECT_EQ(fake.alive, 1);
}

TEST_F(SceneFile, LeavesTheOldFileWhenItCannotBeWritten) {
    std::string error;
    EXPECT_FALSE(SaveDocument(document, folder_ / "nowhere/scene", &error));
    EXPECT_NE(error.find("nowhere"), std::string::npos);
    EXPECT_FALSE(SaveDocument(nullptr, folder_ / "scene", &error));
    EXPECT_TRUE(folder_.Names().empty());
}

TEST_F(SceneFile, RefusesAHierarchyThatIsDeeperThanItReads) {
    Object *parent = document->FirstObject();
    for (int depth = 0; depth < 300; ++depth) parent = AddCamera("deep", parent);
    std::string error;
    EXPECT_FALSE(SaveDocument(document, folder_ / "deep", &error));
    EXPECT_EQ(folder_.Read("deep"), "(missing)");
}

}  // namespace
}  // namespace host::testing
