#include "presets/folders.h"

#include "tag/cameraloader.h"
#include "tag/state.h"

namespace {

Filename OwnFolder() {
    const Filename plugins = ExistingFolder(GeGetC4DPath(C4D_PATH_STARTUPWRITE) + Filename("plugins"));
    return ExistingFolder(plugins + Filename("TremoluxCam"));
}

}  // namespace

Filename BuiltInPresetFolder() { return GeGetPluginPath() + Filename("res") + Filename("Presets"); }

Filename ImportFolder() { return GeGetPluginPath() + Filename("Imports"); }

Filename UserPresetFolder() {
    const BaseContainer *settings = GetWorldPluginData(kTremoluxCamId);
    return settings ? settings->GetFilename(kUserPresetFolderSetting) : Filename();
}

Filename ExportFolder() { return ExistingFolder(OwnFolder() + Filename("Exports")); }

void EnsureUserPresetFolder() {
    const Filename usual = DefaultUserPresetFolder();
    ExportFolder();
    const Filename chosen = UserPresetFolder();
    if (!chosen.Content() || !GeFExist(chosen, TRUE)) RememberUserPresetFolder(usual);
}

Filename DefaultUserPresetFolder() { return ExistingFolder(OwnFolder() + Filename("User")); }

void RememberUserPresetFolder(const Filename &folder) {
    BaseContainer settings;
    settings.SetFilename(kUserPresetFolderSetting, folder);
    SetWorldPluginData(kTremoluxCamId, settings, TRUE);
}

Filename ExistingFolder(const Filename &folder) {
    if (!GeFExist(folder, TRUE)) GeFCreateDir(folder);
    return folder;
}
