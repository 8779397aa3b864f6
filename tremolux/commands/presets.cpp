#include <algorithm>

#include "generated/module_ids.h"
#include "host/files/folders.h"
#include "host/files/hyperfile.h"
#include "host/services/platform.h"
#include "host/ui/attribute_manager.h"
#include "host/value/descid.h"
#include "host/value/text.h"
#include "library/failure.h"
#include "library/formats/source_text.h"
#include "library/parameters/settings.h"
#include "library/parameters/shown_values.h"
#include "library/presets/catalog.h"
#include "library/presets/facts.h"
#include "library/presets/left_out.h"
#include "library/presets/mix.h"
#include "library/shots/embedded_host.h"
#include "library/shots/stage.h"
#include "tremolux/commands/commands.h"
#include "tremolux/commands/move_options.h"
#include "tremolux/process/output_files.h"
#include "tremolux/words/presets_json.h"

namespace tremolux {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kNameWidth = 30;

struct PresetsOptions {
    HostOptions host;
    std::string name, other, category = "User", folder;
    std::vector<std::string> from, settings, files;
    bool replace = false, as_default = false, all = false, built_in = false, reset = false, json = false;
};

// A tag whose buttons are pressed: everything happens by the module's own messages.
class PresetDesk {
  public:
    explicit PresetDesk(const HostOptions &options) : host_(options.ModuleFile(), options.Home()), stage_(Still()) {}
    host::Tag *Tag() { return &stage_.CameraTag(); }
    int Rate() const { return stage_.Document().Fps(); }
    EmbeddedHost &Host() { return host_; }
    // Its category and name.
    std::string Choose(const std::string &preset, const std::string &place) {
        const std::vector<CatalogEntry> catalog = ReadCatalog(Tag());
        const CatalogEntry &entry = FindPreset(catalog, preset, place);
        ChoosePreset(entry, Tag());
        return entry.category + "/" + entry.name;
    }
    void Press(std::int32_t button, bool control = false) {
        host_.Application().input.control = control;
        host::PressButton(Tag(), host::MakeId(button));
        host_.Application().input.control = false;
    }
    host::Dialogs &Dialogs() { return host_.Application().dialogs; }
    fs::path UserFolder() { return fs::u8path(Tag()->Data().Text(ids::kUserPresetFolder)); }

  private:
    static CameraMove Still() {
        CameraMove move;
        move.samples.emplace_back();
        return move;
    }
    EmbeddedHost host_;
    Stage stage_;
};

std::string Cell(std::string text, std::size_t width) {
    text.append(text.size() < width ? width - text.size() : 1, ' ');
    return text;
}

void List(const PresetsOptions &options) {
    PresetDesk desk(options.host);
    const auto facts = ReadPresetFacts(desk.Host().ModuleFile());
    const std::vector<CatalogEntry> catalog = ReadCatalog(desk.Tag());
    const std::vector<std::string> left_out = LeftOutPresets(desk.Host().Application().console.lines);
    if (options.json) {
        Print(PresetListJson(catalog, facts, left_out));
        return;
    }
    std::string text, category;
    for (const CatalogEntry &entry : catalog) {
        if (entry.category != category) text += (text.empty() ? "" : "\n") + entry.category + "\n";
        category = entry.category;
        const auto fact = facts.find(entry.name);
        const bool is_known = fact != facts.end() && category != "User";
        text += "  " + (is_known ? Cell(entry.name, kNameWidth) + fact->second.about : entry.name) + "\n";
    }
    if (text.empty()) text = "no presets\n";
    if (!left_out.empty()) text += "\nLeft out\n";
    for (const std::string &file_and_reason : left_out) text += "  " + file_and_reason + "\n";
    Print(text);
}

void Show(const PresetsOptions &options) {
    PresetDesk desk(options.host);
    const std::string preset = desk.Choose(options.name, "show");
    const std::vector<ShownValue> values = PresetValues(desk.Tag());
    if (options.json) {
        Print(PresetJson(preset, values));
        return;
    }
    std::string text;
    for (const ShownValue &value : values) text += Cell(value.label, kNameWidth) + value.value + "\n";
    Print(text);
}

void Diff(const PresetsOptions &options) {
    PresetDesk desk(options.host);
    const std::string first = desk.Choose(options.name, "diff");
    const std::vector<ShownValue> a = PresetValues(desk.Tag());
    const std::string second = desk.Choose(options.other, "diff");
    const std::vector<ShownValue> b = PresetValues(desk.Tag());
    if (options.json) {
        Print(PresetDifferenceJson({first, second}, a, b));
        return;
    }
    std::string text;
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i)
        if (a[i].value != b[i].value)
            text += Cell(a[i].label, kNameWidth) + Cell(a[i].value, kNameWidth / 2) + b[i].value + "\n";
    Print(text);
}

