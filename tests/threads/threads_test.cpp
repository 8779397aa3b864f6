// Several documents at once, each on one thread, while the user changes presets on the main one: as an application does
// that renders in the background. What is shared shows in the thread sanitizer; the numbers are compared everywhere.
#include <array>
#include <atomic>
#include <chrono>
#include <functional>
#include <set>
#include <thread>

#include "host/animation/passes.h"
#include "host/ui/attribute_manager.h"
#include "tests/support/file_times.h"
#include "tests/tag/preset_bench.h"
#include "tests/tag/tracks.h"

namespace {

using namespace tag_test;
namespace fs = std::filesystem;

constexpr int kThreads = 4, kDocuments = 8;
constexpr std::int32_t kLucky = 6041, kRandomize = 6004, kTriggers = 6181, kLibraryCount = 1040441;

void OnAnotherThread(const std::function<void()> &work) { std::thread(work).join(); }

// Longer ago than a change may pass unseen, so that what was read is shared. Another number: another time.
void MakeOld(const fs::path &folder, int number = 0) {
    const auto long_ago = fs::file_time_type::clock::now() - std::chrono::hours(3 + number % 1000);
    for (const auto &entry : fs::recursive_directory_iterator(folder)) test_support::SetTime(entry.path(), long_ago);
    test_support::SetTime(folder, long_ago);
}

// A moving input camera and one with the tag, in a document that no application lists.
class Take {
  public:
    explicit Take(int number) : number_(number), document_(std::make_unique<host::Document>()) {
        document_->SetFps(24 + number);
        document_->SetRange(0, 200);
        host::Object *input = Insert("Input");
        Insert("Hand");
        Animate(input, host::MakeId(host::kParamRelPosition, host::kVectorX), document_->Fps(),
                {{0, 0}, {20, 30.0 * number}, {50, -80}, {200, 400}});
    }
    // As a clone that is made for rendering.
    explicit Take(const Take &original)
        : number_(original.number_),
          document_(static_cast<host::Document *>(original.document_->Clone(host::kCopyDocument, nullptr))) {}

    void MakeTag() { ASSERT_NE(Find("Hand")->MakeTag(kTag), nullptr); }
    host::Container &State() { return Find("Hand")->FindTag(kTag)->Data(); }
    host::Document &Document() { return *document_; }

    // The first evaluation sets the tag up; then it follows the input.
    void SetUp() {
        Show(0);
        State().Set(kInput, host::Data::LinkTo(Find("Input")));
        State().SetReal(kSeed, 100 * number_ + 7);
        State().Set(kTriggers, host::Data("3, 30, 104"));
    }
    Shot Show(std::int64_t frame) {
        document_->SetFrame(frame);
        EXPECT_TRUE(host::ExecutePasses(document_.get(), true, true, true));
        return ShotOf(Find("Hand"));
    }

  private:
    host::Object *Insert(const char *name) {
        host::Object *camera = host::Object::Create(host::kTypeCamera).release();
        camera->SetName(name);
        document_->InsertObject(camera);
        return camera;
    }
    host::Object *Find(const char *name) { return document_->FindObject(name); }

