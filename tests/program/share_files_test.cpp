// Completions and the manual page: every option of every command stands in each, and those who read them take them.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "tests/program/run.h"
#include "tests/support/process.h"
#include "tests/support/tools.h"

namespace {

using namespace program_test;

class ShareFiles : public testing::Test {
  protected:
    ShareFiles() {
        const Outcome outcome = workplace_.RunBare({"share-files", workplace_.Path("share")});
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_EQ(outcome.out + outcome.err, "");
    }
    std::string Place(const std::string &name) const { return workplace_.Path("share/" + name); }
    std::string Text(const std::string &name) const { return workplace_.Read("share/" + name); }

    struct Listed {
        std::vector<std::string> options, commands;
    };
    // As the help lists them: lines that begin with two blanks.
    Listed ListedBy(std::vector<std::string> path) const {
        path.emplace_back("--help");
        std::istringstream help(workplace_.RunBare(path).out);
        Listed listed;
        bool of_commands = false;
        for (std::string line; std::getline(help, line);) {
            if (line.rfind("Subcommands:", 0) == 0) of_commands = true;
            if (line.rfind("Exit codes:", 0) == 0) break;
            if (line.size() < 3 || line.rfind("  ", 0) != 0 || line[2] == ' ') continue;
            std::string first = line.substr(2, line.find(' ', 2) - 2);
            if (of_commands) {
                listed.commands.push_back(first);
            } else if (first.front() == '-') {
                std::istringstream names(first);
                for (std::string name; std::getline(names, name, ',');) listed.options.push_back(name);
            }
        }
        return listed;
    }
    std::vector<std::vector<std::string>> EveryCommand() const {
        std::vector<std::vector<std::string>> paths;
        for (const std::string &command : ListedBy({}).commands) {
            if (command == "help") continue;
            paths.push_back({command});
            for (const std::string &inner : ListedBy({command}).commands) paths.push_back({command, inner});
        }
        return paths;
    }
    void ExpectTaken(std::vector<std::string> reader, const std::string &name) {
        ASSERT_TRUE(test_support::CanRun(reader.front(), workplace_.Settings()));
        reader.push_back(Place(name));
        const std::filesystem::path out = workplace_.Path("out.txt"), err = workplace_.Path("err.txt");
        EXPECT_EQ(test_support::RunProcess(reader, out, err), 0) << workplace_.Read("err.txt");
        EXPECT_EQ(workplace_.Read("err.txt"), "") << reader.front();
    }
    Workplace workplace_;
};

constexpr const char *kBash = "bash-completion/completions/tremolux", *kZsh = "zsh/site-functions/_tremolux",
                     *kFish = "fish/vendor_completions.d/tremolux.fish", *kManual = "man/man1/tremolux.1";

std::string Between(const std::string &text, const std::string &start, const std::string &end) {
    const std::size_t from = text.find(start);
    if (from == std::string::npos) return "";
    return text.substr(from, text.find(end, from + start.size()) - from) + end;
}

TEST_F(ShareFiles, HoldEveryOptionOfEveryCommand) {
    const auto paths = EveryCommand();
    ASSERT_GT(paths.size(), 20u);
    for (const std::vector<std::string> &path : paths) {
        const std::string words = path.size() == 1 ? path[0] : path[0] + " " + path[1];
        const std::string name = path.size() == 1 ? path[0] : path[0] + "_" + path[1];
        std::string bash = Between(Text(kBash), "\n        '" + words + "') words='", "' ;;\n"),
                    zsh = Between(Text(kZsh), "\n_tremolux_" + name + "() {\n", "\n}\n"), fish = Text(kFish),
                    manual = Between(Text(kManual), "\n.SS tremolux " + words, "\n.SS ");
        std::replace(bash.begin(), bash.end(), '\'', ' ');
        for (const std::string &option : ListedBy(path).options) {
            const std::string bare = option.substr(option.find_first_not_of('-'));
            EXPECT_NE(bash.find(" " + option + " "), std::string::npos) << words << " " << option << "\n" << bash;
            EXPECT_NE(zsh.find(option + "["), std::string::npos) << words << " " << option;
            const std::string condition = "-n '__tremolux_is " + words + "'";
            bool is_in_fish = false;
            std::istringstream lines(fish);
            for (std::string line; std::getline(lines, line);)
                is_in_fish =
                    is_in_fish || (line.find(condition) != std::string::npos &&
                                   line.find((option[1] == '-' ? " -l " : " -s ") + bare + " ") != std::string::npos);
            EXPECT_TRUE(is_in_fish) << words << " " << option;
            std::string in_manual;
            for (const char c : option) in_manual += c == '-' ? "\\-" : std::string(1, c);
            EXPECT_NE(manual.find(" " + in_manual), std::string::npos) << words << " " << option;
        }
    }
}

// Those who read them are of other systems than Windows.
#ifndef _WIN32
TEST_F(ShareFiles, AreTakenByThoseWhoReadThem) {
    ExpectTaken({"bash", "-n"}, kBash);
    ExpectTaken({"zsh", "-n"}, kZsh);
    ExpectTaken({"fish", "--no-execute"}, kFish);
    ExpectTaken({"groff", "-man", "-ww", "-Tutf8", "-z"}, kManual);
}

TEST_F(ShareFiles, CompleteInBash) {
    const auto completed = [&](const std::string &words, int count) {
        const std::string script = workplace_.Write(
            "ask.bash", "source " + Place(kBash) + "\nCOMP_WORDS=(" + words + ")\nCOMP_CWORD=" + std::to_string(count) +
                            "\n_tremolux\nprintf '%s\\n' \"${COMPREPLY[@]}\"\n");
        EXPECT_EQ(test_support::RunProcess({"bash", script}, workplace_.Path("out.txt"), workplace_.Path("err.txt")),
                  0);
        EXPECT_EQ(workplace_.Read("err.txt"), "");
        return workplace_.Read("out.txt");
    };
    EXPECT_EQ(completed("tremolux sha", 1), "shake\n");
    EXPECT_EQ(completed("tremolux shake --bak", 2), "--bake\n");
    EXPECT_EQ(completed("tremolux shake --bake ''", 3), "quick\nbrute\n");
    EXPECT_EQ(completed("tremolux presets sho", 2), "show\n");
    EXPECT_EQ(completed("tremolux presets save Mine --repl", 4), "--replace\n");
    EXPECT_EQ(completed("tremolux presets show --use", 3), "--user-folder\n");
}

TEST_F(ShareFiles, CompleteInFish) {
    ASSERT_TRUE(test_support::CanRun("fish", workplace_.Settings()));
    const auto completed = [&](const std::string &line) {
        const std::string script = workplace_.Write(
            "ask.fish", "source " + Place(kFish) + "\ncomplete -C '" + line + "' | string replace -r '\\t.*' ''\n");
        EXPECT_EQ(test_support::RunProcess({"fish", "--no-config", script}, workplace_.Path("out.txt"),
                                           workplace_.Path("err.txt")),
                  0);
        EXPECT_EQ(workplace_.Read("err.txt"), "");
        return workplace_.Read("out.txt");
    };
    EXPECT_EQ(completed("tremolux sha"), "shake\n");
    EXPECT_EQ(completed("tremolux shake --bak"), "--bake\n");
    EXPECT_EQ(completed("tremolux shake --bake "), "brute\nquick\n");
    EXPECT_EQ(completed("tremolux presets sho"), "show\n");
    EXPECT_EQ(completed("tremolux presets save Mine --repl"), "--replace\n");
    EXPECT_EQ(completed("tremolux presets show --use"), "--user-folder\n");
}
#endif

}  // namespace
