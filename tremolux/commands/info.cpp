#include "generated/module_version.h"
#include "host/value/text.h"
#include "library/shots/embedded_host.h"
#include "tremolux/commands/commands.h"
#include "tremolux/commands/move_options.h"
#include "tremolux/process/output_files.h"
#include "tremolux/words/json_text.h"

namespace tremolux {
namespace {

struct InfoOptions {
    HostOptions host;
    bool json = false;
};

void Info(const InfoOptions &options) {
    const EmbeddedHost host(options.host.ModuleFile(), options.host.Home());
    if (options.json) {
        Print(JsonText({{"version", TREMOLUX_VERSION_TEXT},
                        {"console", host.Application().console.lines},
                        {"module", host::PathText(host.ModuleFile())},
                        {"registered", host.Application().registry.Order()}}));
        return;
    }
    std::string text;
    for (const std::string &line : host.Application().console.lines) text += line + "\n";
    text += "module     " + host::PathText(host.ModuleFile()) + "\n";
    for (const std::string &registered : host.Application().registry.Order()) text += "registered " + registered + "\n";
    Print(text);
}

}  // namespace

std::string VersionText() {
    const HostOptions options;
    const EmbeddedHost host(options.ModuleFile(), options.Home());
    const std::vector<std::string> &lines = host.Application().console.lines;
    return "tremolux " TREMOLUX_VERSION_TEXT + (lines.empty() ? std::string() : "\n" + lines.front());
}

void AddInfoCommand(Command program, Action *action) {
    const auto options = std::make_shared<InfoOptions>();
    Command command = program.Subcommand("info", "Prints the module's version line and what it registers");
    AddHostOptions(command, &options->host);
    command.Add("--json", &options->json, "as one JSON object");
    command.OnCall([=] { *action = [options] { Info(*options); }; });
}

}  // namespace tremolux
