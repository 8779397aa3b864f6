#include "host/ui/panel.h"

#include "generated/module_ids.h"
#include "library/failure.h"
#include "library/parameters/settings.h"
#include "library/presets/catalog.h"
#include "library/shots/embedded_host.h"
#include "library/shots/stage.h"
#include "tremolux/commands/commands.h"
#include "tremolux/commands/move_options.h"
#include "tremolux/pictures/panel_page.h"
#include "tremolux/process/output_files.h"
#include "tremolux/words/panel_text.h"

namespace tremolux {
namespace {

struct PanelOptions {
    HostOptions host;
    std::vector<std::string> settings;
    std::string preset;
    bool baked = false, target = false, json = false;
    std::vector<std::string> pages;  // at most one; none: text on the standard output
};

void ShowPanel(const PanelOptions &options) {
    if (options.json && !options.pages.empty())
        throw Failure(kExitInput, "panel: found --json and a page to write, expected one of them");
    OutputFiles files(options.pages, {});
    const EmbeddedHost host(options.host.ModuleFile(), options.host.Home());
    CameraMove standing;
    standing.samples.emplace_back();
    Stage stage(standing);
    host::Tag *tag = &stage.CameraTag();
    if (!options.preset.empty()) ChoosePreset(FindPreset(ReadCatalog(tag), options.preset, "--preset"), tag);
    if (options.target) stage.AddTarget(standing);
    ApplySettings(options.settings, standing.rate.Whole(), tag);
    SayBeyondSliders(options.settings, standing.rate.Whole(), *tag);
    if (options.baked) stage.CameraTag().Data().Set(ids::kBaked, host::Data(std::int32_t{1}));

    const std::vector<host::PanelGroup> tabs = host::BuildPanel(&stage.CameraTag());
    if (options.pages.empty()) {
        Print(options.json ? PanelJson(tabs) : PanelText(tabs));
    } else {
        files.Write({PanelPage(tabs, stage.CameraTag().Name())});
    }
}

}  // namespace

void AddPanelCommand(Command program, Action *action) {
    const auto options = std::make_shared<PanelOptions>();
    Command command = program.Subcommand("panel", "Shows the tag's panel as text, or as a page for a browser");
    command.Add("--set", &options->settings, "LABEL=VALUE or ID=VALUE, as for shake").Repeatable();
    command.Add("--preset", &options->preset, "CATEGORY/NAME or NAME: the preset that is chosen");
    command.Add("--baked", &options->baked, "as after baking");
    command.Add("--target", &options->target, "with a target object");
    command.Add("-o,--output,--html", &options->pages, "page to write, .html; else text on the standard output").Once();
    command.Add("--json", &options->json, "as one JSON object");
    AddHostOptions(command, &options->host);
    command.OnCall([=] { *action = [options] { ShowPanel(*options); }; });
}

}  // namespace tremolux
