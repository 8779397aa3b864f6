// Files do not say their units: a move that no camera makes is asked about.
#pragma once

#include "library/moves/camera_move.h"

namespace tremolux {

// How the user would read the file in another unit.
struct UnitAdvice {
    const char *length, *angle, *lens;  // the options
};

// At most one note, for the first of these: a picture that is turned by more than its own width from frame to frame; a way
// below 1 cm that takes a second or more, above 10 km, or at more than 100 m a second; a focus that never leaves the 10 cm
// before the lens; an angle of view above 150 or below 0.4 degrees. A camera that stands or only trembles is right.
void AskAboutUnits(const UnitAdvice &advice, CameraMove *move);

}  // namespace tremolux
