#include "tremolux/process/output_files.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "library/failure.h"
#include "tests/program/run.h"

namespace {

using program_test::Workplace;
namespace fs = std::filesystem;

class OutputFilesTest : public testing::Test {
  protected:
    // The status of the refusal; 0 when the files are accepted.
    int StatusOf(const std::vector<std::string> &files) {
        try {
            tremolux::OutputFiles(files, std::vector<std::string>{workplace_.Path("in.csv")});
            return 0;
        } catch (const tremolux::Failure &failure) {
            return failure.Status();
        }
    }
    Workplace workplace_;
};

TEST_F(OutputFilesTest, ReplacesEveryFileAndLeavesNothingElse) {
    workplace_.Write("a.csv", "old");
    tremolux::OutputFiles files({workplace_.Path("a.csv"), workplace_.Path("b.chan")}, {workplace_.Path("in.csv")});
    EXPECT_EQ(workplace_.Read("a.csv"), "old");
    files.Write({"new a", "new b"});
    EXPECT_EQ(workplace_.Read("a.csv"), "new a");
    EXPECT_EQ(workplace_.Read("b.chan"), "new b");
    EXPECT_EQ(workplace_.Names(), (std::vector<std::string>{"a.csv", "b.chan"}));
}

TEST_F(OutputFilesTest, LeavesEveryFileAloneWhenOneFolderIsGone) {
    workplace_.Write("a.csv", "old");
    fs::create_directory(workplace_.Path("folder"));
    tremolux::OutputFiles files({workplace_.Path("a.csv"), workplace_.Path("folder") + "/b.csv"},
                                {workplace_.Path("in.csv")});
    fs::remove(workplace_.Path("folder"));
    EXPECT_THROW(files.Write({"new a", "new b"}), tremolux::Failure);
    EXPECT_EQ(workplace_.Read("a.csv"), "old");
}

TEST_F(OutputFilesTest, TakesAnUnfinishedFileOfAnotherNameForTheUsersOwn) {
    workplace_.Write("a.csv.part", "the user's");
    {
        tremolux::OutputFiles files({workplace_.Path("a.csv")}, {workplace_.Path("in.csv")});
        files.Write({"new"});
    }
    EXPECT_EQ(workplace_.Read("a.csv.part"), "the user's");
    EXPECT_EQ(workplace_.Names(), (std::vector<std::string>{"a.csv", "a.csv.part"}));
}

TEST_F(OutputFilesTest, RefusesTheInputItselfHoweverItIsWritten) {
    workplace_.Write("in.csv", "precious");
    EXPECT_EQ(StatusOf({workplace_.Path("in.csv")}), tremolux::kExitInput);
    EXPECT_EQ(StatusOf({workplace_.Path(".") + "/in.csv"}), tremolux::kExitInput);
    EXPECT_EQ(StatusOf({workplace_.Path("out.csv")}), 0);
}

TEST_F(OutputFilesTest, RefusesOneFileTwice) {
    EXPECT_EQ(StatusOf({workplace_.Path("a.csv"), workplace_.Path(".") + "/a.csv"}), tremolux::kExitInput);
}

TEST_F(OutputFilesTest, RefusesPlacesThatTakeNoFile) {
    fs::create_directory(workplace_.Path("folder.csv"));
    EXPECT_EQ(StatusOf({workplace_.Path("folder.csv")}), tremolux::kExitOutput);
    EXPECT_EQ(StatusOf({workplace_.Path("nowhere") + "/a.csv"}), tremolux::kExitOutput);
}

}  // namespace
