#include "presets/folders.h"

#include "tag/cameraloader.h"
#include "tag/state.h"

namespace {

Filename ExistingFolder(const Filename &folder) {
    if (!GeFExist(folder, TRUE)) GeFCreateDir(folder);
    return folder;
}

void RememberUserFolder(const Filename &folder) {
    BaseContainer settings;
    settings.SetFilename(kUserPresetFolderSetting, folder);
    SetWorldPluginData(kTremoluxCamId, settings, TRUE);
}

Filename HostPluginFolder() { return ExistingFolder(GeGetC4DPath(C4D_PATH_STARTUPWRITE) + Filename("plugins")); }

}  // namespace

Filename BuiltInPresetFolder() { return GeGetPluginPath() + Filename("res") + Filename("Presets"); }

Filename UserPresetFolder() {
    const BaseContainer *settings = GetWorldPluginData(kTremoluxCamId);
    return settings ? settings->GetFilename(kUserPresetFolderSetting) : Filename();
}

void EnsureUserPresetFolder() {
    const Filename own = HostPluginFolder() + Filename("TremoluxCam");
    if (!GeFExist(own, TRUE)) RememberUserFolder(own);

    const Filename chosen = UserPresetFolder();
    if (chosen.Content() && GeFExist(chosen, TRUE)) return;

    ExistingFolder(own);
    const Filename user = ExistingFolder(own + Filename("User"));
    ExistingFolder(own + Filename("Exports"));
    RememberUserFolder(user);
}
