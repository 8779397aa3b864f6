// What the program can be asked for. The parser's own headers stay behind this: they would cost each command's file ten
// seconds of compiling.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tremolux/described_command.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace tremolux {

// An argument, an option or a flag; the parser owns it.
class Option {
  public:
    explicit Option(CLI::Option *option) : option_(option) {}
    Option &Required(bool required = true);
    Option &Description(const std::string &text);
    Option &ShowDefault();
    Option &OneOf(const std::vector<std::string> &values);
    Option &Hidden();         // from the help
    Option &Once();           // of a list: one value
    Option &OptionalValue();  // of a list: one value or none, which is an empty text
    Option &Repeatable();     // of a list: one value each time it is given

  private:
    CLI::Option *option_;
};

// The program itself or one of its commands; the parser owns it. Names with dashes are options, others arguments.
class Command {
  public:
    explicit Command(CLI::App *app) : app_(app) {}
    Command Subcommand(const std::string &name, const std::string &help) const;
    Option Add(const std::string &names, std::string *text, const std::string &help) const;
    Option Add(const std::string &names, std::vector<std::string> *list, const std::string &help) const;
    Option Add(const std::string &names, bool *flag, const std::string &help) const;
    Option Find(const std::string &name) const;
    // What the line gives, option by option with its values, but for those of these names and hidden ones.
    std::string Given(const std::vector<std::string> &but_for) const;
    void Hide() const;  // from the help
    void AllowOneSubcommand() const;
    bool HasSubcommand() const;                // on the line that was parsed
    void TakeFromParent() const;               // what it does not know, its parent may
    void OnCall(std::function<void()>) const;  // when the line asks for it

  private:
    CLI::App *app_;
};

class CommandLine {
  public:
    CommandLine(const std::string &name, const std::string &help);
    ~CommandLine();
    Command Program() const { return Command(app_.get()); }
    void OnVersion(std::function<std::string()> text);  // what --version prints
    void Footer(const std::string &text);               // below the program's help
    DescribedCommand Describe() const;
    // false when help or the version was asked for, and printed; throws a Failure for what it does not understand.
    bool Parse(std::vector<std::string> arguments);

  private:
    std::unique_ptr<CLI::App> app_;
};

}  // namespace tremolux
