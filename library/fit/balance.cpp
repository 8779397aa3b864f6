#include "library/fit/balance.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace tremolux {
namespace {

constexpr double kNoPower = 1e-300;
// What the RMS of an axis as a whole, and too much of a drift, count beside its bands, which count 1.
constexpr double kTotalWeight = 0.5, kDriftWeight = 1;
// Logarithms of the medium and the fast layer's strength against the slow one's, each taken at its own power: the search
// begins with a grid and halves its step around the best.
constexpr double kFurthestBalance = 9;
constexpr int kGridSide = 19, kHalvings = 7;

using Terms = std::array<std::pair<double, double>, kTerms>;  // value, weight

// The least sum of weights * |value - x| is there.
double WeightedMedian(Terms terms) {
    std::sort(terms.begin(), terms.end());
    double half = 0;
    for (const auto &term : terms) half += term.second / 2;
    double sum = 0;
    for (const auto &[value, weight] : terms) {
        sum += weight;
        if (weight > 0 && sum >= half) return value;
    }
    return 0;
}

bool IsStill(const AxisWish &wish) {
    return std::all_of(wish.weights.begin(), wish.weights.end(), [](double weight) { return weight == 0; });
}

class Search {
  public:
    Search(const LayerPowers &powers, const GroupWish &wish, double most) : powers_(powers), wish_(wish), most_(most) {
        for (std::size_t layer = 0; layer < kLayers; ++layer) {
            double sum = 0;
            for (std::size_t axis = 0; axis < kGroupAxes; ++axis) sum += powers[axis][layer][kTotalTerm];
            units_[layer] = sum > 0 ? 1 / std::sqrt(sum) : 0;
        }
    }

    Balance Best() const {
        std::array<double, 2> middle{};
        double step = 2 * kFurthestBalance / (kGridSide - 1);
        Balance best = At(middle);
        const auto try_at = [&](const std::array<double, 2> &place, std::array<double, 2> *better) {
            const Balance tried = At(place);
            if (tried.loss >= best.loss) return;
            best = tried;
            *better = place;
        };
        std::array<double, 2> better = middle;
        for (int i = 0; i < kGridSide; ++i)
            for (int j = 0; j < kGridSide; ++j) try_at({i * step - kFurthestBalance, j * step - kFurthestBalance}, &better);
        for (int halving = 0; halving < kHalvings; ++halving) {
            step /= 2;
            middle = better;
            for (int i = -2; i <= 2; ++i)
                for (int j = -2; j <= 2; ++j) try_at({middle[0] + i * step, middle[1] + j * step}, &better);
        }
        return best;
    }

  private:
    // The amplitudes that suit these weights, and the loss with them.
    void Solve(Balance *balance) const {
        balance->loss = 0;
        for (std::size_t axis = 0; axis < kGroupAxes; ++axis) {
            balance->amplitudes[axis] = 0;
            if (IsStill(wish_[axis])) continue;
            Terms terms;
            for (std::size_t term = 0; term < kTerms; ++term) {
                double power = 0;
                for (std::size_t layer = 0; layer < kLayers; ++layer)
                    power += balance->weights[layer] * balance->weights[layer] * powers_[axis][layer][term];
                terms[term] = {wish_[axis].log_rms[term] - 0.5 * std::log(std::max(power, kNoPower)),
                               wish_[axis].weights[term]};
            }
            const auto [room, drift_weight] = std::exchange(terms[kDriftTerm], {0, 0});
            const double median = WeightedMedian(terms);
            balance->amplitudes[axis] = std::exp(median);
            for (const auto &[value, weight] : terms) balance->loss += weight * std::abs(value - median);
            balance->loss += drift_weight * std::max(0.0, median - room);
        }
    }

    Balance At(const std::array<double, 2> &place) const {
        Balance balance;
        balance.weights = {units_[0], units_[1] * std::exp(place[0]), units_[2] * std::exp(place[1])};
        Solve(&balance);
        // A layer that would leave its slider stays at its end, and the others make up for it as they can.
        for (int round = 0; round < 2; ++round) {
            const double largest = *std::max_element(balance.amplitudes.begin(), balance.amplitudes.end());
            bool is_cut = false;
            for (double &weight : balance.weights) {
                is_cut = is_cut || weight * largest > most_ * (1 + 1e-12);
                if (largest > 0) weight = std::min(weight, most_ / largest);
            }
            if (!is_cut) return balance;
            Solve(&balance);
        }
        const double largest = *std::max_element(balance.amplitudes.begin(), balance.amplitudes.end()),
                     weight = *std::max_element(balance.weights.begin(), balance.weights.end());
        if (weight * largest > most_ * (1 + 1e-9)) balance.loss = std::numeric_limits<double>::max();
        return balance;
    }

    const LayerPowers &powers_;
    const GroupWish &wish_;
    const double most_;
    std::array<double, kLayers> units_{};
};

}  // namespace

GroupWish WishOf(const ShakeLevels &wanted, std::size_t first_axis) {
    GroupWish wish;
    for (std::size_t i = 0; i < kGroupAxes; ++i) {
        const AxisLevels &axis = wanted[first_axis + i];
        if (axis.IsStill()) continue;
        for (std::size_t band = 0; band < kFitBands.size(); ++band) {
            if (!IsJudged(axis, band)) continue;
            wish[i].log_rms[band] = std::log(axis.bands[band]);
            wish[i].weights[band] = 1;
        }
        wish[i].log_rms[kTotalTerm] = std::log(axis.total);
        wish[i].weights[kTotalTerm] = kTotalWeight;
        wish[i].log_rms[kDriftTerm] = std::log(kMostDrift * std::max(axis.bands[0], kNoPower));
        wish[i].weights[kDriftTerm] = kDriftWeight;
    }
    return wish;
}

Balance FindBalance(const LayerPowers &powers, const GroupWish &wish, double most) {
    if (std::all_of(wish.begin(), wish.end(), IsStill)) return {};
    return Search(powers, wish, most).Best();
}

}  // namespace tremolux
