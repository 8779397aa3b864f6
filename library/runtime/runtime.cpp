#include "library/runtime/runtime.h"

#include "host/files/memory_files.h"
#include "library/failure.h"
#include "library/presets/facts.h"
#include "library/presets/pair.h"
#include "library/runtime/resources.h"
#include "library/shots/stage.h"

extern "C" std::int32_t c4d_main(std::int32_t action, void *p1, void *p2, void *p3);

namespace tremolux {
namespace {

namespace fs = std::filesystem;
namespace memory = host::memory_files;

// Nothing of a user's is kept between two processes: there is no preferences file.
host::ApplicationSettings Settings() {
    host::ApplicationSettings settings;
    settings.application_folder = memory::Root();
    settings.user_folder = memory::Root() / "user";
    return settings;
}

constexpr const char *kModuleFolder = "TremoluxCam";

void BringFiles() {
    memory::MakeFolders(memory::Root() / "user");
    const fs::path folder = memory::Root() / kModuleFolder;
    for (const Resource &resource : Resources()) {
        const fs::path file = folder / "res" / fs::u8path(resource.name);
        memory::MakeFolders(file.parent_path());
        if (!memory::Write(file, resource.bytes)) throw Failure(kExitInternal, "the library's own files are not whole");
    }
}

}  // namespace

Runtime &Runtime::Get() {
    static Runtime runtime;
    return runtime;
}

Runtime::Runtime() {
    if (host::Application::Current() != nullptr) {
        throw Failure(kExitInternal, "another host runs in this process, expected none");
    }
    BringFiles();
    const fs::path file = ModuleFile();
    application_ = std::make_unique<host::Application>(Settings());
    std::string error;
    module_ = host::LoadedModule::LinkedIn(c4d_main, file, &error);
    if (!module_) throw Failure(kExitModule, error);

    CameraMove move;
    move.samples.resize(1);
    const Stage stage(move);
    parameters_ = DescribedParameters(stage.CameraTag());
    panel_ = DescribedPanel(stage.CameraTag(), parameters_);
    for (const Parameter &parameter : parameters_) places_.push_back(FindPlace(panel_, parameter.id));
    presets_ = ReadCatalog(&stage.CameraTag());
    std::map<std::string, PresetFacts> facts = ReadPresetFacts(file);
    for (const CatalogEntry &preset : presets_)
        about_.push_back({facts[preset.name], SecondOfEntry(preset, file, stage.CameraTag()).has_value()});
    application_->ForgetTheUser();
    application_->SetMainThread({});
}

fs::path Runtime::ModuleFile() const { return memory::Root() / kModuleFolder / "TremoluxCam"; }

Runtime::~Runtime() {
    application_->SetMainThread(std::this_thread::get_id());
    module_.reset();
}

Runtime::Turn::Turn(host::Document *document) : runtime_(Get()), hold_(runtime_.lock_) {
    runtime_.application_->SetMainThread(std::this_thread::get_id());
    // An event that another shot's frames queued is not this one's.
    runtime_.application_->ForgetTheUser();
    if (document != nullptr) runtime_.application_->SetActiveDocument(document);
}

Runtime::Turn::~Turn() {
    runtime_.application_->ForgetTheUser();
    runtime_.application_->SetMainThread({});
}

}  // namespace tremolux
