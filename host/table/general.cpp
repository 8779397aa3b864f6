#include "host/application.h"
#include "host/scene/view.h"
#include "host/services/resource.h"
#include "host/table/entries.h"
#include "host/table/guard.h"
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

std::int32_t QualifiersOf(const InputState &input) {
    return (input.shift ? kQualifierShift : 0) | (input.control ? kQualifierControl : 0) |
           (input.alt ? kQualifierAlt : 0);
}

}  // namespace

void *GeneralEntries::allocate(std::int64_t bytes) { return Allocate(bytes); }

void *GeneralEntries::allocate_uncleared(std::int64_t bytes) { return AllocateUncleared(bytes); }

void GeneralEntries::release(void *memory) { Release(memory); }

std::int32_t GeneralEntries::register_tag(const TagRegistration *tag) {
    if (App() == nullptr || tag == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] { return App()->registry.Register(*tag) ? 1 : 0; });
}

std::int32_t GeneralEntries::register_command(const CommandRegistration *command) {
    if (App() == nullptr || command == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] { return App()->registry.Register(*command) ? 1 : 0; });
}

std::int32_t GeneralEntries::host_version() { return App() == nullptr ? 0 : App()->settings.version; }

std::int32_t GeneralEntries::version_type() { return App() == nullptr ? 0 : App()->settings.version_type; }

std::int32_t GeneralEntries::operating_system() { return App() == nullptr ? 0 : App()->settings.operating_system; }

std::int32_t GeneralEntries::is_main_thread() { return App() == nullptr || App()->IsOnMainThread() ? 1 : 0; }

void GeneralEntries::print(const TableString *line) {
    if (App() != nullptr) Guarded([&] { App()->console.Print(ToUtf8(line)); });
}

std::int32_t GeneralEntries::message_box(const TableString *text, std::int32_t flags) {
    if (App() == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] { return App()->dialogs.Box(ToUtf8(text), flags); });
}

std::int32_t GeneralEntries::question(const TableString *text) {
    if (App() == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] { return App()->dialogs.Question(ToUtf8(text)) ? 1 : 0; });
}

std::int32_t GeneralEntries::rename(TableString *text) {
    if (App() == nullptr || text == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] {
        std::string name = ToUtf8(text);
        if (!App()->dialogs.Rename(&name)) return 0;
        Assign(text, name);
        return 1;
    });
}

std::int32_t GeneralEntries::select_file(std::int32_t, std::int32_t, const TableString *title,
                                         const TableString *suffix, TableFilename *name) {
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

std::int32_t GeneralEntries::open_web_page(const TableString *address) {
    if (App() == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] {
        App()->requests.opened_pages.push_back(ToUtf8(address));
        return 1;
    });
}

std::int32_t GeneralEntries::show_in_finder(const TableFilename *name, std::int32_t) {
    if (App() == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] {
        App()->requests.shown_folders.push_back(PathText(ToPath(name)));
        return 1;
    });
}

void GeneralEntries::status_bar(std::int32_t percent) {
    if (App() != nullptr) Guarded([&] { App()->status.SetPercent(percent); });
}

void GeneralEntries::status_clear() {
    if (App() != nullptr) Guarded([&] { App()->status.Clear(); });
}

std::int32_t GeneralEntries::input_state(std::int32_t device, std::int32_t channel, TableContainer *out) {
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

void GeneralEntries::stop_all_threads() {
    if (App() != nullptr) ++App()->requests.stop_all_threads;
}

void GeneralEntries::event_add(std::int32_t flags) {
    if (App() != nullptr) App()->QueueEvent(flags);
}

void GeneralEntries::call_command(std::int32_t id) {
    if (App() != nullptr) Guarded([&] { App()->CallCommand(id); });
}

TableContainer *GeneralEntries::world_plugin_data(std::int32_t id) {
    return App() == nullptr ? nullptr : App()->WorldPluginData(id);
}

std::int32_t GeneralEntries::set_world_plugin_data(std::int32_t id, const TableContainer *data, std::int32_t add) {
    if (App() == nullptr || data == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] { return App()->SetWorldPluginData(id, AsContainer(data), add != 0) ? 1 : 0; });
}

void GeneralEntries::path(std::int32_t which, TableFilename *out) {
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

std::int32_t GeneralEntries::load_resource(const TableFilename *folder) {
    return Guarded<std::int32_t>(0, [&] { return IsResourceFolder(ToPath(folder)) ? 1 : 0; });
}

}  // namespace host
