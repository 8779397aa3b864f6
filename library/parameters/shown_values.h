// A tag's settings as its panel shows them.
#pragma once

#include <string>
#include <vector>

#include "host/scene/tag.h"

namespace tremolux {

struct ShownValue {
    std::int32_t id;
    std::string label;  // with its id where several have the same
    std::string value;  // in its unit
};

// Everything that has a value, in the order of the panel.
std::vector<ShownValue> PanelValues(host::Tag *tag);
// What of that a preset carries.
std::vector<ShownValue> PresetValues(host::Tag *tag);

}  // namespace tremolux
