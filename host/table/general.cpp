#include <chrono>

#include "host/application.h"
#include "host/scene/view.h"
#include "host/services/resource.h"
#include "host/table/guard.h"
#include "host/table/internal.h"
#include "host/value/memory.h"
#include "host/value/text.h"

namespace host {

namespace {

// Folders of the host, by their number in the plug-in interface.
enum HostPath : std::int32_t {
    kPathApplication = 0,
    kPathPreferences = 1,
    kPathResource = 2,
    kPathLibrary = 3,
    kPathUserLibrary = 4,
    kPathHelp = 5
};

// Codes of the input state's entries.
constexpr std::int32_t kInputMouse = 1836021107, kInputKeyboard = 1801812322, kInputDevice = 1768973430,
                       kInputChannel = 1768973153, kInputValue = 1768978017, kInputQualifier = 1768976737,
                       kInputX = 1768978040, kInputY = 1768978041;
constexpr std::int32_t kMouseLeft = 1, kMouseRight = 2;
constexpr std::int32_t kQualifierShift = 1, kQualifierControl = 2, kQualifierAlt = 4;

Application *App() { return Application::Current(); }

void *AllocateEntry(std::int64_t bytes) { return Allocate(bytes); }
void *AllocateUnclearedEntry(std::int64_t bytes) { return AllocateUncleared(bytes); }
void *ReallocateEntry(void *old, std::int64_t bytes) { return Reallocate(old, bytes); }
void ReleaseEntry(void *memory) { Release(memory); }

std::int32_t RegisterTag(const TagRegistration *tag) {
    if (App() == nullptr || tag == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] { return App()->registry.Register(*tag) ? 1 : 0; });
}

std::int32_t RegisterCommand(const CommandRegistration *command) {
    if (App() == nullptr || command == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] { return App()->registry.Register(*command) ? 1 : 0; });
}

std::int32_t RegisterDescription(std::int32_t id, const TableString *name) {
    if (App() == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] { return App()->registry.RegisterDescription(id, ToUtf8(name)) ? 1 : 0; });
}

std::int32_t HostVersion() { return App() == nullptr ? 0 : App()->settings.version; }
std::int32_t VersionType() { return App() == nullptr ? 0 : App()->settings.version_type; }
std::int32_t OperatingSystem() { return App() == nullptr ? 0 : App()->settings.operating_system; }
std::int32_t IsMainThread() { return App() == nullptr || App()->IsOnMainThread() ? 1 : 0; }

double Milliseconds() {
    static const auto start = std::chrono::steady_clock::now();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

void Print(const TableString *line) {
    if (App() != nullptr) Guarded([&] { App()->console.Print(ToUtf8(line)); });
}

std::int32_t MessageBox(const TableString *text, std::int32_t flags) {
    if (App() == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] { return App()->dialogs.Box(ToUtf8(text), flags); });
}

std::int32_t Question(const TableString *text) {
    if (App() == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] { return App()->dialogs.Question(ToUtf8(text)) ? 1 : 0; });
}

std::int32_t Rename(TableString *text) {
    if (App() == nullptr || text == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] {
        std::string name = ToUtf8(text);
        if (!App()->dialogs.Rename(&name)) return 0;
        Assign(text, name);
        return 1;
    });
}

std::int32_t SelectFile(std::int32_t, std::int32_t, const TableString *title, const TableString *suffix,
                        TableFilename *name) {
    if (App() == nullptr || name == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] {
        std::string chosen = ToUtf8(&name->path);
        if (!App()->dialogs.SelectFile(ToUtf8(title), &chosen)) return 0;
        std::filesystem::path path = PathFromText(chosen);
        const std::string forced = ToUtf8(suffix);
        if (!forced.empty()) path.replace_extension(PathFromText(forced));
        Assign(name, path);
        return 1;
    });
}

std::int32_t OpenWebPage(const TableString *address) {
    if (App() == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] {
        App()->requests.opened_pages.push_back(ToUtf8(address));
        return 1;
    });
}

std::int32_t ShowInFinder(const TableFilename *name, std::int32_t) {
    if (App() == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] {
        App()->requests.shown_folders.push_back(PathText(ToPath(name)));
        return 1;
    });
}

std::int32_t ExecuteFile(const TableFilename *name) {
    if (App() == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] {
        App()->requests.executed_files.push_back(PathText(ToPath(name)));
        return 1;
    });
}

void StatusPercent(std::int32_t percent) {
    if (App() != nullptr) Guarded([&] { App()->status.SetPercent(percent); });
}

void StatusText(const TableString *text) {
    if (App() != nullptr) Guarded([&] { App()->status.SetText(ToUtf8(text)); });
}