bool SameValues(const std::vector<ShownValue> &a, const std::vector<ShownValue> &b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const ShownValue &x, const ShownValue &y) { return x.id == y.id && x.value == y.value; });
}

// In the module's own words where it said something.
void CheckThatNothingWasRefused(const std::string &name, const host::Dialogs &dialogs) {
    for (const host::Dialogs::Shown &shown : dialogs.All()) {
        if (shown.kind == host::Dialogs::Kind::kMessage) throw Failure(kExitInput, "save: " + shown.text);
        if (shown.kind == host::Dialogs::Kind::kQuestion && shown.answer == "no")
            throw Failure(kExitInput,
                          "save: found a preset " + Quoted(name) + " already, expected another name, or --replace");
    }
}

void Save(const PresetsOptions &options) {
    PresetDesk desk(options.host);
    if (!options.from.empty()) ChooseMix(ReadPresetShares(ReadCatalog(desk.Tag()), options.from, "--from"), desk.Tag());
    ApplySettings(options.settings, desk.Rate(), desk.Tag());
    SayBeyondSliders(options.settings, desk.Rate(), *desk.Tag());
    const std::vector<ShownValue> wanted = PresetValues(desk.Tag());
    desk.Dialogs().AnswerText(options.name);
    if (options.as_default) desk.Dialogs().AnswerYes();
    if (options.replace) desk.Dialogs().AnswerYes();
    desk.Press(ids::kSavePreset, options.as_default);
    CheckThatNothingWasRefused(options.name, desk.Dialogs());

    for (const CatalogEntry &entry : ReadCatalog(desk.Tag())) {
        if (entry.category_value != ids::kCategoryUser || entry.name != options.name) continue;
        ChoosePreset(entry, desk.Tag());
        if (!SameValues(PresetValues(desk.Tag()), wanted)) continue;
        Print("saved " + options.name + " in " + host::PathText(desk.UserFolder()) + "\n");
        return;
    }
    throw Failure(kExitOutput, "save: found " + Quoted(options.name) + " for " + host::PathText(desk.UserFolder()) +
                                   ", expected a name for a file (150 bytes at most) and a folder that can be written");
}

void Export(const PresetsOptions &options) {
    PresetDesk desk(options.host);
    if (options.all) {
        desk.Press(ids::kExportAll, options.built_in);
    } else {
        if (options.name.empty()) throw Failure(kExitInput, "export: found nothing, expected a preset or --all");
        desk.Choose(options.name, "export");
        // From this list every preset is exported, whosever it is.
        host::EditParameter(desk.Tag(), host::MakeId(ids::kCategory), host::Data(ids::kCategoryAll));
        desk.Press(ids::kExportCurrent);
    }
    Print("exported to " + host::PathText(desk.UserFolder().parent_path() / "Exports") + "\n");
}

void CheckPresetFile(const fs::path &file) {
    host::HyperFile stream;
    host::Container preset;
    if (!stream.Open(ids::kPresetFileCode, file, host::FileMode::kRead) || !stream.ReadContainer(&preset))
        throw Failure(kExitInput, host::PathText(file) + ": found no preset, expected a file that was saved as one");
}

