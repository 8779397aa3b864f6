#include "tremolux/words/manual_page.h"

#include "generated/module_version.h"
#include "library/failure.h"

namespace tremolux {
namespace {

// As roff takes it: a dash stays one that can be copied, and no line is a request.
std::string Roff(const std::string &text) {
    std::string escaped;
    for (const char c : text) {
        const bool starts_a_line = escaped.empty() || escaped.back() == '\n';
        if (starts_a_line && (c == '.' || c == '\'')) escaped += "\\&";
        if (c == '\\')
            escaped += "\\e";
        else if (c == '-')
            escaped += "\\-";
        else if (c == '\n')
            escaped += "\n.br\n";
        else
            escaped += c;
    }
    return escaped;
}

std::string OptionText(const DescribedOption &option) {
    std::string names;
    for (const std::string &name : option.names) names += (names.empty() ? "" : ", ") + name;
    if (option.takes_value && !option.is_argument) names += " VALUE";
    std::string text = ".TP\n.B " + Roff(names) + "\n" + Roff(option.help) + "\n";
    if (!option.choices.empty()) {
        std::string choices;
        for (const std::string &choice : option.choices) choices += (choices.empty() ? "" : ", ") + choice;
        text += ".br\nOne of: " + Roff(choices) + "\n";
    }
    return text;
}

std::string SynopsisText(const std::string &path, const DescribedCommand &command) {
    std::string text = path;
    for (const DescribedOption &option : command.options) {
        if (!option.is_argument) continue;
        const std::string name = option.names.front() + (option.repeats ? " ..." : "");
        text += option.required ? " " + name : " [" + name + "]";
    }
    return text + " [OPTION ...]";
}

std::string CommandText(const std::string &above, const DescribedCommand &command) {
    const std::string path = above + " " + command.name;
    std::string text =
        ".SS " + Roff(path) + "\n" + Roff(command.help) + ".\n.PP\n.B " + Roff(SynopsisText(path, command)) + "\n";
    for (const DescribedOption &option : command.options) text += OptionText(option);
    if (command.takes_parents_options && above.find(' ') != std::string::npos)
        text += ".PP\nAnd the options of " + Roff(above) + ".\n";
    for (const DescribedCommand &inner : command.commands) text += CommandText(path, inner);
    return text;
}

}  // namespace

std::string ManualPage(const DescribedCommand &program) {
    std::string text = ".TH TREMOLUX 1 \"\" \"tremolux " TREMOLUX_VERSION_TEXT
                       "\" \"User Commands\"\n.SH NAME\ntremolux \\- makes camera moves hand\\-held\n"
                       ".SH SYNOPSIS\n.B tremolux\nCOMMAND [OPTION ...]\n.SH DESCRIPTION\n" +
                       Roff(program.help) + "\n.SH OPTIONS\n";
    for (const DescribedOption &option : program.options) text += OptionText(option);
    text += ".SH COMMANDS\n";
    for (const DescribedCommand &command : program.commands) text += CommandText(program.name, command);
    text += ".SH EXIT STATUS\n";
    for (const ExitMeaning &meaning : kExitMeanings)
        text += ".TP\n.B " + std::to_string(meaning.status) + "\n" + Roff(meaning.words) + "\n";
    return text;
}

}  // namespace tremolux
