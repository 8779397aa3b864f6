// The gradients at the corners of lattice cells that were asked for lately. Samples of one place that creeps through
// time stay in a cell for many frames, and to find its gradients takes longer than to use them.
#pragma once

#include <atomic>
#include <cstdint>

namespace host::noise {

// Of the 16 corners of a cell, a byte each: where the gradient begins in its table. In the order of who keeps them.
struct Corners {
    std::uint64_t low, high;
};

// By the key of the cell, which all of its corners follow from. Threads share it without waiting for each other: halves
// that two of them wrote at once do not fit together, and are found anew.
class KnownCorners {
  public:
    // What `find` says of the key, now or before.
    template <typename Find>
    Corners At(std::uint64_t key, Find find) {
        Cell &cell = cells_[key >> (64 - kBits)];
        Corners corners = {cell.low.load(std::memory_order_relaxed), cell.high.load(std::memory_order_relaxed)};
        // Before anything is known all is 0, as if it were of the key 0.
        if ((cell.check.load(std::memory_order_relaxed) ^ corners.low ^ corners.high) == key && key != 0)
            return corners;
        corners = find(key);
        cell.check.store(key ^ corners.low ^ corners.high, std::memory_order_relaxed);
        cell.low.store(corners.low, std::memory_order_relaxed);
        cell.high.store(corners.high, std::memory_order_relaxed);
        return corners;
    }

  private:
    static constexpr int kBits = 10;
    struct Cell {
        std::atomic<std::uint64_t> check, low, high;  // check: the key and both halves, by exclusive or
    };
    Cell cells_[1 << kBits];
};

}  // namespace host::noise
