#include <atomic>
#include <thread>

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

}  // namespace
