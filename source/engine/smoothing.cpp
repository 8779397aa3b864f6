#include "engine/smoothing.h"

#include "engine/numbers.h"
#include "engine/operations.h"

namespace engine {

namespace {

constexpr double kMostKept = 0.95;
constexpr double kLeastDamping = 0.15;
constexpr double kMostShakeDamping = 0.25;

}  // namespace

Coefficients InputSmoothing(double amount, Operations *operations) {
    double bent;
    const bool is_known = operations->Bend(Held01(amount), kSmoothingAmountCurve, &bent) &&
                          operations->Bend(bent, kSmoothingCurve, &bent);
    if (!is_known) return {0.0, 1.0};
    return {kMostKept * bent, kLeastDamping + (1.0 - kLeastDamping) * bent};
}

Coefficients ShakeSmoothing(double amount, Operations *operations) {
    double bent;
    if (!operations->Bend(Held01(amount), kShakeSmoothingCurve, &bent)) return {0.0, 1.0};
    return {kMostKept * bent, kMostShakeDamping * bent};
}

Vector3 Filter(const Coefficients &c, const Vector3 &goal, bool restart, Operations *operations, VectorFilter *filter) {
    VectorFilter next = {Vector3(), goal};
    if (!restart) {
        next.carry = operations->SmoothCarry(c, filter->carry, filter->value, goal);
        next.value = operations->SmoothValue(c, filter->carry, filter->value, goal);
        if (!IsFinite(next.carry) || !IsFinite(next.value)) next = {Vector3(), goal};
    }
    *filter = next;
    return next.value;
}

Vector3 FilterShake(double smooth, const Vector3 &raw, bool restart, Operations *operations, VectorFilter *filter) {
    if (!IsFinite(raw)) {
        *filter = VectorFilter();
        return Vector3();
    }
    return Filter(operations->ShakeSmoothing(smooth), raw, restart, operations, filter);
}

}  // namespace engine
