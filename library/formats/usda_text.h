// The text form of scene descriptions, as far as a camera needs it: prims, their attributes and time samples.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "library/formats/source_text.h"

namespace tremolux {

// A number, a text, or numbers in brackets within brackets, without the brackets.
struct UsdaValue {
    std::vector<double> numbers;
    std::vector<std::string> texts;
    const char *place = nullptr;
};

struct UsdaAttribute {
    UsdaValue value;                      // empty when there are samples alone
    std::map<double, UsdaValue> samples;  // by time code
    const char *place = nullptr;
};

struct UsdaPrim {
    std::string type, name;
    std::map<std::string, UsdaAttribute> attributes;
    std::vector<UsdaPrim> children;
    const char *place = nullptr;
};

struct UsdaLayer {
    std::map<std::string, UsdaValue> metadata;
    std::vector<UsdaPrim> prims;
};

// `bytes` are those of `source` and must outlive the result. Throws a Failure that names the place.
UsdaLayer ParseUsda(const SourceText &source, std::string_view bytes);

}  // namespace tremolux
