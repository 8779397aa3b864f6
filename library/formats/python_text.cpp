#include "library/formats/python_text.h"

#include <nlohmann/json.hpp>

namespace tremolux {

// JSON's texts are Python's, too, so long as nothing but control characters is escaped.
std::string PythonText(const std::string &text) {
    return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

}  // namespace tremolux
