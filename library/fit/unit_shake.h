// What each layer of the noise makes of each axis at weight 1, learned from the module.
#pragma once

#include <array>
#include <map>
#include <utility>
#include <vector>

#include "library/fit/balance.h"
#include "library/fit/players.h"

namespace tremolux {

// How the clock of the shake runs.
struct Pace {
    double speed, variation;  // fractions
    bool operator<(const Pace &other) const {
        return speed != other.speed ? speed < other.speed : variation < other.variation;
    }
};

// The powers of a group's layers.
struct GroupPowers {
    LayerPowers position, rotation;  // position: 100 %, rotation: 1 degree
};

class UnitShake {
  public:
    UnitShake(Players *players, int seeds);
    // Plays what is not known yet: each layer alone, unsmoothed, with several seeds.
    void Learn(const std::vector<Pace> &paces);
    // At a pace that was learned, with Shake Smooth: the filter's gain acts on the spectra.
    GroupPowers At(const Pace &pace, double smooth) const;

  private:
    // Mean squares at the frequencies of `step_`.
    struct LayerSpectrum {
        std::vector<double> power;
        double drift = 0;
    };
    using LayerSpectra = std::array<std::array<LayerSpectrum, kLayers>, kAxes>;
    Players *players_;
    int seeds_;
    double step_ = 0;  // hertz
    std::map<Pace, LayerSpectra> known_;
};

}  // namespace tremolux
