// "I'm Feeling Lucky" in rounds: each preset once before any comes again, whatever happens to files and tags meanwhile.
#include <chrono>
#include <fstream>
#include <set>

#include "host/files/scenefile.h"
#include "host/ui/attribute_manager.h"
#include "tests/support/file_times.h"
#include "tests/tag/preset_bench.h"

namespace {

using namespace tag_test;
namespace fs = std::filesystem;
using Shown = std::multiset<double>;

constexpr std::int32_t kLuckyButton = 6041, kLuckyPosition = 3004;

class LuckyRound : public WithPresets {
  protected:
    // Told apart by their slow shake.
    LuckyRound() {
        for (int i = 1; i <= 5; ++i) BuiltIn("1_A", std::to_string(i) + "_Shake", Shake(i));
    }
    static Values Shake(double amount) { return {{kPositionSlow, host::Data(amount)}}; }
    double Next() { return Next(scene().tag); }
    static double Next(host::Tag *tag) {
        EXPECT_TRUE(host::PressButton(tag, host::MakeId(kLuckyButton)));
        return tag->Data().Real(kPositionSlow);
    }
    Shown NextOnes(int count) {
        Shown shown;
        for (int i = 0; i < count; ++i) shown.insert(Next());
        return shown;
    }
    void SaveMine(double amount) {
        scene().Set(kPositionSlow, amount);
        Dialogs().AnswerText("Mine");
        Press(kSave);
        ASSERT_EQ(NamesIn(UserFolder()).size(), 1u);
    }
    // A change of the file alone: its folder looks as it did.
    static void Rewrite(const fs::path &file, const host::Container &preset) {
        const auto before = fs::last_write_time(file.parent_path());
        const fs::path elsewhere = file.parent_path().parent_path().parent_path() / "rewritten";
        WritePresetFile(elsewhere, preset);
        std::ofstream(file, std::ios::binary) << std::ifstream(elsewhere, std::ios::binary).rdbuf();
        fs::remove(elsewhere);
        test_support::SetTime(file.parent_path(), before);
    }
    void MakeOld(const fs::path &path) {
        test_support::SetTime(path, fs::file_time_type::clock::now() - std::chrono::hours(3));
    }
};

TEST_F(LuckyRound, GoesOnAfterASaveAndHasTheNewOneInIt) {
    Start();
    Shown shown = NextOnes(3);
    SaveMine(9);
    shown.merge(NextOnes(3));
    EXPECT_EQ(shown, (Shown{1, 2, 3, 4, 5, 9}));
    EXPECT_EQ(NextOnes(6), (Shown{1, 2, 3, 4, 5, 9})) << "the next round has all of them";
}

TEST_F(LuckyRound, GoesOnWhereSomeWereDeleted) {
    Start();
    std::set<double> waiting{1, 2, 3, 4, 5};
    for (int i = 0; i < 2; ++i) waiting.erase(Next());
    const double gone = *waiting.begin();
    fs::remove(Root() / "1_A" / (std::to_string(static_cast<int>(gone)) + "_Shake"));
    waiting.erase(gone);
    EXPECT_EQ(NextOnes(2), Shown(waiting.begin(), waiting.end()));
    EXPECT_EQ(NextOnes(4).count(gone), 0u);
}

TEST_F(LuckyRound, GoesOnAfterTheShownOnesWereDeleted) {
    Start();
    std::set<double> waiting{1, 2, 3, 4, 5};
    for (int i = 0; i < 3; ++i) {
        const double shown = Next();
        waiting.erase(shown);
        fs::remove(Root() / "1_A" / (std::to_string(static_cast<int>(shown)) + "_Shake"));
    }
    EXPECT_EQ(NextOnes(2), Shown(waiting.begin(), waiting.end()));
    EXPECT_EQ(NextOnes(2), Shown(waiting.begin(), waiting.end())) << "the next round";
}

TEST_F(LuckyRound, GoesOnInADocumentThatWasSavedAndLoaded) {
    Start();
    Shown shown = NextOnes(2);
    const fs::path file = folder_.Path() / "scene.doc";
    std::string error;
    ASSERT_TRUE(host::SaveDocument(scene().document, file, &error)) << error;
    std::unique_ptr<host::Document> loaded = host::LoadDocument(file, &error);
    ASSERT_NE(loaded, nullptr) << error;
    scene_ = std::make_unique<Scene>(*running_, std::move(loaded));
    ASSERT_NE(scene().tag, nullptr);
    scene().Evaluate();
    shown.merge(NextOnes(3));
    EXPECT_EQ(shown, (Shown{1, 2, 3, 4, 5}));
}

TEST_F(LuckyRound, GoesOnInACopyOfTheTag) {
    Start();
    const Shown shown = NextOnes(2);
    std::unique_ptr<host::Node> copy(scene().tag->Clone(0, nullptr));
    ASSERT_NE(copy, nullptr);
    for (host::Tag *tag : {static_cast<host::Tag *>(copy.get()), scene().tag}) {
        Shown all = shown;
        for (int i = 0; i < 3; ++i) all.insert(Next(tag));
        EXPECT_EQ(all, (Shown{1, 2, 3, 4, 5}));
    }
}

TEST_F(LuckyRound, GoesBackWithUndo) {
    Start();
    Shown shown = NextOnes(2);
    Next();
    Next();
    for (int i = 0; i < 2; ++i) ASSERT_TRUE(scene().document->Undo().Undo());
    EXPECT_EQ(State().Whole(kLuckyPosition, -1), 1);
    shown.merge(NextOnes(3));
    EXPECT_EQ(shown, (Shown{1, 2, 3, 4, 5}));
}

TEST_F(LuckyRound, GoesOnWhereTheModuleLiesElsewhere) {
    Start();
    Shown shown = NextOnes(2);
    const fs::path file = folder_.Path() / "scene.doc";
    std::string error;
    ASSERT_TRUE(host::SaveDocument(scene().document, file, &error)) << error;
    scene_.reset();
    running_.reset();
    const fs::path elsewhere = folder_.Path() / "elsewhere";
    fs::create_directories(elsewhere);
    fs::rename(folder_.Path() / "plugins", elsewhere / "plugins");
    running_ = std::make_unique<RunningHost>(elsewhere / "plugins" / "TremoluxCam" / module_.filename());
    ASSERT_TRUE(running_->Started()) << running_->Error();
    std::unique_ptr<host::Document> loaded = host::LoadDocument(file, &error);
    ASSERT_NE(loaded, nullptr) << error;
    scene_ = std::make_unique<Scene>(*running_, std::move(loaded));
    scene().Evaluate();
    shown.merge(NextOnes(3));
    EXPECT_EQ(shown, (Shown{1, 2, 3, 4, 5}));
}

TEST_F(LuckyRound, TakesInWhatCouldNotBeReadAtFirst) {
    const fs::path late = Root() / "1_A" / "6_Late";
    std::ofstream(late, std::ios::binary) << "still being copied";
    MakeOld(Root() / "1_A");
    MakeOld(Root());
    Start();
    Shown shown = NextOnes(4);
    Rewrite(late, PresetOf("Late", Shake(6)));
    shown.merge(NextOnes(2));
    EXPECT_EQ(shown, (Shown{1, 2, 3, 4, 5, 6}));
}

TEST_F(LuckyRound, BeginsAsSoonAsThereIsAPreset) {
    fs::remove_all(Root());
    const fs::path late = Root() / "1_A" / "6_Late";
    fs::create_directories(late.parent_path());
    std::ofstream(late, std::ios::binary) << "still being copied";
    MakeOld(Root() / "1_A");
    MakeOld(Root());
    Start();
    Press(kLuckyButton);
    EXPECT_EQ(State().Whole(kLuckyPosition, -1), -1) << "there is none yet";
    Rewrite(late, PresetOf("Late", Shake(6)));
    EXPECT_EQ(Next(), 6);
    EXPECT_EQ(State().Whole(kLuckyPosition, -1), 0);
}

TEST_F(LuckyRound, KnowsPresetsOfTheSameFileNameApart) {
    BuiltIn("2_B", "1_Shake", Shake(7));
    Users("1_Shake", Shake(8));
    BuiltIn("User", "1_Shake", Shake(9));
    Start();
    EXPECT_EQ(NextOnes(8), (Shown{1, 2, 3, 4, 5, 7, 8, 9}));
}

TEST_F(LuckyRound, HasThePresetsOfTheUsersPresentFolderInIt) {
    Users("1_Mine", Shake(7));
    const fs::path other = folder_.Path() / "other";
    WritePresetFile(other / "1_Mine", PresetOf("Mine", Shake(8)));
    Start();
    Shown shown = NextOnes(6);
    EXPECT_EQ(shown.count(7), 1u);
    Type(kFolderText, host::Data(other.u8string()));
    EXPECT_EQ(Next(), 8) << "the one that this round has not shown";
}

// The draws of the module's one sequence, as many as went before; a share of a list is counted in single precision.
class Draws {
  public:
    std::int32_t operator()() {
        state_ = state_ * 214013u + 2531011u;
        return static_cast<std::int32_t>(state_ >> 16 & 0x7FFF);
    }
    std::vector<double> Shuffled(const std::vector<double> &list) {
        const std::size_t count = list.size();
        std::vector<double> slots(count, 0);
        for (const double entry : list) {
            std::size_t slot = count;
            while (slot >= count || slots[slot] != 0)
                slot = static_cast<std::size_t>(static_cast<float>((*this)()) / 32767.0f * static_cast<float>(count));
            slots[slot] = entry;
        }
        return slots;
    }

