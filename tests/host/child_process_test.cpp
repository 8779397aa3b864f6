#include "host/services/child_process.h"

#include <gtest/gtest.h>

#include "tests/support/temporary_folder.h"

namespace host {
namespace {

class Child : public ::testing::Test {
  protected:
    bool Start(const std::vector<std::string> &command) {
        return process_.Start(command, folder_ / "out", folder_ / "err");
    }
    test_support::TemporaryFolder folder_;
    ChildProcess process_;
};

TEST_F(Child, LeavesWhatItSaysInTwoFiles) {
    ASSERT_TRUE(Start({TREMOLUX_PROGRAM_FILE, "--help"}));
    EXPECT_EQ(process_.Finish(), 0);
    EXPECT_NE(folder_.Read("out").find("Usage"), std::string::npos);
    EXPECT_EQ(folder_.Read("err"), "");
}

TEST_F(Child, EndsWithItsOwnStatus) {
    ASSERT_TRUE(Start({TREMOLUX_PROGRAM_FILE, "no such command"}));
    EXPECT_EQ(process_.Finish(), 2);
    EXPECT_NE(folder_.Read("err"), "");
}

TEST_F(Child, ThatDoesNotExistIsNotStarted) { EXPECT_FALSE(Start({"no-such-program-anywhere"})); }

TEST_F(Child, ThatHasEndedReadsNoMore) {
    ASSERT_TRUE(Start({TREMOLUX_PROGRAM_FILE, "--help"}));
    const std::string megabyte(1 << 20, 'x');
    bool read = true;
    for (int i = 0; i < 1000 && read; ++i) read = process_.Write(megabyte);
    EXPECT_FALSE(read);
    EXPECT_EQ(process_.Finish(), 0);
}

TEST_F(Child, IsEndedWithTheObject) {
    ChildProcess process;
    ASSERT_TRUE(process.Start({TREMOLUX_PROGRAM_FILE, "--help"}, folder_ / "o", folder_ / "e"));
}

}  // namespace
}  // namespace host
