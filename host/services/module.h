// Loading a plug-in module as the application does, through its one entry.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "host/application.h"
#include "platform/table.h"

namespace host {

// Exists exactly as long as the module is started: the destructor sends the end messages, destroys what the module
// registered, then unloads it. Documents with its tags must be gone before.
class LoadedModule {
  public:
    // null on failure, with one line in `error` that names the file and says what was expected (a library, the entry
    // c4d_main, the interface version, a successful start).
    static std::unique_ptr<LoadedModule> Load(const std::filesystem::path &file, std::string *error,
                                              const HostTable *table = Application::Table());
    // The same of a module that is linked into this program, by its entry; `file` is where it takes itself to lie.
    static std::unique_ptr<LoadedModule> LinkedIn(ModuleMain entry, const std::filesystem::path &file,
                                                  std::string *error, const HostTable *table = Application::Table());
    ~LoadedModule();
    std::int32_t Call(std::int32_t action, void *p1, void *p2, void *p3) const { return main_(action, p1, p2, p3); }
    const std::filesystem::path &File() const { return file_; }

  private:
    LoadedModule() = default;
    // Everything from the first call of the entry on; empty when the module runs, else what is wrong with it.
    std::string Begin(const HostTable *table);
    std::int32_t Start() const;
    void End() const;
    Application *application_ = nullptr;  // where it registers
    std::filesystem::path file_;
    void *library_ = nullptr;
    ModuleMain main_ = nullptr;
    bool started_ = false, initialized_ = false;
};

}  // namespace host