void StatusSpin() {
    if (App() != nullptr) Guarded([&] { App()->status.SetText("..."); });
}

void StatusClear() {
    if (App() != nullptr) Guarded([&] { App()->status.Clear(); });
}

std::int32_t QualifiersOf(const InputState &input) {
    return (input.shift ? kQualifierShift : 0) | (input.control ? kQualifierControl : 0) |
           (input.alt ? kQualifierAlt : 0);
}

std::int32_t InputStateEntry(std::int32_t device, std::int32_t channel, TableContainer *out) {
    if (App() == nullptr || out == nullptr || (device != kInputMouse && device != kInputKeyboard)) return 0;
    return Guarded<std::int32_t>(0, [&] {
        const InputState &input = App()->input;
        Container &state = AsContainer(out);
        const bool pressed = device == kInputMouse && ((channel == kMouseLeft && input.left_button) ||
                                                       (channel == kMouseRight && input.right_button));
        state.Flush();
        state.Set(kInputDevice, Data(device));
        state.Set(kInputChannel, Data(channel));
        state.Set(kInputValue, Data(std::int32_t{pressed ? 1 : 0}));
        state.Set(kInputQualifier, Data(QualifiersOf(input)));
        state.Set(kInputX, Data(input.mouse_x));
        state.Set(kInputY, Data(input.mouse_y));
        return 1;
    });
}

void StopAllThreads() {
    if (App() != nullptr) ++App()->requests.stop_all_threads;
}

void EventAdd(std::int32_t flags) {
    if (App() != nullptr) App()->QueueEvent(flags);
}

void SpecialEventAdd(std::int32_t, std::uint64_t, std::uint64_t) {
    if (App() != nullptr) ++App()->requests.events;
}

std::int32_t DrawViews(std::int32_t, HostView *) { return 1; }

void CallCommand(std::int32_t id) {
    if (App() != nullptr) Guarded([&] { App()->CallCommand(id); });
}

TableContainer *WorldPluginData(std::int32_t id) { return App() == nullptr ? nullptr : App()->WorldPluginData(id); }

std::int32_t SetWorldPluginData(std::int32_t id, const TableContainer *data, std::int32_t add) {
    if (App() == nullptr || data == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] { return App()->SetWorldPluginData(id, AsContainer(data), add != 0) ? 1 : 0; });
}

void Path(std::int32_t which, TableFilename *out) {
    if (App() == nullptr || out == nullptr) return;
    Guarded([&] {
        const ApplicationSettings &settings = App()->settings;
        switch (which) {
            case kPathApplication:
                return Assign(out, settings.application_folder);
            case kPathResource:
                return Assign(out, settings.application_folder / "resource");
            case kPathLibrary:
                return Assign(out, settings.application_folder / "library");
            case kPathHelp:
                return Assign(out, settings.application_folder / "help");
            case kPathPreferences:
                return Assign(out, settings.user_folder / "prefs");
            case kPathUserLibrary:
                return Assign(out, settings.user_folder / "library");
            default:
                return Assign(out, settings.user_folder);
        }
    });
}

std::int32_t LoadResource(const TableFilename *folder) {
    return Guarded<std::int32_t>(0, [&] { return IsResourceFolder(ToPath(folder)) ? 1 : 0; });
}

void ResourceStringEntry(const TableFilename *folder, std::int32_t id, TableString *out) {
    if (out != nullptr) Guarded([&] { Assign(out, ResourceString(ToPath(folder), id)); });
}

}  // namespace

const GeneralTable *GeneralEntries() {
    static const GeneralTable table = {AllocateEntry,
                                       AllocateUnclearedEntry,
                                       ReallocateEntry,
                                       ReleaseEntry,
                                       RegisterTag,
                                       RegisterCommand,
                                       RegisterDescription,
                                       HostVersion,
                                       VersionType,
                                       OperatingSystem,
                                       IsMainThread,
                                       Milliseconds,
                                       Print,
                                       MessageBox,
                                       Question,
                                       Rename,
                                       SelectFile,
                                       OpenWebPage,
                                       ShowInFinder,
                                       ExecuteFile,
                                       StatusPercent,
                                       StatusText,
                                       StatusSpin,
                                       StatusClear,
                                       InputStateEntry,
                                       StopAllThreads,
                                       EventAdd,
                                       SpecialEventAdd,
                                       DrawViews,
                                       CallCommand,
                                       WorldPluginData,
                                       SetWorldPluginData,
                                       Path,
                                       LoadResource,
                                       ResourceStringEntry};
    return &table;
}

}  // namespace host
