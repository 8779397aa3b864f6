// The fast part of a recording as a shake of any length.
#pragma once

#include <cstddef>
#include <vector>

#include "library/moves/camera_move.h"
#include "library/moves/turns.h"

namespace tremolux {

// About the axes of the camera that is shaken: x right, y up, z forward.
struct TakenShake {
    Eigen::Vector3d position{0, 0, 0};  // scene units
    TurnVector turn{0, 0, 0};
};

class Take {
  public:
    // What is quicker than `hertz` in the recording. `arm`, in scene units, is how far the camera is held in front of what it
    // turns about: a recording that knows no positions gets those of its turns. Throws a Failure for less than half a second.
    Take(const CameraMove &recording, double hertz, double arm);

    double Seconds() const;  // of the recording
    // At any time from 0 on, by a smooth curve through the frames. Behind its end the take comes again, as in a mirror (left is
    // right), and so on; where two follow each other, one goes as the other comes, by weights that keep the power of what
    // has nothing to do with each other. Neither value nor speed leaps.
    TakenShake At(double seconds) const;

  private:
    TakenShake Inside(double seconds) const;
    std::vector<TakenShake> frames_;
    double rate_, fade_;  // frames a second; seconds
};

struct TakeOptions {
    double amount = 1;  // of the shake, 0 or more
    double speed = 1;   // how fast it is played, more than 0: amplitudes stay
};

// The move with the take on it, from its first frame on.
CameraMove PutOn(const CameraMove &move, const Take &take, const TakeOptions &options);

}  // namespace tremolux
