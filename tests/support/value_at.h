// Plain values in the bytes of a file.
#pragma once

#include <cstdint>
#include <cstring>
#include <optional>
#include <string>

namespace test_support {

// Nothing where the bytes end before the value does.
template <class T>
std::optional<T> ValueAt(const std::string &bytes, std::uint64_t offset) {
    if (offset > bytes.size() || bytes.size() - offset < sizeof(T)) return std::nullopt;
    T value;
    std::memcpy(&value, bytes.data() + offset, sizeof value);
    return value;
}

}  // namespace test_support
