#include "library/formats/python_text.h"

#include <nlohmann/json.hpp>

#include "library/formats/numbers.h"

namespace tremolux {

// JSON's texts are Python's, too, so long as nothing but control characters is escaped.
std::string PythonText(const std::string &text) {
    return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string PythonRange(const CameraMove &move, const FormatOptions &options) {
    return "FIRST_FRAME = " + std::to_string(move.first_frame) +
           "\nFRAMES_PER_SECOND = " + std::to_string(move.rate.Whole()) +
           "\nFPS_BASE = " + FormatNumber(move.rate.Whole() / move.rate.PerSecond()) + "\nRESOLUTION = (" +
           std::to_string(options.width) + ", " + std::to_string(options.height) + ")\n";
}

}  // namespace tremolux
