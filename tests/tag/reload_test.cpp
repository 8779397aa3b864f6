// A scene that was saved goes on as if it had stayed open.
#include "host/files/scenefile.h"
#include "tests/tag/playback.h"
#include "tests/tag/tracks.h"

namespace {

using namespace tag_test;
using Lines = std::vector<std::string>;

class SavedScene : public WithScene {
  protected:
    void SetUp() override {
        WithScene::SetUp();
        scene().Shake();
        scene().Set(kSeed, 4711);
        scene().Set(kSpeed, 1.5);
        scene().Set(kVariation, 0.6);
        scene().Set(kTimeOffset, 3.25);
        scene().Set(6022, 2);
        scene().State().Set(6014, 0);
        scene().State().Set(6181, host::Data("7, 19"));
        scene().Link(kTarget, scene().AddObject(host::kTypeNull, {5, 6, 700}));
        scene().PlaceInput({10, 150, -400}, {0.4, -0.2, 0.1});
    }
    std::filesystem::path File() const { return folder_.Path() / "scene.doc"; }
    void Save() {
        std::string error;
        ASSERT_TRUE(host::SaveDocument(scene().document, File(), &error)) << error;
    }

  private:
    TemporaryFolder folder_;
};

TEST_F(SavedScene, PlaysTheSameFramesFromItsStartInANewProcess) {
    scene().Play(0, 20);
    Save();
    const Lines open = PlayFrames(scene(), 0, 45);
    EXPECT_EQ(PlayFileInNewProcess(File(), 0, 45), open);
}

TEST_F(SavedScene, ShowsTheSameShakeContinuedInTheMiddleInANewProcess) {
    scene().State().Set(6145, 0);  // a jolt in flight ends when the scene is closed
    scene().Play(0, 20);
    Save();
    const Lines open = PlayFrames(scene(), 21, 45);
    EXPECT_LT(Difference(PlayFileInNewProcess(File(), 21, 45), open), 1e-9);
}

TEST_F(SavedScene, WithTracksPlaysTheSameFramesInANewProcess) {
    Animate(scene().tag, host::MakeId(kSpeed), 30, {{0, 0.5}, {30, 2}});
    Animate(scene().input, host::MakeId(host::kParamRelPosition, host::kVectorX), 30, {{0, 0}, {40, 400}});
    scene().State().Set(6145, 0);
    scene().Play(0, 20);
    Save();
    const Lines from_start = PlayFrames(scene(), 0, 45);
    EXPECT_EQ(PlayFileInNewProcess(File(), 0, 45), from_start);
    const Lines middle(from_start.begin() + 21, from_start.end());
    EXPECT_LT(Difference(PlayFileInNewProcess(File(), 21, 45), middle), 1e-9);
}

TEST_F(SavedScene, StartingBeforeZeroPlaysTheSameFramesInANewProcess) {
    scene().document->SetRange(-12, 100);
    scene().Play(-12, 5);
    Save();
    const Lines open = PlayFrames(scene(), -12, 15);
    EXPECT_EQ(PlayFileInNewProcess(File(), -12, 15), open);
}

TEST_F(SavedScene, ThatWasNeverEvaluatedIsSetUpWhereItIsOpened) {
    scene().State().Set(kFirstRun, 1);
    Save();
    std::string error;
    std::unique_ptr<host::Document> document = host::LoadDocument(File(), &error);
    ASSERT_NE(document, nullptr) << error;
    Scene loaded(running_, std::move(document));
    ASSERT_NE(loaded.tag, nullptr);
    EXPECT_EQ(loaded.State().Whole(kFirstRun), 1);
    loaded.Evaluate();
    EXPECT_EQ(loaded.State().Whole(kFirstRun), 0);
    EXPECT_EQ(loaded.Real(kSeed), 12345);
}

TEST_F(SavedScene, KeepsEverySettingOfTheUser) {
    scene().Play(0, 20);
    const host::Container before = scene().State();
    Save();
    std::string error;
    std::unique_ptr<host::Document> document = host::LoadDocument(File(), &error);
    ASSERT_NE(document, nullptr) << error;
    Scene loaded(running_, std::move(document));
    ASSERT_NE(loaded.tag, nullptr);
    loaded.Show(20);
    loaded.Play(0, 5);
    int compared = 0;
    for (std::int32_t id = 5800; id <= 6210; ++id) {
        const host::Data *old = before.Find(id);
        if (!old || old->type == host::kDataLink) continue;
        ASSERT_NE(loaded.State().Find(id), nullptr) << id;
        EXPECT_TRUE(host::EqualData(*old, *loaded.State().Find(id))) << id;
        ++compared;
    }
    EXPECT_GT(compared, 60);
    EXPECT_EQ(loaded.State().Link(kInput, loaded.document), loaded.input);
    ASSERT_NE(loaded.State().Link(kTarget, loaded.document), nullptr);
    EXPECT_EQ(loaded.State().Whole(kFirstRun, 7), 0) << "a loaded tag is not set up again";
}

TEST_F(SavedScene, IsOnlyCheckedAtItsFirstEvaluation) {
    scene().Play(0, 20);
    Save();
    std::string error;
    std::unique_ptr<host::Document> document = host::LoadDocument(File(), &error);
    ASSERT_NE(document, nullptr) << error;
    Scene loaded(running_, std::move(document));
    ASSERT_NE(loaded.tag, nullptr);
    EXPECT_EQ(loaded.State().Whole(kRecheck), 1);
    const Shot shot = loaded.Camera();
    EXPECT_TRUE(shot == scene().Camera());
    loaded.Show(21);
    EXPECT_TRUE(loaded.Camera() == shot);
    EXPECT_EQ(loaded.State().Whole(kRecheck, 7), 0);
}

TEST_F(SavedScene, PointsAtThisMachinesPresetFolderAgain) {
    const std::string here = scene().State().Text(5026);
    scene().State().Set(5026, host::Data::Filename("/another/machine/res/Presets"));
    Save();
    std::string error;
    std::unique_ptr<host::Document> document = host::LoadDocument(File(), &error);
    ASSERT_NE(document, nullptr) << error;
    Scene loaded(running_, std::move(document));
    ASSERT_NE(loaded.tag, nullptr);
    EXPECT_EQ(loaded.State().Text(5026), here);
}

}  // namespace
