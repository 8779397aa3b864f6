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

CameraTraits CameraTraits::Part(std::size_t index, std::size_t count) const {
    CameraTraits part = *this;
    for (std::vector<double> &values : part.channels) {
        if (values.size() <= 1) continue;
        const auto begin = values.begin() + static_cast<std::ptrdiff_t>(index);
        values = std::vector<double>(begin, begin + static_cast<std::ptrdiff_t>(count));
    }
    return part;
}

std::string CameraTraits::Name() const {
    return path.empty() ? "Camera" : path.substr(path.find_last_of('/') + 1);
}

}  // namespace tremolux
