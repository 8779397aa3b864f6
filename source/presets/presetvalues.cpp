#include "presets/presetvalues.h"

#include <cmath>

#include "tag/parameters.h"

namespace {

constexpr LONG kLongestText = 65536;

Bool IsNumber(LONG type) { return type == DA_LONG || type == DA_REAL || type == DA_LLONG; }

Real HoldToLimits(const ParameterInfo &parameter, Real value) {
    if (parameter.minimum.given && value < parameter.minimum.value) return parameter.minimum.value;
    if (parameter.maximum.given && value > parameter.maximum.value) return parameter.maximum.value;
    return value;
}

Bool CopyNumber(const ParameterInfo &parameter, const GeData &value, BaseContainer *data) {
    if (!IsNumber(value.GetType()) || !std::isfinite(value.GetReal())) return FALSE;
    data->SetReal(parameter.id, HoldToLimits(parameter, value.GetReal()));
    return TRUE;
}

Bool CopySwitch(LONG id, const GeData &value, BaseContainer *data) {
    if (!IsNumber(value.GetType()) || !std::isfinite(value.GetReal())) return FALSE;
    data->SetBool(id, value.GetReal() != 0.0);
    return TRUE;
}

Bool CopyTime(const ParameterInfo &parameter, const GeData &value, BaseContainer *data) {
    if (value.GetType() != DA_TIME) return FALSE;
    const BaseTime time = value.GetTime();
    const Real seconds = time.GetDenominator() == 0.0 ? HUGE_VAL : time.GetNumerator() / time.GetDenominator();
    if (!std::isfinite(seconds)) return FALSE;
    const Real held = HoldToLimits(parameter, seconds);
    data->SetTime(parameter.id, held == seconds ? time : BaseTime(held));
    return TRUE;
}

Bool CopyText(LONG id, const GeData &value, BaseContainer *data) {
    if (value.GetType() != DA_STRING || value.GetString().GetLength() > kLongestText) return FALSE;
    data->SetString(id, value.GetString());
    return TRUE;
}

}  // namespace

Bool CopyPresetValue(const BaseContainer &preset, LONG id, BaseContainer *data) {
    const ParameterInfo *parameter = FindParameter(id);
    const GeData *value = preset.GetDataPointer(id);
    if (!parameter || !value || !preset.GetBool(-id)) return FALSE;
    switch (parameter->type) {
        case ParameterType::kReal:
            return CopyNumber(*parameter, *value, data);
        case ParameterType::kBool:
            return CopySwitch(id, *value, data);
        case ParameterType::kTime:
            return CopyTime(*parameter, *value, data);
        case ParameterType::kString:
            return CopyText(id, *value, data);
        case ParameterType::kLink:
        case ParameterType::kCycle:
        case ParameterType::kButton:
            break;
    }
    return FALSE;
}
