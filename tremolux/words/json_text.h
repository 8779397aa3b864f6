// What a report, list or table says, for programs; docs/json.md lists the keys.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace tremolux {

// Indented, with a line end; bytes that are no UTF-8 are replaced.
inline std::string JsonText(const nlohmann::ordered_json &json) {
    return json.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
}

}  // namespace tremolux
