// What a handle of a move stands for.
#pragma once

#include "library/interface/handles.h"
#include "library/moves/camera_move.h"
#include "tremolux/tremolux.h"

namespace tremolux {

struct MoveTarget : HandleTarget {
    static constexpr const char *kName = "move";
    static constexpr bool kIsWaitedFor = true;
    explicit MoveTarget(CameraMove given) : move(std::move(given)) {}
    const CameraMove move;
};

tremolux_move NewMove(CameraMove move);
// Throws a Refusal when there is no room for all.
void WriteNumbers(const std::vector<CameraSample> &samples, double *numbers, std::size_t count);

}  // namespace tremolux
