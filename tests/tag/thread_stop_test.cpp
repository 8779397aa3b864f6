// Before the module changes the scene in a step of its own, it stops what the host computes of it meanwhile.
#include "host/animation/passes.h"
#include "host/scene/messages.h"
#include "tests/tag/preset_bench.h"

namespace {

using namespace tag_test;

using Calls = std::vector<std::string>;

// The host's table with an ear on two of its entries.
class Ear {
  public:
    static const HostTable *Table() {
        whole_ = host::Application::Table();
        general_ = *whole_->general;
        general_.stop_all_threads = [] {
            calls.push_back("stop");
            whole_->general->stop_all_threads();
        };
        document_ = *whole_->document;
        document_.start_undo = [](HostAtom *document) {
            calls.push_back("step");
            return whole_->document->start_undo(document);
        };
        table_ = *whole_;
        table_.general = &general_;
        table_.document = &document_;
        return &table_;
    }
    static inline Calls calls;

  private:
    static inline const HostTable *whole_;
    static inline GeneralTable general_;
    static inline DocumentTable document_;
    static inline HostTable table_;
};

class StoppedThreads : public testing::Test {
  protected:
    StoppedThreads() : application_(SettingsIn(folder_.Path())) {
        const std::filesystem::path file = CopyModule(folder_.Path());
        // A preset to be lucky with.
        WritePresetFile(file.parent_path() / "res" / "Presets" / "1_A" / "1_Shaky",
                        PresetOf("Shaky", {{kPositionSlow, host::Data(0.2)}}));
        module_ = host::LoadedModule::Load(file, &error_, Ear::Table());
    }
    ~StoppedThreads() override {
        if (document_) application_.KillDocument(document_);
    }
    void SetUp() override {
        ASSERT_NE(module_, nullptr) << error_;
        document_ = application_.NewDocument();
        input_ = host::Object::Create(host::kTypeCamera).release();
        document_->InsertObject(input_);
        camera_ = host::Object::Create(host::kTypeCamera).release();
        document_->InsertObject(camera_);
        tag_ = camera_->MakeTag(kTag);
        ASSERT_NE(tag_, nullptr);
        host::ExecutePasses(document_, true, true, true);
        tag_->Data().Set(kInput, host::Data::LinkTo(input_));
        Ear::calls.clear();
    }
    Calls CallsOf(std::int32_t button) {
        Ear::calls.clear();
        TableDescriptionCommand press{};
        press.id = host::MakeId(button);
        EXPECT_TRUE(tag_->SendMessage(host::kMessageCommand, &press));
        return Ear::calls;
    }

    TemporaryFolder folder_;
    host::Application application_;
    std::string error_;
    std::unique_ptr<host::LoadedModule> module_;
    host::Document *document_ = nullptr;
    host::Object *input_ = nullptr, *camera_ = nullptr;
    host::Tag *tag_ = nullptr;
};

TEST_F(StoppedThreads, ComeBeforeTheStepOfEachButton) {
    for (const std::int32_t button : {6042, 6043, 6174, 6004, 6041, 6058, 6069, 6184, 6185, 6186, 6187, 6188})
        EXPECT_EQ(CallsOf(button), (Calls{"stop", "step"})) << button;
}

TEST_F(StoppedThreads, ComeBeforeABakeAndAnUnBakeTakeKeysAway) {
    document_->SetRange(0, 2);
    for (const std::int32_t button : {6046, 6047, 6175, 6047}) EXPECT_EQ(CallsOf(button), Calls{"stop"}) << button;
}

TEST_F(StoppedThreads, ComeBeforeEachStepOfANewInputCamera) {
    const Calls calls = CallsOf(kInput);
    ASSERT_FALSE(calls.empty());
    for (std::size_t i = 0; i < calls.size(); ++i) EXPECT_EQ(calls[i], i % 2 == 0 ? "stop" : "step") << i;
    EXPECT_EQ(calls.back(), "step");
}

TEST_F(StoppedThreads, ComeBeforeTheStepOfTheCommand) {
    constexpr std::int32_t kApply = 1039960;
    document_->SetActiveObject(input_);
    application_.CallCommand(kApply);
    EXPECT_EQ(Ear::calls, (Calls{"stop", "step"}));
    EXPECT_NE(document_->FirstObject(), camera_);
}

}  // namespace
