#include "library/parameters/name_seed.h"

namespace tremolux {

std::string SeedOfName(std::string_view name) {
    std::uint64_t hash = 14695981039346656037ULL;
    for (const char c : name) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
    return std::to_string(hash % static_cast<std::uint64_t>(kMaxSeed + 1));
}

}  // namespace tremolux
