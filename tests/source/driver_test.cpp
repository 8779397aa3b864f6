// Which operations an evaluation calls, and in which order.
#include "host/value/memory.h"
#include "tests/source/probe.h"

namespace {

using Names = std::vector<std::string>;

class Driver : public WithProbe {
  protected:
    Names After(std::int64_t frame) {
        probe_->calls.clear();
        Show(frame);
        return probe_->Operations();
    }
};

TEST_F(Driver, TheFirstEvaluationSetsUpAndEvaluatesNothing) {
    State().Set(kFirstRun, 1);
    EXPECT_EQ(After(0), (Names{"import", "reset"}));
    EXPECT_EQ(State().Whole(kFirstRun), 0);
}

TEST_F(Driver, AFrameReadsATriggerTextThatIsNewByTheTagsOwnOperation) {
    Show(1);
    probe_->is_noting_triggers = TRUE;
    EXPECT_EQ(After(2), Names{"evaluate"}) << "what was read is not read again";
    State().Set(6181, host::Data("5"));
    EXPECT_EQ(After(3), (Names{"evaluate", "parse"}));
    State().Set(6209, host::Data("no frame"));
    EXPECT_EQ(After(4), (Names{"evaluate", "parse twin"}));
    EXPECT_EQ(After(5), Names{"evaluate"}) << "though nothing was found in it";
}

TEST_F(Driver, TheStartFrameRestarts) { EXPECT_EQ(After(0), (Names{"reset", "evaluate"})); }

TEST_F(Driver, TheStartFrameRestartsEveryTime) {
    Show(0);
    EXPECT_EQ(After(0), (Names{"reset", "evaluate"}));
}

TEST_F(Driver, EveryFrameBeforeTimeZeroRestarts) {
    document_->SetRange(-50, 300);
    Show(-10);
    EXPECT_EQ(After(-9), (Names{"reset", "evaluate"}));
    EXPECT_EQ(After(-9), (Names{"reset", "evaluate"}));
}

TEST_F(Driver, ATimeJustBeforeZeroRestartsThoughItsFrameIsZero) {
    document_->SetRange(-50, 300);
    Show(-1);
    document_->SetTime(host::MakeTime(-1, 60));
    probe_->calls.clear();
    Evaluate();
    EXPECT_EQ(probe_->Operations(), (Names{"reset", "evaluate"}));
    EXPECT_EQ(State().Real(kLastFrame), 0);
}

TEST_F(Driver, AStepToTheNextFrameEvaluatesOnce) {
    for (int frame = 0; frame <= 10; ++frame) Show(frame);
    EXPECT_EQ(After(11), Names{"evaluate"});
}

TEST_F(Driver, AStepOverAFrameRunsUpFromTheStart) {
    for (int frame = 0; frame <= 10; ++frame) Show(frame);
    EXPECT_EQ(After(12), (Names{"run up", "reset", "evaluate"}));
}

TEST_F(Driver, AStepBackRunsUpFromTheStart) {
    for (int frame = 0; frame <= 10; ++frame) Show(frame);
    EXPECT_EQ(After(9), (Names{"run up", "reset", "evaluate"}));
}

TEST_F(Driver, TheSameFrameAgainCallsNothing) {
    for (int frame = 0; frame <= 10; ++frame) Show(frame);
    EXPECT_EQ(After(10), Names{});
}

TEST_F(Driver, ABakedTagCallsNothing) {
    State().Set(kBaked, 1);
    EXPECT_EQ(After(0), Names{});
    EXPECT_EQ(After(7), Names{});
}

TEST_F(Driver, ATagWithoutInputCallsNothing) {
    State().Set(6001, host::Data::LinkTo(nullptr));
    EXPECT_EQ(After(0), Names{});
    EXPECT_EQ(After(7), Names{});
}

TEST_F(Driver, ATagWhoseInputIsItsOwnCameraCallsNothing) {
    State().Set(6001, host::Data::LinkTo(camera_));
    EXPECT_EQ(After(30), Names());
}

TEST_F(Driver, AJumpKeepsItsRunUpThroughTheReset) {
    for (int frame = 0; frame <= 10; ++frame) Show(frame);
    const double played = State().Real(kShakeClock);
    Show(30);
    After(10);
    ASSERT_EQ(probe_->calls.size(), 3u);
    EXPECT_EQ(probe_->calls[2].operation, "evaluate");
    EXPECT_EQ(probe_->calls[2].catching_up, 1) << "the layers must know that they restart";
    // Before the frame is evaluated nine of its ten steps are done.
    EXPECT_GT(probe_->calls[2].shake_clock, 0);
    EXPECT_LT(probe_->calls[2].shake_clock, played);
    EXPECT_EQ(State().Real(kShakeClock), played);
    EXPECT_EQ(State().Whole(kCatchingUp), 0) << "and it is over with the frame";
}

TEST_F(Driver, NoFrameHasTheNumberThatStandsWhileARestartEvaluates) {
    Show(0);
    Show(40);
    Show(0);
    int evaluated = 0;
    for (const ProbeTag::Call &call : probe_->calls) {
        if (call.operation != "evaluate") continue;
        EXPECT_EQ(call.frame_before, -1e9);
        ++evaluated;
    }
    EXPECT_EQ(evaluated, 3);
}

TEST_F(Driver, TheFirstCallAfterTheSetUpRestartsOrRunsUp) {
    State().Set(kFirstRun, 1);
    Show(0);
    EXPECT_EQ(State().Real(kLastFrame), -1e9);
    EXPECT_EQ(After(0), (Names{"reset", "evaluate"}));
    State().Set(kFirstRun, 1);
    Show(0);
    EXPECT_EQ(After(1), (Names{"run up", "reset", "evaluate"})) << "no frame before was evaluated";
}

TEST_F(Driver, ARunUpByItselfLeavesItsMarkInTheLastFrame) {
    probe_->SimulateToFrame(20, Data(), Camera());
    EXPECT_EQ(State().Real(kLastFrame), -1);
}

TEST_F(Driver, AReplayWithoutContainerOrCameraDoesNothing) {
    const host::Container before = State();
    probe_->SimulateToFrame(20, NULL, Camera());
    probe_->SimulateToFrame(20, Data(), NULL);
    EXPECT_TRUE(State() == before);
}

TEST_F(Driver, CollectingPresetsWithoutAContainerChangesNothing) {
    const host::Container before = State();
    probe_->CollectCategoryPresets(NULL);
    EXPECT_TRUE(State() == before);
}

TEST_F(Driver, AReplayToAFrameStopsBeforeIt) {
    State().SetReal(6149, 0);  // the step equals the speed
    State().SetReal(6152, 2);
    probe_->SimulateToFrame(20, Data(), Camera());
    // Frames 0 to 19: the first adds nothing, nineteen add 2.
    EXPECT_EQ(State().Real(kShakeClock), 38);
    EXPECT_EQ(State().Real(kClockStep), 2);
}

TEST_F(Driver, AReplayStartsAtMinusOneInADocumentThatStartsEarlier) {
    document_->SetRange(-50, 300);
    Show(5);  // stores the start frame
    State().SetReal(6149, 0);
    State().SetReal(6152, 2);
    probe_->SimulateToFrame(3, Data(), Camera());
    // Frames -1, 0, 1, 2: three of them add 2.
    EXPECT_EQ(State().Real(kShakeClock), 6);
}

TEST_F(Driver, AReplayToItsStartLeavesTheClocksAtZero) {
    Show(0);
    Show(1);
    probe_->SimulateToFrame(0, Data(), Camera());
    EXPECT_EQ(State().Real(kShakeClock), 0);
    EXPECT_EQ(State().Real(kClockStep), 0);
}

TEST_F(Driver, AReplayOfATagInNoDocumentLeavesTheClocksAtZero) {
    Show(1);
    camera_->Remove();
    probe_->SimulateToFrame(20, Data(), Camera());
    EXPECT_EQ(State().Real(kShakeClock), 0);
    EXPECT_EQ(State().Real(kClockStep), 0);
    EXPECT_EQ(State().Real(kLastFrame), -1);
    host::Node::Discard(camera_);
}

TEST_F(Driver, AReplayWithoutMemoryForItsCurveLeavesTheClocksAtZero) {
    Show(1);
    host::RefuseCustomData(0, 1);
    probe_->SimulateToFrame(20, Data(), Camera());
    host::RefuseCustomData(0, 0);
    EXPECT_EQ(State().Real(kShakeClock), 0);
    EXPECT_EQ(State().Real(kClockStep), 0);
}

TEST_F(Driver, AReplayWithoutATagThatCouldHaveTracksCountsWithTheStoredRates) {
    State().SetReal(6149, 0);
    State().SetReal(6152, 2);
    TremoluxCamClass *without_tag = gNew TremoluxCamClass;
    without_tag->SimulateToFrame(20, Data(), Camera());
    gDelete(without_tag);
    EXPECT_EQ(State().Real(kShakeClock), 38);
}

TEST_F(Driver, AFrameAfterAMessageReadsAContainerThatWasExchangedWithoutBeingCounted) {
    State().SetReal(6149, 0);  // the step equals the speed
    for (int frame = 0; frame <= 10; ++frame) Show(frame);
    *State().Live(6152) = host::Data(3.0);  // what is written through a pointer to a value counts as nothing
    tag_->SendMessage(MSG_CHANGE, nullptr);
    Show(11);
    EXPECT_EQ(State().Real(kClockStep), 3);
}

class DirectEvaluation : public WithProbe {
  protected:
    void SetUp() override {
        WithProbe::SetUp();
        for (const LONG id : {6024, 6025, 6026}) State().SetReal(id, 1);
        for (int frame = 0; frame <= 10; ++frame) Show(frame);
    }
};

TEST_F(DirectEvaluation, OfTheFrameThatIsShownChangesNothing) {
    const host::Container before = State();
    const host::Matrix shown = camera_->GlobalMatrix();
    probe_->EvaluateFrame(Data(), Camera());
    probe_->EvaluateFrame(Data(), Camera());
    EXPECT_TRUE(State() == before);
    EXPECT_TRUE(host::operator==(camera_->GlobalMatrix(), shown));
}

TEST_F(DirectEvaluation, LeavesTheLastFrameToItsCaller) {
    document_->SetFrame(11);
    const Real clock = State().Real(kShakeClock);
    probe_->EvaluateFrame(Data(), Camera());
    EXPECT_GT(State().Real(kShakeClock), clock);
    EXPECT_EQ(State().Real(kLastFrame), 10);
}

TEST_F(DirectEvaluation, OfATimeBetweenTwoFramesIsNotTheFrameBefore) {
    document_->SetTime(host::MakeTime(21, 60));  // frame 10.5
    const Real clock = State().Real(kShakeClock);
    probe_->EvaluateFrame(Data(), Camera());
    EXPECT_GT(State().Real(kShakeClock), clock);
}

TEST_F(DirectEvaluation, TakesAFrameThatRoundingMissedForTheFrameItself) {
    document_->SetFps(25);
    document_->SetFrame(29);  // 29 / 25 * 25 falls a little short of 29
    State().SetReal(kLastFrame, 29);
    const host::Container before = State();
    probe_->EvaluateFrame(Data(), Camera());
    EXPECT_TRUE(State() == before);
}

TEST_F(DirectEvaluation, WithoutContainerOrCameraDoesNothing) {
    document_->SetFrame(11);
    const host::Container before = State();
    probe_->EvaluateFrame(NULL, Camera());
    probe_->EvaluateFrame(Data(), NULL);
    EXPECT_TRUE(State() == before);
}

TEST_F(DirectEvaluation, WithoutDocumentSettingsDoesNothing) {
    document_->SetFrame(11);
    document_->Settings().Flush();
    const host::Container before = State();
    const host::Matrix shown = camera_->GlobalMatrix();
    probe_->EvaluateFrame(Data(), Camera());
    EXPECT_TRUE(State() == before);
    EXPECT_TRUE(host::operator==(camera_->GlobalMatrix(), shown));
}

TEST_F(DirectEvaluation, OfATagInNoDocumentDoesNothing) {
    document_->SetFrame(11);
    // As in the undo buffer: the camera and its tag live on outside.
    camera_->Remove();
    const host::Container before = State();
    probe_->EvaluateFrame(Data(), Camera());
    EXPECT_TRUE(State() == before);
    host::Node::Discard(camera_);
}

}  // namespace
