// A parameter of the tag as its description declares it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/scene/tag.h"

namespace tremolux {

enum class ParameterKind { kReal, kBool, kTime, kText, kChoice, kLink, kButton, kOther };
enum class ParameterUnit { kNone, kPercent, kDegrees, kFrames };

struct Parameter {
    std::int32_t id = 0;
    std::string label;  // without blanks around it; may be empty
    ParameterKind kind = ParameterKind::kOther;
    ParameterUnit unit = ParameterUnit::kNone;
    std::optional<double> minimum, maximum;                     // in the stored unit, of a time in seconds
    std::vector<std::pair<std::int32_t, std::string>> choices;  // of a choice: value and label
    std::optional<host::Data> usual{};                          // the declared default of a number, time or switch
    std::optional<double> slider_minimum{}, slider_maximum{};   // as the limits; of a slider
    std::optional<double> step{};                               // the same; what one press of an arrow adds
};

// In the order of the panel; throws a Failure when the tag does not describe itself.
std::vector<Parameter> DescribedParameters(const host::Tag &tag);

}  // namespace tremolux
