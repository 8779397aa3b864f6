// What files say of a camera beside its motion: not used here, but carried from what is read to what is written.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace tremolux {

enum TraitChannel {
    kHorizontalOffset,  // of the film back, as a lens shift has it: millimetres, to the right
    kVerticalOffset,    // the same, up
    kFStop,             // 0: everything is sharp
    kNearClip,          // scene units
    kFarClip,
    kShutterOpen,  // frames, from the frame's own time
    kShutterClose,
    kTraitChannelCount
};

struct TraitChannelInfo {
    const char *words;  // in messages
    const char *key;    // in files of this project's own
};
const TraitChannelInfo &InfoOf(TraitChannel channel);

// Of the stage that a camera was read from: what a layer over it must be written in.
struct StageTraits {
    double metres_per_unit = 0.01;
    bool is_z_up = false;
    double codes_per_frame = 1;  // time codes
    double lens_unit_mm = 1;     // that its lens values are written in
    std::vector<std::string> camera_ops = {};  // the names of what places the camera, the outermost first
};

struct CameraTraits {
    // Names from the root down, each behind a slash: "/World/Shot/Camera"; empty where the file says none.
    std::string path;
    bool is_orthographic = false;
    std::optional<StageTraits> stage = std::nullopt;
    // Nothing where the file says nothing, one number that holds for all frames, or one for each frame.
    std::array<std::vector<double>, kTraitChannelCount> channels;

    bool Has(TraitChannel channel) const { return !channels[channel].empty(); }
    bool IsAnimated(TraitChannel channel) const { return channels[channel].size() > 1; }
    // On the move's frame number `index`, counted from 0.
    double At(TraitChannel channel, std::size_t index, double fallback) const;
    // The last name of the path; "Camera" without one.
    std::string Name() const;
};

// What a format has a place for: bits of TraitChannel, and these.
using TraitSet = unsigned;
constexpr TraitSet TraitBit(TraitChannel channel) { return 1U << channel; }
constexpr TraitSet kPathTrait = 1U << kTraitChannelCount, kProjectionTrait = 2U << kTraitChannelCount,
                   kApertureHeightTrait = 4U << kTraitChannelCount;
constexpr TraitSet kAllTraits = (8U << kTraitChannelCount) - 1;

}  // namespace tremolux
