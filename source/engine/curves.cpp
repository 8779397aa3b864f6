#include "engine/curves.h"

#include <cstring>

namespace engine {

namespace {

std::uint64_t BitsOf(double value) {
    std::uint64_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

}  // namespace

std::uint64_t BentAmounts::PlaceOf(const CurveShape &shape, double amount) {
    // Odd numbers with scattered bits.
    constexpr std::uint64_t kOfShape = 0xD6E8FEB86659FD93u, kOfAmount = 0x9E3779B97F4A7C15u;
    std::uint64_t key = BitsOf(amount) ^ BitsOf(shape.end_left.x) * kOfShape;  // the shapes differ there
    key ^= key >> 32;  // round amounts differ in their first bits alone
    return key * kOfAmount >> (64 - kPlaceBits);
}

bool BentAmounts::Find(const CurveShape &shape, double amount, double *bent) const {
    const Known &known = known_[PlaceOf(shape, amount)];
    if (known.shape != &shape || known.amount != amount) return false;
    *bent = known.bent;
    return true;
}

void BentAmounts::Remember(const CurveShape &shape, double amount, double bent) {
    known_[PlaceOf(shape, amount)] = {&shape, amount, bent};
}

}  // namespace engine
