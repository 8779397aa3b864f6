// Names and codes of glTF 2.0 that are read and written.
#pragma once

namespace tremolux {

constexpr unsigned kGltfFloat = 5126;  // componentType
constexpr const char *kAnimationPointer = "KHR_animation_pointer";

}  // namespace tremolux
