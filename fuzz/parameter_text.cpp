// Values as users type them: the first byte picks the parameter, the rest is the text.
#include <cmath>
#include <cstdint>
#include <limits>

#include "fuzz/require.h"
#include "host/value/time.h"
#include "library/failure.h"
#include "library/parameters/lookup.h"
#include "library/parameters/value.h"

namespace {

using namespace tremolux;

std::vector<Parameter> Panel() {
    using Kind = ParameterKind;
    using Unit = ParameterUnit;
    std::vector<Parameter> panel;
    const auto add = [&](const char *label, Kind kind, Unit unit) -> Parameter & {
        Parameter &parameter = panel.emplace_back();
        parameter.id = static_cast<std::int32_t>(panel.size());
        parameter.label = label;
        parameter.kind = kind;
        parameter.unit = unit;
        return parameter;
    };
    add("Shake Speed", Kind::kReal, Unit::kNone).minimum = 0;
    Parameter &share = add("Share", Kind::kReal, Unit::kPercent);
    share.minimum = 0;
    share.maximum = 1;
    add("Angle", Kind::kReal, Unit::kDegrees);
    add("Offset", Kind::kReal, Unit::kFrames);
    add("Switch", Kind::kBool, Unit::kNone);
    add("Interval", Kind::kTime, Unit::kNone).minimum = 0;
    add("Text", Kind::kText, Unit::kNone);
    add("Choice", Kind::kChoice, Unit::kNone).choices = {{3, "Calm"}, {4, "Wild"}};
    return panel;
}

void CheckLimits(const Parameter &parameter, double value) {
    fuzz::Require(std::isfinite(value));
    fuzz::Require(value >= parameter.minimum.value_or(-std::numeric_limits<double>::max()));
    fuzz::Require(value <= parameter.maximum.value_or(std::numeric_limits<double>::max()));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    if (size == 0) return 0;
    static const std::vector<Parameter> kPanel = Panel();
    const Parameter &parameter = kPanel[data[0] % kPanel.size()];
    const std::string text(reinterpret_cast<const char *>(data + 1), size - 1);
    try {
        const host::Data value = ParseValue(parameter, text, 30);
        if (parameter.kind == ParameterKind::kReal) CheckLimits(parameter, value.Real());
        if (parameter.kind == ParameterKind::kTime) CheckLimits(parameter, host::Seconds(value.GetTime()));
    } catch (const Failure &failure) {
        fuzz::Require(failure.Status() == kExitInput);
    }
    try {
        FindParameter(kPanel, text);
    } catch (const Failure &failure) {
        fuzz::Require(failure.Status() == kExitInput);
    }
    return 0;
}