// The module takes over what lies in its import folder when a tag is evaluated for the first time.
void Import(const PresetsOptions &options) {
    if (options.category.empty() || options.category[0] == '.' ||
        options.category.find_first_of("/\\") != std::string::npos)
        throw Failure(kExitInput,
                      "--category: found " + Quoted(options.category) + ", expected the name of a category");
    const fs::path folder = options.host.ModuleFile().parent_path() / "Imports" / fs::u8path(options.category);
    for (const std::string &file : options.files) CheckPresetFile(fs::u8path(file));
    std::error_code error;
    fs::create_directories(folder, error);
    std::vector<fs::path> copies;
    for (const std::string &file : options.files) {
        copies.push_back(folder / fs::u8path(file).filename());
        if (host::CopyFileTo(fs::u8path(file), copies.back(), false)) continue;
        // All or none: what is left there would be taken over another time.
        copies.pop_back();
        for (const fs::path &copy : copies) host::RemoveFile(copy, 0);
        throw Failure(kExitOutput, host::PathText(folder) + ": found no room for " + Quoted(file) +
                                       ", expected a folder that can be written and holds no such file");
    }
    const PresetDesk desk(options.host);
    for (const std::string &file : options.files)
        if (host::RemoveFile(folder / fs::u8path(file).filename(), 0))
            throw Failure(kExitOutput, host::PathText(folder) + ": the module did not take over " + Quoted(file) +
                                           ", expected preset folders that can be written");
    Print("imported " + std::to_string(options.files.size()) + " into " + options.category + "\n");
}

void Path(const PresetsOptions &options) {
    PresetDesk desk(options.host);
    if (!options.folder.empty()) {
        const fs::path folder = host::AbsolutePath(fs::u8path(options.folder));
        if (!fs::is_directory(folder))
            throw Failure(kExitInput, "path: found " + Quoted(options.folder) + ", expected a folder that is there");
        desk.Dialogs().AnswerText(host::PathText(folder));
        desk.Press(ids::kChoosePresetFolder);
    } else if (options.reset) {
        desk.Press(ids::kResetPresetFolder);
    }
    Print(host::PathText(desk.UserFolder()) + "\n");
}

using PresetJob = void (*)(const PresetsOptions &);

}  // namespace

void AddPresetsCommand(Command program, Action *action) {
    const auto options = std::make_shared<PresetsOptions>();
    Command presets = program.Subcommand("presets",
                                         "Lists the presets by category; or shows, compares, saves, "
                                         "exports and imports them");
    presets.AllowOneSubcommand();
    AddHostOptions(presets, &options->host);
    presets.Add("--json", &options->json, "the list, or what show and diff print, as one JSON object");
    presets.TakeFromParent();
    presets.OnCall([=] {
        if (!presets.HasSubcommand()) *action = [options] { List(*options); };
    });
    const auto add = [&](const char *name, const char *help, PresetJob job) {
        Command command = presets.Subcommand(name, help);
        command.TakeFromParent();
        command.OnCall([=] { *action = [=] { job(*options); }; });
        return command;
    };
    const char *const preset_help = "CATEGORY/NAME, NAME, or a part that only one preset has";
    add("list", "Lists the presets by category, and the files that are left out with the reason", List);
    add("show", "Prints every setting of a preset", Show).Add("NAME", &options->name, preset_help).Required();

    Command diff = add("diff", "Prints the settings in which two presets differ", Diff);
    diff.Add("A", &options->name, preset_help).Required();
    diff.Add("B", &options->other, preset_help).Required();

    Command save = add("save", "Saves a preset of your own", Save);
    save.Add("NAME", &options->name, "its name").Required();
    save.Add("--from", &options->from,
             "the preset to begin with; given again it is mixed, as for shake --preset; else a new tag's settings")
        .Repeatable();
    save.Add("--set", &options->settings, "LABEL=VALUE or ID=VALUE, as for shake").Repeatable();
    save.Add("--replace", &options->replace, "replace the preset of that name");
    save.Add("--default", &options->as_default, "as a default preset, which is replaced only by another one");

    Command exporting = add("export", "Copies presets to the export folder", Export);
    exporting.Add("NAME", &options->name, preset_help);
    exporting.Add("--all", &options->all, "all of your own");
    exporting.Add("--built-in", &options->built_in, "with --all: the built-in ones too");

    Command importing = add("import", "Takes over preset files", Import);
    importing.Add("FILE", &options->files, "preset files").Required();
    importing.Add("--category", &options->category, "the category to put them in, or User").ShowDefault();

    AddNearestCommand(presets, action);

    Command path = add("path", "Prints the folder of your own presets, or chooses another", Path);
    path.Add("FOLDER", &options->folder, "the folder to use from now on");
    path.Add("--reset", &options->reset, "back to the usual folder");
}

}  // namespace tremolux
