#include "library/shots/embedded_host.h"

#include "host/services/platform.h"
#include "library/failure.h"

namespace tremolux {
namespace {

host::ApplicationSettings SettingsFor(const std::filesystem::path &home) {
    host::ApplicationSettings settings;
    settings.application_folder = host::ProgramFile().parent_path();
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

}  // namespace tremolux
