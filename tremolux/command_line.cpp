#include "tremolux/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <utility>

#include "library/failure.h"
#include "library/formats/source_text.h"
#include "library/parameters/nearest.h"

namespace tremolux {
namespace {

constexpr const char *kHelpCommand = "help";

std::vector<const CLI::App *> ShownCommands(const CLI::App &app) {
    return app.get_subcommands([](const CLI::App *command) { return !command->get_group().empty(); });
}

// Of the help's "TEXT:{quick,brute}".
std::vector<std::string> ChoicesOf(const CLI::Option &option) {
    const std::string type = option.get_type_name();
    const std::size_t start = type.find('{'), end = type.find('}');
    std::vector<std::string> choices;
    if (start != std::string::npos && end != std::string::npos)
        choices = CLI::detail::split(type.substr(start + 1, end - start - 1), ',');
    return choices;
}

DescribedOption DescriptionOf(const CLI::Option &option) {
    DescribedOption described;
    for (const std::string &name : option.get_snames()) described.names.push_back("-" + name);
    for (const std::string &name : option.get_lnames()) described.names.push_back("--" + name);
    described.is_argument = described.names.empty();
    if (described.is_argument) described.names.push_back(option.get_name(true));
    described.help = option.get_description();
    described.takes_value = option.get_items_expected_max() > 0;
    described.required = option.get_required();
    described.repeats =
        option.get_items_expected_max() > 1 || option.get_multi_option_policy() == CLI::MultiOptionPolicy::TakeAll;
    described.choices = ChoicesOf(option);
    return described;
}

DescribedCommand DescriptionOf(const CLI::App &app) {
    DescribedCommand described{app.get_name(), app.get_description(), {}, app.get_fallthrough(), {}};
    const auto is_shown = [](const CLI::Option *option) { return !option->get_group().empty(); };
    for (const CLI::Option *option : app.get_options(is_shown)) described.options.push_back(DescriptionOf(*option));
    for (const CLI::App *command : ShownCommands(app)) described.commands.push_back(DescriptionOf(*command));
    return described;
}

std::vector<std::string> CommandNames(const CLI::App &app) {
    std::vector<std::string> names;
    for (const CLI::App *command : ShownCommands(app)) names.push_back(command->get_name());
    return names;
}

bool IsOption(const std::string &argument) { return argument.size() > 1 && argument.front() == '-'; }

// Of the command and of those above it, where it takes theirs too.
std::vector<std::string> OptionNames(const CLI::App *app) {
    std::vector<std::string> names;
    for (; app != nullptr; app = app->get_fallthrough() ? app->get_parent() : nullptr) {
        for (const CLI::Option *option : app->get_options()) {
            for (const std::string &name : option->get_lnames()) names.push_back("--" + name);
            for (const std::string &name : option->get_snames()) names.push_back("-" + name);
        }
    }
    return names;
}

// As the user called it: "tremolux presets show".
std::string CalledName(const CLI::App *app) {
    return app->get_parent() == nullptr ? app->get_name() : CalledName(app->get_parent()) + " " + app->get_name();
}

[[noreturn]] void RefuseCommand(const CLI::App &app, const std::string &found) {
    throw Failure(kExitInput, CalledName(&app) + ": found the command " + Quoted(found) +
                                  ", expected one of its commands" + DidYouMean(found, CommandNames(app)));
}

// What the parser could not place says more than what it missed for that.
void RefuseUnknown(const CLI::App &program) {
    const CLI::App *app = &program;
    while (!app->get_subcommands().empty()) app = app->get_subcommands().back();
    const std::vector<std::string> unknown = program.remaining(true);
    for (const std::string &argument : unknown) {
        if (!IsOption(argument)) continue;
        const std::string name = argument.substr(0, argument.find('='));
        throw Failure(kExitInput, CalledName(app) + ": found the option " + Quoted(name) +
                                      ", expected one of its options" + DidYouMean(name, OptionNames(app)));
    }
    if (unknown.empty()) return;
    if (!CommandNames(*app).empty()) RefuseCommand(*app, unknown.front());
    throw Failure(kExitInput,
                  CalledName(app) + ": found " + Quoted(unknown.front()) + ", expected no further argument");
}

}  // namespace

Option &Option::Required(bool required) {
    option_->required(required);
    return *this;
}

Option &Option::Description(const std::string &text) {
    option_->description(text);
    return *this;
}

Option &Option::ShowDefault() {
    option_->capture_default_str();
    return *this;
}

Option &Option::OneOf(const std::vector<std::string> &values) {
    std::string list;
    for (const std::string &value : values) list += (list.empty() ? "" : ",") + value;
    const auto check = [values, list](const std::string &found) {
        const bool is_one = std::find(values.begin(), values.end(), found) != values.end();
        return is_one ? std::string()
                      : "found " + Quoted(found) + ", expected one of " + list + DidYouMean(found, values);
    };
    option_->check(CLI::Validator(check, "{" + list + "}"));
    return *this;
}

Option &Option::Hidden() {
    option_->group("");
    return *this;
}

Option &Option::Once() {
    option_->expected(1);
    return *this;
}

Option &Option::OptionalValue() {
    option_->expected(0, 1);
    return *this;
}

Option &Option::Repeatable() {
    option_->expected(1)->take_all();
    return *this;
}

Command Command::Subcommand(const std::string &name, const std::string &help) const {
    return Command(app_->add_subcommand(name, help));
}

Option Command::Add(const std::string &names, std::string *text, const std::string &help) const {
    return Option(app_->add_option(names, *text, help));
}

Option Command::Add(const std::string &names, std::vector<std::string> *list, const std::string &help) const {
    return Option(app_->add_option(names, *list, help));
}

Option Command::Add(const std::string &names, bool *flag, const std::string &help) const {
    return Option(app_->add_flag(names, *flag, help));
}

Option Command::Find(const std::string &name) const { return Option(app_->get_option(name)); }

std::string Command::Given(const std::vector<std::string> &but_for) const {
    std::string given;
    for (const CLI::Option *option : app_->get_options()) {
        const std::string name = option->get_name();
        if (option->count() == 0 || name.empty() || std::find(but_for.begin(), but_for.end(), name) != but_for.end())
            continue;
        given += name;
        for (const std::string &value : option->results()) given += '\0' + value;
        given += '\n';
    }
    return given;
}

void Command::Hide() const { app_->group(""); }

void Command::AllowOneSubcommand() const { app_->require_subcommand(0, 1); }

bool Command::HasSubcommand() const { return !app_->get_subcommands().empty(); }

void Command::TakeFromParent() const { app_->fallthrough(); }

void Command::OnCall(std::function<void()> call) const { app_->callback(std::move(call)); }

CommandLine::CommandLine(const std::string &name, const std::string &help)
    : app_(std::make_unique<CLI::App>(help, name)) {
    app_->require_subcommand(1);
    CLI::App *help_command = app_->add_subcommand(kHelpCommand, "Prints this, or what a command takes: help COMMAND");
    help_command->callback([] { throw CLI::CallForHelp(); });
    app_->allow_windows_style_options(false);  // a path may begin with "/" there too
}

CommandLine::~CommandLine() = default;

void CommandLine::OnVersion(std::function<std::string()> text) {
    app_->set_version_flag("--version", std::move(text), "Prints the versions of the program and its module");
}

void CommandLine::Footer(const std::string &text) { app_->footer(text); }

DescribedCommand CommandLine::Describe() const { return DescriptionOf(*app_); }

bool CommandLine::Parse(std::vector<std::string> arguments) {
    // As if the command were asked itself: the same text.
    if (!arguments.empty() && arguments.front() == kHelpCommand) {
        arguments.erase(arguments.begin());
        arguments.emplace_back("--help");
    }
    const auto is_asked = [&](const CLI::App *command) { return command->get_name() == arguments.front(); };
    if (!arguments.empty() && !IsOption(arguments.front()) && app_->get_subcommands(is_asked).empty())
        RefuseCommand(*app_, arguments.front());
    try {
        std::reverse(arguments.begin(), arguments.end());  // as the parser takes them
        app_->parse(arguments);
        return true;
    } catch (const CLI::ParseError &error) {
        if (error.get_exit_code() != 0) RefuseUnknown(*app_);
        if (error.get_exit_code() != 0) throw Failure(kExitInput, app_->get_name() + ": " + error.what());
        app_->exit(error);  // prints the help
        return false;
    }
}

}  // namespace tremolux
