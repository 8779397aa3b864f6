// Bytes that a caller gets and frees.
#pragma once

#include <string>

#include "tremolux/tremolux.h"

namespace tremolux {

tremolux_buffer NewBuffer(std::string bytes);

}  // namespace tremolux
