#include "presets/library.h"

#include "tag/parameters.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

BaseContainer CategoryEntries(const BaseContainer &) {
    BaseContainer entries;
    entries.SetString(kCategoryUser, "User");
    entries.SetString(kCategoryAll, "All");
    return entries;
}

BaseContainer PresetEntries(const BaseContainer &) {
    BaseContainer entries;
    entries.SetString(kPresetBlankA, "");
    entries.SetString(kPresetBlankB, "");
    entries.SetString(kPresetCustom, "Custom");
    return entries;
}

// No preset is known: the library is empty.
void TremoluxCamClass::LoadPresetLibrary(BaseContainer *data) {
    data->SetLong(kLibraryCount, 0);
    for (LONG id : {kLibraryCategories, kLibraryIndices, kLibraryPresets}) data->SetContainer(id, BaseContainer());
}

void TremoluxCamClass::ScanPresetCategories(const String &, BaseContainer *) {}

void TremoluxCamClass::CollectCategoryPresets(BaseContainer *) {}

void TremoluxCamClass::ApplyPreset(BaseContainer *) {}

void TremoluxCamClass::ImportPresets() {}
