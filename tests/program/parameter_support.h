// A small panel of parameters, one of each kind, for tests of look-up and values.
#pragma once

#include <vector>

#include "library/parameters/parameter.h"

inline std::vector<tremolux::Parameter> ExamplePanel() {
    using Kind = tremolux::ParameterKind;
    using Unit = tremolux::ParameterUnit;
    return {{10, "Shake Speed", Kind::kReal, Unit::kPercent, 0.0, {}, {}},
            {11, "Overshoot Fade", Kind::kReal, Unit::kPercent, 0.0, 1.0, {}},
            {12, "Overshoot Fade", Kind::kReal, Unit::kPercent, 0.0, 1.0, {}},
            {13, "Rotation Slow", Kind::kReal, Unit::kDegrees, {}, {}, {}},
            {14, "Seed", Kind::kReal, Unit::kNone, 0.0, 99999.0, {}},
            {15, "Time Offset", Kind::kReal, Unit::kFrames, {}, {}, {}},
            {16, "Zoom", Kind::kBool, Unit::kNone, {}, {}, {}},
            {17, "Interval", Kind::kTime, Unit::kNone, 0.0, {}, {}},
            {18, "Custom Trigger", Kind::kText, Unit::kNone, {}, {}, {}},
            {19, "Preset", Kind::kChoice, Unit::kNone, {}, {}, {{3, "Calm"}, {4, "Wild"}}},
            {20, "Target Object", Kind::kLink, Unit::kNone, {}, {}, {}},
            {21, "Save", Kind::kButton, Unit::kNone, {}, {}, {}},
            {22, "", Kind::kText, Unit::kNone, {}, {}, {}},
            {23, "Ceiling", Kind::kReal, Unit::kDegrees, {}, 1.5707963267948966, {}}};
}
