#include "customgui_priority.h"
#include "lib_description.h"
#include "presets/folders.h"
#include "tag/guarded.h"
#include "tag/parameters.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"
#include "texpression.h"

namespace {

// Late among the expressions: what moves the input camera has run by then.
constexpr LONG kExecutionPriority = 111;

void SetExecutionPriority(GeListNode *node) {
    GeData value;
    if (!node->GetParameter(DescLevel(EXPRESSION_PRIORITY), value, DESCFLAGS_GET_0)) return;
    if (value.GetType() != CUSTOMGUI_PRIORITY_DATA) return;
    PriorityData *priority = (PriorityData *)value.GetCustomDataType(CUSTOMGUI_PRIORITY_DATA);
    if (!priority) return;
    priority->SetPriorityValue(PRIORITYVALUE_PRIORITY, GeData(kExecutionPriority));
    node->SetParameter(DescLevel(EXPRESSION_PRIORITY), value, DESCFLAGS_SET_0);
}

// A loaded or copied tag keeps what it has.
void WriteMissingDefaults(BaseContainer *data) {
    LONG count;
    const ParameterInfo *parameters = Parameters(&count);
    for (LONG i = 0; i < count; i++)
        if (!data->GetDataPointer(parameters[i].id)) WriteDefault(parameters[i], data);
}

}  // namespace

TremoluxCamClass::TremoluxCamClass()
    : icon_(NULL),
      set_up_input_(NULL),
      operations_(this),
      is_alone_(FALSE),
      trigger_reading_(0),
      is_collected_(FALSE),
      collected_category_(0) {}

TremoluxCamClass::~TremoluxCamClass() { BaseBitmap::Free(icon_); }

void TremoluxCamClass::AfterInit() {}

Bool TremoluxCamClass::Init(GeListNode *node) {
    if (!node) return TRUE;
    return Guarded<Bool>(FALSE, [&] { return Prepare((BaseTag *)node); });
}

Bool TremoluxCamClass::Prepare(BaseTag *tag) {
    if (GeIsMainThread()) EnsureUserPresetFolder();
    SetExecutionPriority(tag);

    BaseContainer *data = tag->GetDataInstance();
    if (!data) return FALSE;
    data->SetFilename(kBuiltInPresetFolder, BuiltInPresetFolder());
    data->SetBool(kFirstRun, TRUE);

    AfterInit();
    WriteMissingDefaults(data);
    LoadPresetLibrary(data);
    tag->Message(MSG_CHANGE);
    ScanPresetCategories(String(), data);
    return TRUE;
}

Bool TremoluxCamClass::ResetParameter(LONG id, BaseContainer *data) {
    const ParameterInfo *parameter = FindParameter(id);
    if (!data || !parameter || !parameter->reset.given) return TRUE;
    if (parameter->type == ParameterType::kBool)
        data->SetBool(id, parameter->reset.value != 0.0);
    else
        data->SetReal(id, parameter->reset.value);
    return TRUE;
}
