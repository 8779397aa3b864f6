// The cameras of a layer, and the one that is wanted.
#pragma once

#include <string>
#include <vector>

#include "library/formats/usd/layer.h"

namespace tremolux {

struct UsdCamera {
    std::vector<const UsdPrim *> chain;  // from a prim of the layer down to the camera
    std::string path;                    // "/World/Camera"
    const UsdPrim &Prim() const { return *chain.back(); }
};

// By its path or name, or the only one where `wanted` is empty. Throws a Failure that lists what there is.
UsdCamera FindCamera(const SourceText &source, const UsdLayer &layer, const std::string &wanted);

}  // namespace tremolux
