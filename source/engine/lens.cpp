#include "engine/lens.h"

#include "engine/operations.h"

namespace engine {

double FollowLens(Channel channel, double goal, double smooth, const Swing &swing, Operations *operations,
                  RealFilter *filter, Spring *spring) {
    const Coefficients c = operations->InputSmoothing(smooth);
    RealFilter next = {operations->SmoothCarry(c, filter->carry, filter->value, goal),
                       operations->SmoothValue(c, filter->carry, filter->value, goal)};
    if (!IsFinite(next.carry) || !IsFinite(next.value)) next = {0.0, goal};
    next.value = OvershootOrRest(channel, {next.value, 0.0, 0.0}, swing, operations, spring, nullptr).x;
    *filter = next;
    return next.value;
}

}  // namespace engine
