#include "tremolux/process/system.h"

#include "host/services/platform.h"

namespace tremolux {
namespace {

namespace fs = std::filesystem;

// Empty when it is not set.
fs::path FolderFromEnvironment(const char *variable) { return fs::u8path(host::EnvironmentText(variable)); }

}  // namespace

fs::path DefaultModuleFile() {
    return host::ProgramFile().parent_path() / "plugins" / "TremoluxCam" /
           (std::string("TremoluxCam") + host::ModuleSuffix());
}

fs::path DefaultHome() {
    if (const fs::path folder = FolderFromEnvironment("APPDATA"); !folder.empty()) return folder / "tremolux";
    if (const fs::path folder = FolderFromEnvironment("XDG_CONFIG_HOME"); !folder.empty()) return folder / "tremolux";
    if (const fs::path folder = FolderFromEnvironment("HOME"); !folder.empty()) return folder / ".config" / "tremolux";
    std::error_code error;
    return fs::temp_directory_path(error) / "tremolux";
}

}  // namespace tremolux
