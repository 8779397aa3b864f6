// Shared by the tests of camera files.
#pragma once

#include <string>
#include <string_view>

#include "library/failure.h"
#include "library/formats/chan.h"
#include "library/formats/csv.h"
#include "library/formats/gltf.h"
#include "library/formats/json.h"
#include "library/formats/usda.h"

// The one line that a text is refused with; "accepted" when it is not, "status N: ..." for a status other than 2.
inline std::string RefusalOf(tremolux::CameraMove (*read)(const std::string &, std::string_view,
                                                          const tremolux::FormatOptions &),
                             std::string_view text) {
    try {
        read("move", text, {});
        return "accepted";
    } catch (const tremolux::Failure &failure) {
        const bool input = failure.Status() == tremolux::kExitInput;
        return (input ? "" : "status " + std::to_string(failure.Status()) + ": ") + failure.what();
    }
}

// t = (10, 150, -300) cm, heading 30, pitch -10, bank 5 degrees, 36 mm, focus at 500 cm.
inline tremolux::CameraSample ReferencePose() {
    tremolux::CameraSample pose;
    pose.position = {10, 150, -300};
    pose.angles = tremolux::operator*(host::Vector{30, -10, 5}, tremolux::kRadiansPerDegree);
    pose.focal_length = 36;
    pose.focus_distance = 500;
    return pose;
}
