// The keys of a camera as text.
#pragma once

#include <string>
#include <vector>

#include "library/shots/keys.h"

namespace tremolux {

// A table with a line for each: the parameter's name, the frame, the value as it is stored.
std::string KeysTable(const std::vector<ListedKey> &keys);
// The same as one JSON object, with the parameters' ids.
std::string KeysJson(const std::string &camera, int frames_per_second, const std::vector<ListedKey> &keys);

}  // namespace tremolux
