// What a sensor that is read line by line does to the picture of a camera that turns.
#pragma once

#include "library/measures/strayed.h"

namespace tremolux {

// In pixels, over the whole height of the picture: the angular speed times the time of the readout times the pixels of a radian.
struct RollingShutter {
    Deviation shear;    // what turning to a side leans the picture by
    Deviation stretch;  // what turning up or down makes it taller or flatter by
};

// Of a picture `width` pixels wide, whose lines are read one after another within `readout` seconds. Turns are about the
// camera's own axes, from each frame to the next; the last frame has the speed of the one before. At least one frame.
RollingShutter MeasureRollingShutter(const CameraMove &move, double readout, int width);

}  // namespace tremolux
