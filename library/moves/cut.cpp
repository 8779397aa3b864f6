#include "library/moves/cut.h"

namespace tremolux {

CameraMove CutMove(const CameraMove &move, std::int64_t first_frame, std::int64_t last_frame) {
    // Samples and channels are copied in part alone: a long move is cut into many.
    CameraMove part;
    part.rate = move.rate;
    part.aperture_width = move.aperture_width;
    part.aperture_height = move.aperture_height;
    part.traits.path = move.traits.path;
    part.traits.is_orthographic = move.traits.is_orthographic;
    part.traits.stage = move.traits.stage;
    part.notes = move.notes;
    const std::ptrdiff_t begin = first_frame - move.first_frame, end = last_frame - move.first_frame + 1;
    part.first_frame = first_frame;
    part.samples.assign(move.samples.begin() + begin, move.samples.begin() + end);
    for (std::size_t i = 0; i < move.traits.channels.size(); ++i) {
        const std::vector<double> &values = move.traits.channels[i];
        if (values.size() > 1)
            part.traits.channels[i].assign(values.begin() + begin, values.begin() + end);
        else
            part.traits.channels[i] = values;
    }
    return part;
}

}  // namespace tremolux
