#include "tag/state.h"
#include "tag/tremoluxcam.h"

// No preset is known: the library is empty.
void TremoluxCamClass::LoadPresetLibrary(BaseContainer *data) {
    data->SetLong(kLibraryCount, 0);
    for (LONG id : {kLibraryCategories, kLibraryIndices, kLibraryPresets}) data->SetContainer(id, BaseContainer());
}

void TremoluxCamClass::ScanPresetCategories(const String &, BaseContainer *) {}

void TremoluxCamClass::CollectCategoryPresets(BaseContainer *) {}

void TremoluxCamClass::ApplyPreset(BaseContainer *) {}

void TremoluxCamClass::ImportPresets() {}
