// Bytes as text, for data within documents (RFC 4648).
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tremolux {

std::string Base64(std::string_view bytes);
// And back; the padding may be missing. Nothing for any other text.
std::optional<std::string> BytesOfBase64(std::string_view text);

}  // namespace tremolux
