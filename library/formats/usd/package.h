// The package of scene descriptions (.usdz): a zip without compression whose first file is the layer.
#pragma once

#include <string>
#include <string_view>

namespace tremolux {

struct PackagedFile {
    std::string name;
    std::string_view bytes;  // of the package
};

bool IsUsdPackage(std::string_view bytes);
// `file` is the name for messages. Throws a Failure.
PackagedFile FirstFileOf(const std::string &file, std::string_view bytes);

}  // namespace tremolux
