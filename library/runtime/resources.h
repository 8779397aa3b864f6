// The module's folder, brought along: the build writes its files into the library.
#pragma once

#include <string_view>
#include <vector>

namespace tremolux {

struct Resource {
    const char *name;  // its path below the module's folder
    std::string_view bytes;
};

const std::vector<Resource> &Resources();

}  // namespace tremolux