  private:
    std::uint32_t state_ = 1;
};

TEST_F(LuckyRound, IsShuffledByTheSequenceAndDrawsNothingButSeedsUntilTheNext) {
    Start();
    Draws draws;
    std::vector<double> order;
    // As the tag is made, set up, and set up again.
    for (int i = 0; i < 3; ++i) order = draws.Shuffled({1, 2, 3, 4, 5});
    for (int round = 0; round < 2; ++round) {
        for (int i = 0; i < 5; ++i) {
            if (round > 0 && i == 0) order = draws.Shuffled(order);
            EXPECT_EQ(Next(), order[static_cast<std::size_t>(i)]) << round << " " << i;
            EXPECT_EQ(scene().Real(kSeed), draws()) << round << " " << i;
            EXPECT_EQ(State().Whole(kLuckyPosition, -1), i);
        }
    }
}

// Scenes from before there was an order in them.
TEST_F(LuckyRound, BeginsAtTheSavedPositionWhereNoOrderWasSaved) {
    Start();
    State().Set(kLuckyPosition, host::Data(1));
    EXPECT_EQ(NextOnes(3).size(), 3u);
    EXPECT_EQ(State().Whole(kLuckyPosition, -1), 4);
    Next();
    EXPECT_EQ(State().Whole(kLuckyPosition, -1), 0);
}

TEST_F(LuckyRound, SurvivesAnyOrder) {
    Start();
    host::Container broken, twice, strange;
    broken.Set(0, host::Data(1.5));
    for (int i = 0; i < 3; ++i) twice.Set(i, host::Data("1_A/2_Shake"));
    for (int i = 0; i < 3; ++i) strange.Set(i, host::Data("nowhere/" + std::to_string(i)));
    const host::Data orders[] = {host::Data(7), host::Data(broken), host::Data(twice), host::Data(strange)};
    for (const host::Data &order : orders) {
        for (const std::int32_t position : {-7, -1, 0, 2, 9}) {
            State().Set(3007, order);
            State().Set(kLuckyPosition, host::Data(position));
            const Shown shown = NextOnes(5);
            for (const double amount : {1, 2, 3, 4, 5}) EXPECT_LE(shown.count(amount), 2u) << position;
            for (int i = 0; State().Whole(kLuckyPosition, -1) != 0; ++i, Next()) ASSERT_LT(i, 10) << position;
            Shown round{scene().Real(kPositionSlow)};
            round.merge(NextOnes(4));
            EXPECT_EQ(round, (Shown{1, 2, 3, 4, 5})) << position;
        }
    }
}

}  // namespace
