// From what a sensor recorded to rotations of the camera: integrated on the sphere, levelled by gravity, and between samples.
#pragma once

#include <vector>

#include "library/gyro/gyro_log.h"

namespace tremolux {

// Begins upright, at the first rate; each step turns by the mean rate over it, less the bias (radians a second).
std::vector<GyroOrientation> Integrated(const std::vector<GyroSample> &rates, const Eigen::Vector3d &bias);

// At a time, on the shorter way between two orientations; the first and the last beyond them. There must be one.
Eigen::Quaterniond OrientationAt(const std::vector<GyroOrientation> &orientations, double time);

// `ups` point up on the camera's axes, but for what shakes them. Their mean over about `seconds` on both sides, seen from
// the orientations' world, is turned to y by the shortest way: what drifts slowly is pitch and bank, heading stays as it is.
// Nothing changes where they do not agree on any direction.
void LevelSlowly(const std::vector<GyroSample> &ups, double seconds, std::vector<GyroOrientation> *orientations);
// The same with one turn for all.
void LevelOnce(const std::vector<GyroSample> &ups, std::vector<GyroOrientation> *orientations);

}  // namespace tremolux
