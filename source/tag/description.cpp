#include "c4d_customdatatypeplugin.h"
#include "lib_description.h"
#include "tag/cameraloader.h"
#include "tag/parameters.h"
#include "tag/tremoluxcam.h"

namespace {

constexpr LONG kMainGroup = 6000;

// How the host knows a type: its data type, and its gadget where that is not the data type's own.
struct HostType {
    LONG dtype, gadget;
};

HostType HostTypeOf(const ParameterInfo &parameter) {
    switch (parameter.type) {
        case ParameterType::kBool:
            return {DTYPE_BOOL, CUSTOMGUI_BOOL};
        case ParameterType::kLink:
            return {DTYPE_BASELISTLINK, CUSTOMGUI_LINKBOX};
        case ParameterType::kButton:
            return {DTYPE_BUTTON, CUSTOMGUI_BUTTON};
        case ParameterType::kCycle:
            return {DTYPE_LONG, CUSTOMGUI_CYCLE};
        case ParameterType::kTime:
            return {DTYPE_TIME, CUSTOMGUI_TIME};
        case ParameterType::kString:
            return {DTYPE_STRING, CUSTOMGUI_STRING};
        case ParameterType::kReal:
            break;
    }
    return {DTYPE_REAL, parameter.slider_maximum.given ? CUSTOMGUI_REALSLIDER : CUSTOMGUI_REAL};
}

void SetNumber(BaseContainer *settings, LONG key, const OptionalReal &number, LONG dtype) {
    if (!number.given) return;
    if (dtype == DTYPE_BOOL || dtype == DTYPE_LONG)
        settings->SetLong(key, Truncate(number.value));
    else if (dtype == DTYPE_TIME)
        settings->SetTime(key, BaseTime(number.value));
    else if (dtype == DTYPE_REAL)
        settings->SetReal(key, number.value);
}

BaseContainer SettingsOf(const ParameterInfo &parameter, const HostType &type) {
    BaseContainer settings = GetCustomDataTypeDefault(type.dtype);
    settings.SetString(DESC_NAME, parameter.label);
    settings.SetString(DESC_SHORT_NAME, parameter.label);
    settings.SetLong(DESC_CUSTOMGUI, type.gadget);
    if (parameter.unit) settings.SetLong(DESC_UNIT, parameter.unit);
    SetNumber(&settings, DESC_MIN, parameter.minimum, type.dtype);
    SetNumber(&settings, DESC_MAX, parameter.maximum, type.dtype);
    SetNumber(&settings, DESC_MINSLIDER, parameter.slider_minimum, type.dtype);
    SetNumber(&settings, DESC_MAXSLIDER, parameter.slider_maximum, type.dtype);
    SetNumber(&settings, DESC_STEP, parameter.step, type.dtype);
    if (parameter.whole_preset)
        settings.SetLong(DESC_DEFAULT, Truncate(parameter.preset.value));
    else
        SetNumber(&settings, DESC_DEFAULT, parameter.preset, type.dtype);
    return settings;
}

Bool Wanted(const DescID &id, const DescID *single) { return !single || id.IsPartOf(*single, NULL); }

}  // namespace

Bool TremoluxCamClass::GetDDescription(GeListNode *node, Description *description, DESCFLAGS_DESC &flags) {
    if (!node || !description || !description->LoadDescription(kTremoluxCamId)) return FALSE;
    if (!((BaseTag *)node)->GetDataInstance()) return FALSE;
    const DescID *single = description->GetSingleDescID();

    const DescID group = DescLevel(kMainGroup, DTYPE_GROUP, 0);
    if (Wanted(group, single)) {
        BaseContainer settings = GetCustomDataTypeDefault(DTYPE_GROUP);
        settings.SetString(DESC_NAME, "TremoluxCam");
        settings.SetLong(DESC_DEFAULT, 1);
        description->SetParameter(group, settings, DescLevel(kTremoluxCamId));
    }
    LONG count;
    const ParameterInfo *parameters = Parameters(&count);
    for (LONG i = 0; i < count; i++) {
        if (!parameters[i].label) continue;
        const HostType type = HostTypeOf(parameters[i]);
        const DescID id = DescLevel(parameters[i].id, type.dtype, 0);
        if (Wanted(id, single)) description->SetParameter(id, SettingsOf(parameters[i], type), group);
    }
    flags |= DESCFLAGS_DESC_LOADED;
    return TRUE;
}
