// The keys of a camera as text.
#pragma once

#include <string>
#include <vector>

#include "library/shots/keys.h"

namespace tremolux {

// A table with a line for each: the parameter's name, the frame, the value as it is stored.
std::string KeysTable(const std::vector<ListedKey> &keys);

}  // namespace tremolux
