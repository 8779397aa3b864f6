#include "tag/parameters.h"

#include <cmath>

#include "tag/hostmaths.h"

Bool IsPresetParameter(LONG id) {
    return id >= kFirstPresetId && id <= kLastPresetId && id != kInputCamera && id != kOverallScale &&
           id != kFocusObject && id != kTargetObject && id != kUserPresetFolder;
}

const ParameterInfo *FindParameter(LONG id) {
    LONG count;
    const ParameterInfo *parameters = Parameters(&count);
    for (const ParameterInfo *parameter = parameters; parameter < parameters + count; parameter++)
        if (parameter->id == id) return parameter;
    return NULL;
}

void WriteDefault(const ParameterInfo &parameter, BaseContainer *data) {
    if (!parameter.declared.given) return;
    switch (parameter.type) {
        case ParameterType::kReal:
            data->SetReal(parameter.id, parameter.declared.value);
            break;
        case ParameterType::kBool:
            data->SetBool(parameter.id, parameter.declared.value != 0.0);
            break;
        case ParameterType::kCycle:
            data->SetLong(parameter.id, engine::Truncate(parameter.declared.value));
            break;
        case ParameterType::kTime:
            data->SetTime(parameter.id, BaseTime());
            break;
        case ParameterType::kString:
            data->SetString(parameter.id, String());
            break;
        case ParameterType::kLink:
            data->SetLink(parameter.id, NULL);
            break;
        case ParameterType::kButton:
            break;
    }
}

Real ReadReal(const BaseContainer &data, LONG id) {
    const Real value = data.GetReal(id);
    if (std::isfinite(value)) return value;
    const ParameterInfo *parameter = FindParameter(id);
    return parameter && parameter->declared.given ? parameter->declared.value : 0.0;
}

engine::Settings ReadSettings(const BaseContainer &data) {
    engine::Settings settings;
    LONG count;
    const ParameterInfo *parameters = Parameters(&count);
    for (const ParameterInfo *parameter = parameters; parameter < parameters + count; parameter++) {
        const EngineKey &key = parameter->key;
        if (key.real) settings.*key.real = ReadReal(data, parameter->id);
        if (key.flag) settings.*key.flag = data.GetBool(parameter->id) != FALSE;
        if (key.time) settings.*key.time = TimeOf(data.GetTime(parameter->id));
    }
    return settings;
}
