#include "c4d_customdatatypeplugin.h"
#include "lib_description.h"
#include "tag/cameraloader.h"
#include "tag/guarded.h"
#include "tag/panel.h"
#include "tag/parameters.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

namespace {

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
    const LONG gui = parameter.slider_maximum.given ? CUSTOMGUI_REALSLIDER : CUSTOMGUI_REAL;
    return {DTYPE_REAL, gui};
}

void SetNumber(BaseContainer *settings, LONG key, const OptionalReal &number, LONG dtype) {
    if (!number.given) return;
    if (dtype == DTYPE_BOOL || dtype == DTYPE_LONG)
        settings->SetLong(key, engine::Truncate(number.value));
    else if (dtype == DTYPE_TIME)
        settings->SetTime(key, BaseTime(number.value));
    else if (dtype == DTYPE_REAL)
        settings->SetReal(key, number.value);
}

void SetDefault(BaseContainer *settings, const ParameterInfo &parameter, LONG dtype) {
    if (parameter.whole_default)
        settings->SetLong(DESC_DEFAULT, engine::Truncate(parameter.declared.value));
    else if (dtype == DTYPE_STRING && parameter.declared.given)
        settings->SetString(DESC_DEFAULT, String());
    else
        SetNumber(settings, DESC_DEFAULT, parameter.declared, dtype);
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
    SetDefault(&settings, parameter, type.dtype);
    return settings;
}

BaseContainer GroupSettings(const PanelElement &group) {
    BaseContainer settings = GetCustomDataTypeDefault(DTYPE_GROUP);
    if (group.title) settings.SetString(DESC_NAME, group.title);
    settings.SetLong(DESC_COLUMNS, group.columns);
    settings.SetLong(DESC_DEFAULT, group.open ? 1 : 0);
    settings.SetBool(DESC_SCALEH, group.scaled);
    return settings;
}

BaseContainer SeparatorSettings(const PanelElement &separator) {
    BaseContainer settings = GetCustomDataTypeDefault(DTYPE_SEPARATOR);
    settings.SetLong(DESC_CUSTOMGUI, CUSTOMGUI_SEPARATOR);
    if (separator.title) settings.SetString(DESC_NAME, separator.title);
    settings.SetBool(DESC_SEPARATORLINE, separator.line);
    return settings;
}

// An element as the host takes it; FALSE for what it does not show.
Bool Describe(const PanelElement &element, DescID *id, BaseContainer *settings) {
    if (element.kind == PanelKind::kGroup) {
        *id = DescLevel(element.id, DTYPE_GROUP, 0);
        *settings = GroupSettings(element);
        return TRUE;
    }
    if (element.kind == PanelKind::kSeparator) {
        *id = DescLevel(element.id, DTYPE_SEPARATOR, 0);
        *settings = SeparatorSettings(element);
        return TRUE;
    }
    if (element.kind == PanelKind::kHidden) return FALSE;
    const HostType type = HostTypeOf(element.parameter);
    *id = DescLevel(element.id, type.dtype, 0);
    *settings = SettingsOf(element.parameter, type);
    return TRUE;
}

}  // namespace

Bool TremoluxCamClass::GetDDescription(GeListNode *node, Description *description, DESCFLAGS_DESC &flags) {
    if (!node || !description) return FALSE;
    return Guarded<Bool>(FALSE, [&] { return DescribePanel((BaseTag *)node, description, &flags); });
}

Bool TremoluxCamClass::DescribePanel(BaseTag *tag, Description *description, DESCFLAGS_DESC *flags) {
    if (!description->LoadDescription(kTremoluxCamId)) return FALSE;
    BaseContainer *data = tag->GetDataInstance();
    if (!data) return FALSE;
    // Another tag may have changed it.
    if (GeIsMainThread() && !data->GetBool(kFirstRun)) ShowUserPresetFolder(data);
    const DescID *single = description->GetSingleDescID();

    LONG count;
    const PanelElement *panel = Panel(&count);
    for (const PanelElement *element = panel; element < panel + count; element++) {
        DescID id;
        BaseContainer settings;
        if (!Describe(*element, &id, &settings)) continue;
        if (single && !id.IsPartOf(*single, NULL)) continue;
        if (element->id == kCategory) settings.SetContainer(DESC_CYCLE, CategoryEntries());
        if (element->id == kPreset) settings.SetContainer(DESC_CYCLE, PresetEntries(data));
        const DescID parent = element->parent == kPanelRoot ? DescID(DescLevel(kTremoluxCamId))
                                                            : DescID(DescLevel(element->parent, DTYPE_GROUP, 0));
        description->SetParameter(id, settings, parent);
    }
    *flags |= DESCFLAGS_DESC_LOADED;
    return TRUE;
}
