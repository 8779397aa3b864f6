#include "tremolux/shots/embedded_host.h"

#include "host/services/platform.h"
#include "tremolux/failure.h"
#include "tremolux/process/system.h"

namespace tremolux {
namespace {

host::ApplicationSettings SettingsFor(const std::filesystem::path &home) {
    host::ApplicationSettings settings;
    settings.application_folder = ProgramFolder();
    settings.user_folder = home;
    settings.preferences_file = home / "preferences";
    return settings;
}

}  // namespace

EmbeddedHost::EmbeddedHost(const std::filesystem::path &module_file, const std::filesystem::path &home) {
    // A home that cannot be made only means that no settings are kept.
    std::error_code ignored;
    std::filesystem::create_directories(home, ignored);
    application_ = std::make_unique<host::Application>(SettingsFor(home));
    application_->LoadWorldSettings();
    std::string error;
    module_ = host::LoadedModule::Load(module_file, &error);
    if (!module_) throw Failure(kExitModule, error);
}

EmbeddedHost::~EmbeddedHost() {
    module_.reset();
    application_->SaveWorldSettings();
}

std::filesystem::path DefaultModuleFile() {
    return ProgramFolder() / "plugins" / "TremoluxCam" / (std::string("TremoluxCam") + host::ModuleSuffix());
}

}  // namespace tremolux
