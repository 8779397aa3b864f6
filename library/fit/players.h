// Takes of a camera that stands still, played through the module on every core.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "library/fit/levels.h"
#include "library/moves/frame_rate.h"
#include "library/shots/stage.h"

namespace tremolux {

// How far a second camera's seed is from the first one's.
constexpr int kSecondSeed = 50000;

// In the running host, one stage for each core.
class Players {
  public:
    // `cameras` is 1, or 2 for a second one behind the first. Throws a Failure.
    Players(FrameRate rate, std::size_t frames, int cameras = 1);

    // Calls `play` for each piece, with a stage that no other piece uses meanwhile, whose tag keeps what it was set to.
    // Throws what it throws.
    void ForEach(std::size_t pieces, const std::function<void(std::size_t piece, Stage *stage)> &play);
    // Puts the same settings into every stage.
    void SetAll(const std::vector<std::string> &settings);
    void SetSecond(const std::vector<std::string> &settings);  // the same for the second cameras
    Stage &First() { return *stages_.front(); }
    std::size_t Count() const { return stages_.size(); }
    const std::vector<std::unique_ptr<Stage>> &Stages() const { return stages_; }
    FrameRate Rate() const { return rate_; }
    std::size_t Frames() const { return frames_; }

    // What the tag adds to the still camera, from the first frame on.
    AxisMotion Take(Stage *stage) const;
    // Levels of so many takes with the settings that the stages have, one seed after the other.
    ShakeLevels Levels(int first_seed, int takes);
    // Of each of those takes alone.
    std::vector<ShakeLevels> LevelsOfTakes(int first_seed, int takes);

  private:
    FrameRate rate_;
    std::size_t frames_;
    std::vector<std::unique_ptr<Stage>> stages_;
};

}  // namespace tremolux
