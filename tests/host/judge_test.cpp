// The judge at the host's border: each of these modules makes one mistake, and is told by name.
#include "host/watch/judge.h"

#include <gtest/gtest.h>

#include <thread>

#include "host/animation/passes.h"
#include "host/animation/track.h"
#include "host/scene/tag.h"
#include "host/services/module.h"
#include "host/value/descid.h"
#include "host/watch/watched_table.h"
#include "tests/support/temporary_folder.h"

namespace host::testing {
namespace {

constexpr std::int32_t kTag = 1000001, kDoWrong = 1000002;

struct Mistake {
    const char *name, *told;
};

void PrintTo(const Mistake &mistake, std::ostream *out) { *out << mistake.name; }

class Judge : public ::testing::TestWithParam<Mistake> {
  protected:
    // A camera with the tag, a child and a track, and an object of another document.
    Judge() {
        const std::string file = std::string(TREMOLUX_WRONG_MODULES) + "/wrong_" + GetParam().name + TREMOLUX_SUFFIX;
        std::string error;
        module_ = LoadedModule::Load(file, &error, WatchedTable());
        EXPECT_NE(module_, nullptr) << error;
        document_ = application_.NewDocument();
        Object *camera = Object::Create(kTypeCamera).release();
        document_->InsertObject(camera);
        document_->InsertObject(Object::Create(kTypeNull).release(), camera);
        std::unique_ptr<Track> track = Track::Create(camera, MakeId(kParamRelPosition, kVectorX));
        track->GetCurve()->AddKey(MakeTime(0, 30));
        camera->InsertTrack(track.release());
        tag_ = camera->MakeTag(kTag);
        elsewhere_ = Object::Create(kTypeNull).release();
        application_.NewDocument()->InsertObject(elsewhere_);
        ForgetWrongCall();
    }
    ~Judge() override {
        ForgetWrongCall();
        while (!application_.Documents().empty()) application_.KillDocument(application_.Documents().front().get());
        module_.reset();
    }
    Application application_{ApplicationSettings{}};
    std::unique_ptr<LoadedModule> module_;
    Document *document_ = nullptr;
    Tag *tag_ = nullptr;
    Object *elsewhere_ = nullptr;
};

TEST_P(Judge, NamesTheFirstWrongCall) {
    ASSERT_NE(tag_, nullptr);
    const std::size_t objects = document_->AllObjects().size(), steps = document_->Undo().Steps();
    tag_->SendMessage(kDoWrong, static_cast<HostAtom *>(elsewhere_));
    ExecutePasses(document_, true, true, true);
    EXPECT_EQ(FirstWrongCall(), GetParam().told);
    EXPECT_EQ(document_->AllObjects().size(), objects) << "a wrong call does not happen";
    EXPECT_EQ(document_->Undo().Steps(), steps);
}

constexpr Mistake kMistakes[] = {
    {"kUsesAFreedNode", "Message: object.global_matrix: found a freed node, expected an object"},
    {"kInsertsNothing", "Message: document.insert_object: found NULL, expected an object"},
    {"kTakesATagForAnObject", "Message: object.global_matrix: found a node of another kind, expected an object"},
    {"kTakesAnObjectForATrack", "Message: list.insert_track: found a node of another kind, expected a track"},
    {"kUndoesInAnotherDocument", "Message: document.add_undo: found nodes of two documents, expected those of one"},
    {"kMovesANodeOfAnotherDocument",
     "Message: document.insert_object: found nodes of two documents, expected those of one"}};

INSTANTIATE_TEST_SUITE_P(Anywhere, Judge, ::testing::ValuesIn(kMistakes),
                         [](const auto &test) { return std::string(test.param.name); });

// In answer to a message these calls are right.
class JudgeOfFrames : public Judge {};

TEST_P(JudgeOfFrames, NamesTheFirstEditDuringAFrame) {
    ASSERT_NE(tag_, nullptr);
    const std::size_t objects = document_->AllObjects().size();
    ExecutePasses(document_, true, true, true);
    const std::string told = std::string("Execute: ") + GetParam().told +
                             ": found it while a frame is evaluated, expected it outside of that";
    EXPECT_EQ(FirstWrongCall(), told);
    EXPECT_EQ(document_->AllObjects().size(), objects);
    EXPECT_TRUE(application_.dialogs.All().empty());
    EXPECT_EQ(application_.requests.events, 0);
}

constexpr Mistake kMistakesOfFrames[] = {
    {"kInsertsInAFrame", "document.insert_object"},  {"kRemovesInAFrame", "list.release"},
    {"kOpensAStepInAFrame", "document.start_undo"},  {"kAsksInAFrame", "general.question"},
    {"kQueuesAnEventInAFrame", "general.event_add"}, {"kEvaluatesInAFrame", "document.execute_passes"},
    {"kKeysInAFrame", "animation.add_key"},          {"kSelectsInAFrame", "document.set_active_object"}};

INSTANTIATE_TEST_SUITE_P(Frames, JudgeOfFrames, ::testing::ValuesIn(kMistakesOfFrames),
                         [](const auto &test) { return std::string(test.param.name); });

// The same calls in answer to a message that another thread sends.
class JudgeOfThreads : public Judge {};

TEST_P(JudgeOfThreads, NamesTheFirstCallThatIsForTheMainThreadAlone) {
    ASSERT_NE(tag_, nullptr);
    std::thread([this] { tag_->SendMessage(kDoWrong, static_cast<HostAtom *>(elsewhere_)); }).join();
    EXPECT_EQ(FirstWrongCall(), std::string("Message: ") + GetParam().told +
                                    ": found it on another thread, expected it on the main thread");
    EXPECT_TRUE(application_.dialogs.All().empty());
    EXPECT_EQ(document_->Undo().Depth(), 0);
    ForgetWrongCall();
    tag_->SendMessage(kDoWrong, static_cast<HostAtom *>(elsewhere_));
    EXPECT_EQ(FirstWrongCall(), "");
}

constexpr Mistake kMistakesOfThreads[] = {{"kOpensAStepInAFrame", "document.start_undo"},
                                          {"kAsksInAFrame", "general.question"}};

INSTANTIATE_TEST_SUITE_P(Threads, JudgeOfThreads, ::testing::ValuesIn(kMistakesOfThreads),
                         [](const auto &test) { return std::string(test.param.name); });

}  // namespace
}  // namespace host::testing
