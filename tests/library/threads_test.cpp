#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "tests/library/support.h"

using namespace library_tests;

namespace {

constexpr std::size_t kShots = 32, kThreads = 4, kShotFrames = 40;

// From nothing to numbers: a preset of its own for each.
std::vector<double> FramesOf(std::size_t number) {
    const Shot shot = MakeShot(kShotFrames);
    const tremolux_preset preset = PresetAt(number * 2 % tremolux_preset_count());
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_apply_preset(shot.get(), preset.name)) << tremolux_last_error(shot.get());
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_set_text(shot.get(), ("Seed=" + std::to_string(number)).c_str()));
    return Played(shot, kShotFrames);
}

TEST(Threads, PlayShotsAsOneThreadDoes) {
    std::vector<std::vector<double>> results(kShots);
    std::atomic<std::size_t> next = 0;
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < kThreads; ++i) {
        threads.emplace_back([&] {
            for (std::size_t shot = next++; shot < kShots; shot = next++) results[shot] = FramesOf(shot);
        });
    }
    for (std::thread &thread : threads) thread.join();
    for (std::size_t i = 0; i < kShots; ++i) EXPECT_EQ(FramesOf(i), results[i]) << "shot " << i;
}

TEST(Threads, HaveErrorLinesOfTheirOwnUntilTheyEnd) {
    EXPECT_EQ(TREMOLUX_HANDLE, tremolux_shot_play(nullptr, nullptr, nullptr));
    const std::string line = tremolux_last_error(nullptr);
    std::vector<std::string> seen(kThreads);
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < kThreads; ++i) {
        threads.emplace_back([&seen, i] {
            tremolux_move move = nullptr;
            const std::string name = "a name that is longer than any small text " + std::to_string(i) + ".csv";
            EXPECT_EQ(TREMOLUX_INPUT, tremolux_move_from_bytes(name.c_str(), "", 0, &move));
            seen[i] = tremolux_last_error(nullptr);
        });
    }
    for (std::thread &thread : threads) thread.join();
    for (std::size_t i = 0; i < kThreads; ++i)
        EXPECT_NE(std::string::npos, seen[i].find("small text " + std::to_string(i) + ".csv")) << seen[i];
    EXPECT_EQ(line, tremolux_last_error(nullptr));
}

TEST(Threads, GetALineThatIsTooLongInWholeCharacters) {
    tremolux_move move = nullptr;
    const std::string accent = "\xC3\xA9";
    for (std::size_t before = 0; before < 2; ++before) {
        std::string name(before, 'x');
        for (int i = 0; i < 4000; ++i) name += accent;
        EXPECT_EQ(TREMOLUX_INPUT, tremolux_move_from_bytes((name + ".csv").c_str(), "", 0, &move));
        const std::string line = tremolux_last_error(nullptr);
        ASSERT_GT(line.size(), 1000U);
        EXPECT_LT(line.size(), name.size());
        EXPECT_EQ(accent, line.substr(line.size() - 2)) << before;
    }
}

}  // namespace
