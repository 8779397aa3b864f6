// What the program says of itself.
#include <gtest/gtest.h>

#include <algorithm>

#include "library/failure.h"
#include "tests/program/run.h"

namespace {

using namespace program_test;

class Help : public testing::Test {
  protected:
    std::string Text(const std::vector<std::string> &arguments) {
        const Outcome outcome = workplace_.RunBare(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_EQ(outcome.err, "");
        return outcome.out;
    }
    Workplace workplace_;
};

TEST_F(Help, TellsTheVersionsOfTheProgramAndItsModule) {
    const std::string text = Text({"--version"});
    EXPECT_EQ(text.rfind("tremolux 1.015\nTremoluxCam V(1.015), ", 0), 0u) << text;
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 2) << text;
}

TEST_F(Help, IsTheSameInBothForms) {
    EXPECT_EQ(Text({"help"}), Text({"--help"}));
    EXPECT_EQ(Text({"help", "shake"}), Text({"shake", "--help"}));
    EXPECT_EQ(Text({"help", "presets", "save"}), Text({"presets", "save", "--help"}));
    EXPECT_NE(Text({"help", "shake"}), Text({"help"}));
}

TEST_F(Help, EndsWithEveryExitCode) {
    const std::string text = Text({"--help"});
    const std::size_t table = text.find("\nExit codes:\n");
    ASSERT_NE(table, std::string::npos) << text;
    for (const int status : {0, 1, 2, 3, 4, 130})
        EXPECT_NE(text.find("\n  " + std::to_string(status) + " ", table), std::string::npos) << status;
    EXPECT_EQ(std::count(text.begin() + static_cast<std::ptrdiff_t>(table), text.end(), '\n'), 8) << text;
}

class Mistyped : public Help {
  protected:
    void ExpectRefused(const std::vector<std::string> &arguments, const std::string &line) {
        const Outcome outcome = workplace_.RunBare(arguments);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err, line + "\n");
    }
};

TEST_F(Mistyped, CommandsGetTheNearest) {
    ExpectRefused({"shke", "in.csv"},
                  "tremolux: found the command 'shke', expected one of its commands: did you mean 'shake'?");
    ExpectRefused({"help", "shke"},
                  "tremolux: found the command 'shke', expected one of its commands: did you mean 'shake'?");
    ExpectRefused({"presets", "shwo"},
                  "tremolux presets: found the command 'shwo', expected one of its commands: did you mean 'show'?");
    ExpectRefused({"xylophone"}, "tremolux: found the command 'xylophone', expected one of its commands");
}

TEST_F(Mistyped, OptionsGetTheNearestEvenWhereAnotherIsMissingForThat) {
    ExpectRefused({"shake", "in.csv", "--ouptut", "out.csv"},
                  "tremolux shake: found the option '--ouptut', expected one of its options: did you mean '--output'?");
    ExpectRefused({"presets", "--user-foldr=x"},
                  "tremolux presets: found the option '--user-foldr', expected one of its options: did you mean "
                  "'--user-folder'?");
    ExpectRefused({"presets", "show", "Calm", "--modul", "x"},
                  "tremolux presets show: found the option '--modul', expected one of its options: did you mean "
                  "'--module'?");
    ExpectRefused({"info", "more"}, "tremolux info: found 'more', expected no further argument");
}

TEST_F(Mistyped, ChoicesGetTheNearest) {
    ExpectRefused({"shake", "in.csv", "-o", "out.csv", "--bake", "quikc"},
                  "tremolux: --bake: found 'quikc', expected one of quick,brute: did you mean 'quick'?");
}

}  // namespace
