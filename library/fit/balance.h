// How strong the three layers of a group (the position's or the rotation's) have to be, so that its axes have the levels
// that are wanted.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "library/fit/levels.h"

namespace tremolux {

constexpr std::size_t kLayers = 3, kGroupAxes = 3;
// The bands of an axis, and behind them all of it, and its drift.
constexpr std::size_t kTotalTerm = kFitBands.size(), kDriftTerm = kTotalTerm + 1, kTerms = kDriftTerm + 1;
using TermPowers = std::array<double, kTerms>;

// Mean squares that each layer has at weight 1, for each axis.
using LayerPowers = std::array<std::array<TermPowers, kLayers>, kGroupAxes>;

struct AxisWish {
    TermPowers log_rms{};  // natural logarithms
    TermPowers weights{};  // what each term counts, all 0: the axis is still; the drift counts where it is more than wanted
};
using GroupWish = std::array<AxisWish, kGroupAxes>;
// Of the position's axes (`first_axis` 0) or the rotation's (3).
GroupWish WishOf(const ShakeLevels &wanted, std::size_t first_axis);

struct Balance {
    std::array<double, kLayers> weights{};        // of the layers
    std::array<double, kGroupAxes> amplitudes{};  // of the axes: factors of the weights
    double loss = 0;                              // weighted sum of |ln(found / wanted)|
};

// `most` is the largest product of weight and amplitude that the sliders reach. Of the layers' weights the best are searched
// for; the amplitudes that go with them are the weighted medians of the logarithms, in closed form.
Balance FindBalance(const LayerPowers &powers, const GroupWish &wish, double most);

}  // namespace tremolux
