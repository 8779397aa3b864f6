#include "presets/folders.h"

#include <mutex>

#include "presets/paths.h"
#include "tag/cameraloader.h"
#include "tag/state.h"

namespace {

Filename OwnFolder() {
    const Filename plugins = ExistingFolder(InFolder(GeGetC4DPath(C4D_PATH_STARTUPWRITE), Filename("plugins")));
    return ExistingFolder(InFolder(plugins, Filename("TremoluxCam")));
}

// The user's folder as the main thread saw it last: the host's settings change under its hands alone.
std::mutex lock;
Filename *last_seen = NULL;

Filename LastSeen() {
    const std::lock_guard<std::mutex> hold(lock);
    return last_seen ? *last_seen : Filename();
}

void See(const Filename &folder) {
    const std::lock_guard<std::mutex> hold(lock);
    if (!last_seen) last_seen = gNew Filename;
    if (last_seen) *last_seen = folder;
}

}  // namespace

Filename InFolder(const Filename &folder, const Filename &name) {
    const Filename path = folder + name;
    return name.Content() && path.GetDirectory().Content() ? path : Filename();
}

Filename BuiltInPresetFolder() { return InFolder(InFolder(GeGetPluginPath(), Filename("res")), Filename("Presets")); }

Filename ImportFolder() { return InFolder(GeGetPluginPath(), Filename("Imports")); }

Filename UserPresetFolder() {
    if (!GeIsMainThread()) return LastSeen();
    const BaseContainer *settings = GetWorldPluginData(kTremoluxCamId);
    Filename folder = settings ? settings->GetFilename(kUserPresetFolderSetting) : Filename();
    See(folder);
    return folder;
}

void ForgetUserPresetFolder() {
    const std::lock_guard<std::mutex> hold(lock);
    gDelete(last_seen);
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
    UserPresetFolder();
}

Filename ExistingFolder(const Filename &folder) {
    if (folder.Content() && !GeFExist(folder, TRUE)) GeFCreateDir(folder);
    return folder;
}
