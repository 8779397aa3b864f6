#include "tremolux/words/completions.h"

#include <functional>

namespace tremolux {
namespace {

using Options = std::vector<DescribedOption>;
// Of every command: "" for the program, "presets show"; all options that it takes.
using Visit = std::function<void(const std::string &path, const DescribedCommand &, const Options &)>;

void ForEachCommand(const DescribedCommand &command, const std::string &path, Options above, const Visit &visit) {
    if (!command.takes_parents_options) above.clear();
    Options options = command.options;
    // Help is each command's own.
    for (const DescribedOption &option : above)
        if (option.names.back() != "--help") options.push_back(option);
    visit(path, command, options);
    for (const DescribedCommand &inner : command.commands)
        ForEachCommand(inner, path + (path.empty() ? "" : " ") + inner.name, options, visit);
}

std::string Words(const std::vector<std::string> &words) {
    std::string text;
    for (const std::string &word : words) text += (text.empty() ? "" : " ") + word;
    return text;
}

// Between single quotes; `quote` is what a quote becomes.
std::string InQuotes(const std::string &text, const char *quote) {
    std::string quoted = "'";
    for (const char c : text) {
        if (c == '\'')
            quoted += quote;
        else
            quoted += c == '\n' ? ' ' : c;
    }
    return quoted + "'";
}

constexpr const char *kShellQuote = "'\\''", *kFishQuote = "\\'";

std::string WithBackslashes(const std::string &text, const char *special) {
    std::string escaped;
    for (const char c : text)
        escaped += (std::string(special).find(c) != std::string::npos ? "\\" : "") + std::string(1, c);
    return escaped;
}

// Of a case of bash: what it does for the pattern.
std::string BashCase(const std::string &pattern, const char *variable, const std::string &value) {
    return InQuotes(pattern, kShellQuote) + ") " + variable + "=" + InQuotes(value, kShellQuote) + " ;;\n";
}

std::vector<std::string> OptionWords(const Options &options) {
    std::vector<std::string> words;
    for (const DescribedOption &option : options)
        if (!option.is_argument) words.insert(words.end(), option.names.begin(), option.names.end());
    return words;
}

// What zsh's _arguments takes for one name of an option.
std::string ZshOption(const DescribedOption &option, const std::string &name) {
    std::string text = (option.repeats ? "*" : "") + name + "[" + WithBackslashes(option.help, "[]\\:") + "]";
    if (!option.takes_value) return InQuotes(text, kShellQuote);
    text += ":value:" + (option.choices.empty() ? std::string("_files") : "(" + Words(option.choices) + ")");
    return InQuotes(text, kShellQuote);
}

}  // namespace

std::string BashCompletion(const DescribedCommand &program) {
    std::string paths, choices, words;
    ForEachCommand(program, "", {},
                   [&](const std::string &path, const DescribedCommand &command, const Options &options) {
                       const std::string prefix = path + "/";
                       for (const DescribedCommand &inner : command.commands) {
                           const std::string inner_path = path + (path.empty() ? "" : " ") + inner.name;
                           paths += "            " + BashCase(prefix + inner.name, "command", inner_path);
                       }
                       for (const DescribedOption &option : options) {
                           if (option.choices.empty()) continue;
                           for (const std::string &name : option.names)
                               choices += "        " + BashCase(prefix + name, "words", Words(option.choices));
                       }
                       std::vector<std::string> all = OptionWords(options);
                       for (const DescribedCommand &inner : command.commands) all.push_back(inner.name);
                       words += "        " + BashCase(path, "words", Words(all));
                   });
    return "# Completion of tremolux for bash.\n"
           "_tremolux() {\n"
           "    local current=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command='' words='' i\n"
           "    for ((i = 1; i < COMP_CWORD; i++)); do\n"
           "        case \"$command/${COMP_WORDS[i]}\" in\n" +
           paths +
           "        esac\n"
           "    done\n"
           "    COMPREPLY=()\n"
           "    case \"$command/$before\" in\n" +
           choices +
           "    esac\n"
           "    if [[ -n $words ]]; then\n"
           "        mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"$current\")\n"
           "        return\n"
           "    fi\n"
           "    case \"$command\" in\n" +
           words +
           "    esac\n"
           "    # Words that are no option are files, but where a command is still to come.\n"
           "    if [[ $current == -* || $command == '' || $command == presets ]]; then\n"
           "        mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"$current\")\n"
           "    fi\n"
           "}\n"
           "complete -o default -F _tremolux tremolux\n";
}

std::string ZshCompletion(const DescribedCommand &program) {
    std::string functions;
    ForEachCommand(
        program, "", {}, [&](const std::string &path, const DescribedCommand &command, const Options &options) {
            std::string name = "_tremolux";
            for (const char c : path.empty() ? path : " " + path) name += c == ' ' ? '_' : c;
            functions += name + "() {\n";
            if (!command.commands.empty()) {
                std::string list;
                functions += "    if (( CURRENT > 2 )); then\n        case $words[2] in\n";
                for (const DescribedCommand &inner : command.commands) {
                    functions += "            " + inner.name + ") shift words; (( CURRENT-- )); " + name + "_" +
                                 inner.name + "; return ;;\n";
                    list += "        " + InQuotes(inner.name + ":" + WithBackslashes(inner.help, ":\\"), kShellQuote) +
                            "\n";
                }
                functions += "        esac\n    fi\n    local -a commands=(\n" + list +
                             "    )\n    _describe command commands\n";
            }
            functions += "    _arguments";
            for (const DescribedOption &option : options) {
                if (option.is_argument) continue;
                for (const std::string &option_name : option.names)
                    functions += " \\\n        " + ZshOption(option, option_name);
            }
            if (command.commands.empty()) functions += " \\\n        '*:file:_files'";
            functions += "\n}\n";
        });
    return "#compdef tremolux\n# Completion of tremolux for zsh.\n" + functions + "_tremolux \"$@\"\n";
}

std::string FishCompletion(const DescribedCommand &program) {
    std::string lines;
    ForEachCommand(program, "", {},
                   [&](const std::string &path, const DescribedCommand &command, const Options &options) {
                       const std::string here = "complete -c tremolux -n '__tremolux_is " + path + "'";
                       for (const DescribedCommand &inner : command.commands)
                           lines += "complete -c tremolux -f -n '__tremolux_awaits " + path + "' -a " + inner.name +
                                    " -d " + InQuotes(WithBackslashes(inner.help, "\\"), kFishQuote) + "\n";
                       for (const DescribedOption &option : options) {
                           if (option.is_argument) continue;
                           lines += here;
                           for (const std::string &name : option.names)
                               lines += name.rfind("--", 0) == 0 ? " -l " + name.substr(2) : " -s " + name.substr(1);
                           if (!option.choices.empty())
                               lines += " -x -a '" + Words(option.choices) + "'";
                           else if (option.takes_value)
                               lines += " -r";
                           lines += " -d " + InQuotes(WithBackslashes(option.help, "\\"), kFishQuote) + "\n";
                       }
                   });
    return "# Completion of tremolux for fish.\n"
           "# Whether the line begins with these commands.\n"
           "function __tremolux_is\n"
           "    set -l words (commandline -opc)\n"
           "    test (count $words) -gt (count $argv); or return 1\n"
           "    test (count $argv) -eq 0; and return\n"
           "    set -l last (math 1 + (count $argv))\n"
           "    test \"$words[2..$last]\" = \"$argv\"\n"
           "end\n"
           "# Whether the next word is a command of these.\n"
           "function __tremolux_awaits\n"
           "    __tremolux_is $argv; and test (count (commandline -opc)) -eq (math 1 + (count $argv))\n"
           "end\n" +
           lines;
}

}  // namespace tremolux
