#include "presets/folders.h"

#include "presets/paths.h"
#include "tag/cameraloader.h"
#include "tag/state.h"

namespace {

Filename OwnFolder() {
    const Filename plugins = ExistingFolder(InFolder(GeGetC4DPath(C4D_PATH_STARTUPWRITE), Filename("plugins")));
    return ExistingFolder(InFolder(plugins, Filename("TremoluxCam")));
}

}  // namespace

Filename InFolder(const Filename &folder, const Filename &name) {
    const Filename path = folder + name;
    return name.Content() && path.GetDirectory().Content() ? path : Filename();
}

Filename BuiltInPresetFolder() { return InFolder(InFolder(GeGetPluginPath(), Filename("res")), Filename("Presets")); }

Filename ImportFolder() { return InFolder(GeGetPluginPath(), Filename("Imports")); }

Filename UserPresetFolder() {
    const BaseContainer *settings = GetWorldPluginData(kTremoluxCamId);
    return settings ? settings->GetFilename(kUserPresetFolderSetting) : Filename();
}

Filename ExportFolder() { return ExistingFolder(InFolder(OwnFolder(), Filename("Exports"))); }

void EnsureUserPresetFolder() {
    const Filename usual = DefaultUserPresetFolder();
    ExportFolder();
    if (usual.Content() && !NormalFolder(UserPresetFolder()).Content()) RememberUserPresetFolder(usual);
}

Filename DefaultUserPresetFolder() { return ExistingFolder(InFolder(OwnFolder(), Filename("User"))); }

void RememberUserPresetFolder(const Filename &folder) {
    BaseContainer settings;
    settings.SetFilename(kUserPresetFolderSetting, folder);
    SetWorldPluginData(kTremoluxCamId, settings, TRUE);
}

Filename ExistingFolder(const Filename &folder) {
    if (folder.Content() && !GeFExist(folder, TRUE)) GeFCreateDir(folder);
    return folder;
}
