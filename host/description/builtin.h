// The descriptions that the host itself has: of objects, cameras and documents, and what every tag begins with.
#pragma once

#include <cstdint>
#include <deque>
#include <string>

#include "host/description/description.h"

namespace host {

// Empty when the host has no description of that type of its own.
std::deque<Description::Entry> BuiltInEntries(std::int32_t type);
// The tag's basic parameters and its own tab, both under the description's id.
std::deque<Description::Entry> TagEntries(std::int32_t type, const std::string &name);

}  // namespace host
