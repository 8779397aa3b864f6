// A scene unit is a centimetre.
#pragma once

namespace tremolux {

constexpr double kSceneUnitsPerMetre = 100;
constexpr double kMetresPerSceneUnit = 0.01;

}  // namespace tremolux
