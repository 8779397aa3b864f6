#include "host/services/module.h"

#include <system_error>

#include "host/application.h"
#include "host/services/platform.h"
#include "host/value/text.h"
#include "host/watch/operation.h"

namespace host {

namespace {

enum Action : std::int32_t {
    kActionInitSystem = 1,
    kActionInit = 2,
    kActionEnd = 3,
    kActionVersion = 4,
    kActionMessage = 6
};
constexpr std::int32_t kInterfaceVersion = 5;

enum ModuleMessage : std::int32_t {
    kMessagePriority = 0,
    kMessageInitSystem = 1,
    kMessageStartActivity = 1000,
    kMessageEndActivity = 1001,
    kMessageEndProgram = 1001084,
    kMessageBuildMenu = 1001188,
    kMessageEndPlugins = 1026848
};

std::int32_t Send(ModuleMain main, ModuleMessage message, void *data = nullptr) {
    const Operation operation("PluginMessage");
    // NOLINTNEXTLINE(performance-no-int-to-ptr): a message travels as a pointer.
    return main(kActionMessage, reinterpret_cast<void *>(static_cast<std::intptr_t>(message)), data, nullptr);
}

}  // namespace

std::unique_ptr<LoadedModule> LoadedModule::Load(const std::filesystem::path &file, std::string *error,
                                                 const HostTable *table) {
    std::error_code ignored;
    const std::string name = PathText(file);
    const auto fail = [&](const std::string &words) -> std::unique_ptr<LoadedModule> {
        *error = name + ": " + words;
        return nullptr;
    };
    if (!std::filesystem::exists(file, ignored)) return fail("there is no such file, expected a plug-in module");
    if (!std::filesystem::is_regular_file(file, ignored)) return fail("is no file, expected a plug-in module");

    if (Application::Current() == nullptr) return fail("needs a running host");
    std::unique_ptr<LoadedModule> module(new LoadedModule);
    module->application_ = Application::Current();
    // Absolute: the module finds its own folder by it, and no search path shall step in.
    module->file_ = AbsolutePath(file);
    std::string reason;
    module->library_ = OpenLibrary(module->file_, &reason);
    if (module->library_ == nullptr) return fail("is no library that this system can load (" + reason + ")");
    module->main_ = reinterpret_cast<ModuleMain>(FindSymbol(module->library_, "c4d_main"));
    if (module->main_ == nullptr) return fail("has no entry c4d_main, expected a plug-in module");

    const std::string wrong = module->Begin(table);
    return wrong.empty() ? std::move(module) : fail(wrong);
}

std::unique_ptr<LoadedModule> LoadedModule::LinkedIn(ModuleMain entry, const std::filesystem::path &file,
                                                     std::string *error, const HostTable *table) {
    const auto fail = [&](const std::string &words) -> std::unique_ptr<LoadedModule> {
        *error = PathText(file) + ": " + words;
        return nullptr;
    };
    Application *application = Application::Current();
    if (application == nullptr) return fail("needs a running host");
    std::unique_ptr<LoadedModule> module(new LoadedModule);
    module->application_ = application;
    module->file_ = file;
    module->main_ = entry;
    const std::string wrong = module->Begin(table);
    return wrong.empty() ? std::move(module) : fail(wrong);
}

std::string LoadedModule::Begin(const HostTable *table) {
    const std::int32_t version = Call(kActionVersion, nullptr, nullptr, nullptr);
    if (version != kInterfaceVersion) {
        return "speaks plug-in interface version " + std::to_string(version) + ", expected " +
               std::to_string(kInterfaceVersion);
    }
    TableFilename own_name{};
    Assign(&own_name, file_);
    const std::int32_t started = Call(kActionInitSystem, const_cast<HostTable *>(table), nullptr, &own_name);
    ReleaseText(&own_name.path);
    if (started != 1) return "refused this host's function table (" + std::to_string(started) + ")";
    initialized_ = true;

    std::int32_t priority = 0;
    Send(main_, kMessagePriority, &priority);
    if (Send(main_, kMessageInitSystem) != 1)
        return "could not start, expected its resources in the folder \"res\" beside it";
    if (Start() != 1) return "did not start, expected its registrations to succeed (are its icons in \"res\"?)";
    started_ = true;
    Send(main_, kMessageStartActivity);
    Send(main_, kMessageBuildMenu);
    return {};
}

std::int32_t LoadedModule::Start() const {
    const Operation operation("PluginStart");
    return Call(kActionInit, nullptr, nullptr, nullptr);
}

void LoadedModule::End() const {
    const Operation operation("PluginEnd");
    Call(kActionEnd, nullptr, nullptr, nullptr);
}

LoadedModule::~LoadedModule() {
    if (started_)
        for (ModuleMessage message : {kMessageEndProgram, kMessageEndActivity, kMessageEndPlugins})
            Send(main_, message);
    // What it registered goes while its code is still there.
    if (initialized_) application_->registry.Clear();
    if (initialized_) End();
    if (library_ != nullptr) CloseLibrary(library_);
}

}  // namespace host