    int number_;
    std::unique_ptr<host::Document> document_;
};

// Played from the start, jumped ahead, played on, jumped back.
std::vector<std::int64_t> Frames() {
    std::vector<std::int64_t> frames;
    for (std::int64_t frame = 0; frame <= 40; ++frame) frames.push_back(frame);
    for (std::int64_t frame = 100; frame <= 110; ++frame) frames.push_back(frame);
    for (const std::int64_t frame : {7, 8, 0, 1, 2}) frames.push_back(frame);
    return frames;
}

class Threads : public WithPresets {
  protected:
    Threads() {
        for (int i = 1; i <= 4; ++i)
            BuiltIn("1_A", std::to_string(i) + "_Shake" + std::to_string(i),
                    {{kPositionSlow, host::Data(0.2 * i)},
                     {kRotationSlow, host::Data(0.1 * i)},
                     {6037, host::Data(0.5)},
                     {6155, host::Data(0.3)}});
        BuiltIn("2_B", "1_Other", {{kPositionSlow, host::Data(3.5)}});
        MakeOld(Root());
    }
    // A new tag, made and set up where it is played.
    std::unique_ptr<Take> NewTake(int number) {
        auto take = std::make_unique<Take>(number);
        take->MakeTag();
        take->SetUp();
        return take;
    }
    // What documents `first`, `first` + `step`, ... show, frame by frame in turn, while others come and go.
    void PlayTakes(int first, int step, std::array<std::vector<Shot>, kDocuments> *shots) {
        std::vector<std::unique_ptr<Take>> takes;
        for (int number = first; number < kDocuments; number += step) takes.push_back(NewTake(number));
        for (const std::int64_t frame : Frames()) {
            for (std::size_t i = 0; i < takes.size(); ++i)
                (*shots)[static_cast<std::size_t>(first) + i * static_cast<std::size_t>(step)].push_back(
                    takes[i]->Show(frame));
            if (frame % 5 == 0) NewTake(first);
        }
    }
    // What a user does with presets, all of it, in the scene on the main thread.
    void UsePresets(const std::array<fs::path, 2> &still, const fs::path &busy) {
        for (const fs::path &folder : still) {
            Type(kFolderText, host::Data(folder.u8string()));
            Choose(kCategory, kAll);
            Choose(kPreset, 2);
            Press(kLucky);
        }
        Type(kFolderText, host::Data(busy.u8string()));
        Dialogs().AnswerText("Mine");
        Press(kSave);
        Choose(kCategory, kUser);
        Choose(kPreset, 0);
        Press(kDelete);
        Choose(kCategory, 1);
        Choose(kPreset, 0);
    }
};

// The judge locks at every call, and whoever takes turns at its lock does not race: the module shows its own races
// where there is none.
class ThreadsBeforeTheHost : public Threads, public testing::WithParamInterface<bool> {};

TEST_P(ThreadsBeforeTheHost, ShowInEachDocumentWhatOneThreadShows) {
    running_ = std::make_unique<RunningHost>(module_, GetParam() ? nullptr : host::Application::Table());
    Start();
    const std::array<fs::path, 2> still = {folder_.Path() / "still", folder_.Path() / "still too"};
    for (const fs::path &folder : still) {
        for (int i = 10; i < 30; ++i)
            WritePresetFile(folder / (std::to_string(i) + "_Mine"), PresetOf("Mine", {{kPositionSlow, host::Data(i)}}));
        MakeOld(folder);
    }
    const fs::path busy = folder_.Path() / "busy";
    fs::create_directories(busy);

    std::array<std::vector<Shot>, kDocuments> alone, together;
    PlayTakes(0, 1, &alone);
    std::atomic<int> playing{kThreads};
    std::vector<std::thread> threads;
    for (int first = 0; first < kThreads; ++first)
        threads.emplace_back([&, first] {
            PlayTakes(first, kThreads, &together);
            --playing;
        });
    int round = 0;
    do {
        UsePresets(still, busy);
        ++round;
        for (const fs::path &folder : still) MakeOld(folder, round);
    } while (playing > 0 && !HasFailure());
    for (std::thread &thread : threads) thread.join();

    EXPECT_FALSE(alone[0].back() == alone[1].back()) << "documents that differ";
    for (std::size_t number = 0; number < kDocuments; ++number) {
        ASSERT_EQ(together[number].size(), Frames().size());
        for (std::size_t i = 0; i < Frames().size(); ++i)
            ASSERT_TRUE(together[number][i] == alone[number][i]) << "document " << number << ", frame " << Frames()[i];
    }
}

INSTANTIATE_TEST_SUITE_P(Both, ThreadsBeforeTheHost, testing::Bool(),
                         [](const auto &test) { return test.param ? "Judged" : "Alone"; });

TEST_F(Threads, ShowInClonesWhatTheirOriginalShows) {
    Start();
    const std::unique_ptr<Take> original = NewTake(3);
    std::vector<Shot> expected;
    std::array<std::vector<Shot>, kThreads> shots;
    std::vector<std::thread> threads;
    std::vector<std::unique_ptr<Take>> clones;
    for (int i = 0; i < kThreads; ++i) clones.push_back(std::make_unique<Take>(*original));
    for (std::size_t i = 0; i < kThreads; ++i)
        threads.emplace_back([&, i] {
            Take copy_of_the_clone(*clones[i]);
            for (const std::int64_t frame : Frames()) shots[i].push_back(copy_of_the_clone.Show(frame));
        });
    for (const std::int64_t frame : Frames()) expected.push_back(original->Show(frame));
    for (std::thread &thread : threads) thread.join();
    for (const std::vector<Shot> &shown : shots) EXPECT_TRUE(shown == expected);
}

TEST_F(Threads, ImportWaitsForASetUpOnTheMainThread) {
    Start();
    const fs::path waiting = Imports() / "User" / "1_Gift";
    WritePresetFile(waiting, PresetOf("Gift", {{kPositionSlow, host::Data(0.4)}}));
    OnAnotherThread([&] { NewTake(0); });
    EXPECT_TRUE(IsPresetFile(waiting));
    EXPECT_EQ(NamesIn(UserFolder()), std::vector<std::string>{});
    NewTake(1);
    EXPECT_FALSE(fs::exists(waiting));
    EXPECT_EQ(NamesIn(UserFolder()), std::vector<std::string>{"1_Gift"});
}

TEST_F(Threads, OtherThanTheMainOneMakeNoFolders) {
    running_ = std::make_unique<RunningHost>(module_);
    OnAnotherThread([&] { NewTake(0); });
    EXPECT_FALSE(fs::exists(running_->UserFolder() / "plugins"));
    NewTake(1);
    EXPECT_TRUE(fs::is_directory(UserFolder()));
}

TEST_F(Threads, FindTheUsersPresetsWhereTheMainThreadSawThemLast) {
    Start();
    const fs::path mine = folder_.Path() / "mine";
    for (const char *name : {"00_One", "01_Two", "02_Three"}) WritePresetFile(mine / name, PresetOf(name, {}));
    Type(kFolderText, host::Data(mine.u8string()));
    std::int32_t count = 0;
    OnAnotherThread([&] { count = NewTake(0)->State().Whole(kLibraryCount); });
    EXPECT_EQ(count, 5 + 3);
}

TEST_F(Threads, SettingTagsUpLeaveTheButtonsRandomNumbers) {
    Start();
    std::uint32_t state = 1;
    const auto draw = [&] {
        state = state * 214013u + 2531011u;
        return state >> 16 & 0x7FFF;
    };
    Press(kRandomize);
    for (int skipped = 0; draw() != scene().Real(kSeed); ++skipped) ASSERT_LT(skipped, 1000);
    OnAnotherThread([&] { NewTake(0); });
    Press(kRandomize);
    EXPECT_EQ(scene().Real(kSeed), draw());
}

TEST_F(Threads, LuckyShowsEachPresetOnceInATagThatAnotherThreadSetUp) {
    Start();
    std::unique_ptr<Take> take;
    OnAnotherThread([&] { take = NewTake(0); });
    host::Tag *tag = take->Document().FindObject("Hand")->FindTag(kTag);
    for (int round = 0; round < 2; ++round) {
        std::set<double> seen;
        for (int i = 0; i < 5; ++i) {
            ASSERT_TRUE(host::PressButton(tag, host::MakeId(kLucky)));
            EXPECT_TRUE(seen.insert(take->State().Real(kPositionSlow)).second) << round << " " << i;
            EXPECT_EQ(take->State().Whole(3004, -1), i);
        }
    }
}

}  // namespace
