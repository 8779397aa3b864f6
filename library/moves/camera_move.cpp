#include "library/moves/camera_move.h"

#include "host/scene/angles.h"

namespace tremolux {

void MakeContinuous(std::vector<CameraSample> *samples) {
    for (std::size_t i = 1; i < samples->size(); ++i) {
        (*samples)[i].angles = host::OptimalAngle((*samples)[i - 1].angles, (*samples)[i].angles);
    }
}

}  // namespace tremolux
