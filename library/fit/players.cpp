#include "library/fit/players.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>

#include "generated/module_ids.h"
#include "host/value/descid.h"
#include "library/parameters/settings.h"
#include "library/presets/pair.h"

namespace tremolux {
namespace {

constexpr unsigned kMostPlayers = 16;

CameraMove StillCamera(FrameRate rate, std::size_t frames) {
    CameraMove move;
    move.rate = rate;
    move.samples.resize(frames);
    return move;
}

}  // namespace

Players::Players(FrameRate rate, std::size_t frames, int cameras) : rate_(rate), frames_(frames) {
    const unsigned count = std::clamp(std::thread::hardware_concurrency(), 1U, kMostPlayers);
    const CameraMove still = StillCamera(rate, frames);
    for (unsigned i = 0; i < count; ++i) {
        stages_.push_back(std::make_unique<Stage>(still));
        if (cameras > 1) FollowExactly(stages_.back()->AddSecondCamera());
    }
}

void Players::ForEach(std::size_t pieces, const std::function<void(std::size_t, Stage *)> &play) {
    std::atomic<std::size_t> next{0};
    std::exception_ptr failure;
    std::mutex lock;
    const auto work = [&](Stage *stage) {
        try {
            for (std::size_t piece = next++; piece < pieces; piece = next++) play(piece, stage);
        } catch (...) {
            const std::lock_guard<std::mutex> hold(lock);
            failure = std::current_exception();
            next = pieces;
        }
    };
    std::vector<std::thread> threads;
    try {
        for (std::size_t i = 1; i < stages_.size(); ++i) threads.emplace_back(work, stages_[i].get());
    } catch (const std::system_error &) {
        // A system that gives no more threads has fewer players.
    }
    work(stages_.front().get());
    for (std::thread &thread : threads) thread.join();
    if (failure) std::rethrow_exception(failure);
}

void Players::SetAll(const std::vector<std::string> &settings) {
    for (const auto &stage : stages_) ApplySettings(settings, rate_.Whole(), &stage->CameraTag());
}

void Players::SetSecond(const std::vector<std::string> &settings) {
    for (const auto &stage : stages_) {
        ApplySettings(settings, rate_.Whole(), stage->SecondTag());
        FollowExactly(stage->SecondTag());
    }
}

AxisMotion Players::Take(Stage *stage) const {
    CameraMove move = StillCamera(rate_, frames_);
    for (std::size_t i = 0; i < frames_; ++i) {
        stage->PlayFrame(static_cast<std::int64_t>(i));
        move.samples[i] = stage->Output();
    }
    return MotionOfAxes(move);
}

std::vector<ShakeLevels> Players::LevelsOfTakes(int first_seed, int takes) {
    std::vector<ShakeLevels> levels(static_cast<std::size_t>(takes));
    ForEach(levels.size(), [&](std::size_t piece, Stage *stage) {
        const int seed = first_seed + static_cast<int>(piece);
        stage->CameraTag().SetParameter(host::MakeId(ids::kSeed), host::Data(seed));
        if (stage->SecondTag() != nullptr)
            stage->SecondTag()->SetParameter(host::MakeId(ids::kSeed), host::Data(seed + kSecondSeed));
        levels[piece] = MeasureLevels({Take(stage)}, rate_.PerSecond());
    });
    return levels;
}

ShakeLevels Players::Levels(int first_seed, int takes) {
    return MeanLevels(LevelsOfTakes(first_seed, takes));
}

}  // namespace tremolux
