#include "library/moves/camera_traits.h"

namespace tremolux {

const TraitChannelInfo &InfoOf(TraitChannel channel) {
    static constexpr TraitChannelInfo kInfos[kTraitChannelCount] = {
        {"horizontal lens shift", "film_back_offset_x"},
        {"vertical lens shift", "film_back_offset_y"},
        {"f-stop", "f_stop"},
        {"near clipping", "near_clip"},
        {"far clipping", "far_clip"},
        {"shutter opening", "shutter_open"},
        {"shutter closing", "shutter_close"},
    };
    return kInfos[channel];
}

double CameraTraits::At(TraitChannel channel, std::size_t index, double fallback) const {
    const std::vector<double> &values = channels[channel];
    if (values.empty()) return fallback;
    return values.size() == 1 ? values.front() : values[index];
}

std::string CameraTraits::Name() const {
    return path.empty() ? "Camera" : path.substr(path.find_last_of('/') + 1);
}

}  // namespace tremolux
