// Bytes as text, for data within documents (RFC 4648).
#pragma once

#include <string>
#include <string_view>

namespace tremolux {

std::string Base64(std::string_view bytes);

}  // namespace tremolux
