// Values of the scene as JSON.
#pragma once

#include <nlohmann/json.hpp>

#include "host/value/data.h"

namespace tremolux {

// Keys keep their order: the same frame gives the same text.
using Json = nlohmann::ordered_json;

// A number; what JSON has no number for is a text: "nan", "inf", "-inf".
Json JsonNumber(double value);
Json JsonVector(const host::Vector &vector);
// Whole numbers, reals, vectors, times (seconds), texts and containers (by id). A link is the name of its goal in the
// document, or null; of any other type only the type's number is given.
Json JsonValue(const host::Data &data, const HostAtom *document);

}  // namespace tremolux
