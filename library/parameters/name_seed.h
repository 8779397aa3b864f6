// A seed for a shot that nobody gave one.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tremolux {

constexpr std::int64_t kMaxSeed = 99999;

// FNV-1a of 64 bits, within 0 to 99999: the same name has the same seed on every machine, for ever.
std::string SeedOfName(std::string_view name);

}  // namespace tremolux
