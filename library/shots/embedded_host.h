// The embedded host with the module in it: what everything else happens inside.
#pragma once

#include <filesystem>
#include <memory>

#include "host/application.h"
#include "host/services/module.h"

namespace tremolux {

class EmbeddedHost {
  public:
    // `home` becomes the folder of the user's settings. Throws a Failure when the module does not start.
    EmbeddedHost(const std::filesystem::path &module_file, const std::filesystem::path &home);
    ~EmbeddedHost();  // documents must be gone

    host::Application &Application() const { return *application_; }
    const std::filesystem::path &ModuleFile() const { return module_->File(); }

  private:
    std::unique_ptr<host::Application> application_;
    std::unique_ptr<host::LoadedModule> module_;
};

}  // namespace tremolux
