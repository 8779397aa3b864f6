#include "tremolux/process/output_files.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "library/failure.h"
#include "tests/program/run.h"
#include "tests/support/links.h"

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

TEST_F(OutputFilesTest, RefusesAWriteProtectedFileBeforeTheWork) {
    workplace_.Write("a.csv", "precious");
    fs::permissions(workplace_.Path("a.csv"), fs::perms::owner_read);
    try {
        tremolux::OutputFiles({workplace_.Path("a.csv")}, {});
        FAIL() << "accepted";
    } catch (const tremolux::Failure &failure) {
        EXPECT_EQ(failure.Status(), tremolux::kExitOutput);
        EXPECT_EQ(failure.what(),
                  workplace_.Path("a.csv") + ": cannot be written: the file that is there is write-protected");
    }
    EXPECT_EQ(workplace_.Read("a.csv"), "precious");
}

TEST_F(OutputFilesTest, WritesThroughALinkAndLeavesNothingBesideIt) {
    if (!test_support::CanLink(workplace_.Path("."))) GTEST_SKIP() << "no symbolic links on this system";
    fs::create_directory(workplace_.Path("there"));
    workplace_.Write("there/a.csv", "old");
    fs::create_symlink(fs::path("there") / "a.csv", workplace_.Path("link.csv"));
    tremolux::OutputFiles files({workplace_.Path("link.csv")}, {});
    files.Write({"new"});
    EXPECT_TRUE(fs::is_symlink(workplace_.Path("link.csv")));
    EXPECT_EQ(workplace_.Read("there/a.csv"), "new");
    EXPECT_EQ(std::distance(fs::directory_iterator(workplace_.Path("there")), fs::directory_iterator()), 1);
}

TEST_F(OutputFilesTest, RefusesAFileAndALinkToItAsTheSame) {
    if (!test_support::CanLink(workplace_.Path("."))) GTEST_SKIP() << "no symbolic links on this system";
    workplace_.Write("in.csv", "precious");
    fs::create_symlink("in.csv", workplace_.Path("link.csv"));
    EXPECT_EQ(StatusOf({workplace_.Path("link.csv")}), tremolux::kExitInput);
}

#ifndef _WIN32  // which has no modes
TEST_F(OutputFilesTest, KeepsTheModeOfTheFileThatIsThere) {
    workplace_.Write("a.csv", "old");
    const fs::perms mode = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_write;
    fs::permissions(workplace_.Path("a.csv"), mode);
    tremolux::OutputFiles files({workplace_.Path("a.csv")}, {});
    files.Write({"new"});
    EXPECT_EQ(fs::status(workplace_.Path("a.csv")).permissions(), mode);
}
#endif

}  // namespace
