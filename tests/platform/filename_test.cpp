#include <gtest/gtest.h>

#include <string>

#include "tests/platform/bare_host.h"

namespace {

#ifdef _WIN32
const std::string kSeparator = "\\";
#else
const std::string kSeparator = "/";
#endif

std::string Bytes(const String &text) {
    char buffer[1000];
    text.GetCString(buffer, sizeof(buffer));
    return buffer;
}
std::string Bytes(const Filename &name) { return Bytes(name.GetString()); }

class FilenameTest : public testing::Test {
    BareHost host_;
};

TEST_F(FilenameTest, JoinsWithExactlyOneSeparator) {
    const std::string joined = "res" + kSeparator + "Presets";
    EXPECT_EQ(Bytes(Filename("res") + "Presets"), joined);
    EXPECT_EQ(Bytes(Filename(String((kSeparator + "res" + kSeparator).c_str())) + "Presets"), kSeparator + joined);
    EXPECT_EQ(Bytes(Filename("res") + String((kSeparator + "Presets").c_str())), joined);
}

TEST_F(FilenameTest, AnEmptySideGivesTheOther) {
    EXPECT_EQ(Bytes(Filename() + "Presets"), "Presets");
    EXPECT_EQ(Bytes(Filename("res") + Filename()), "res");
    EXPECT_FALSE((Filename() + Filename()).Content());
}

TEST_F(FilenameTest, SplitsIntoFolderAndFile) {
    const Filename name = Filename("res") + "Presets" + "calm.tcp";
    EXPECT_EQ(Bytes(name.GetDirectory()), "res" + kSeparator + "Presets");
    EXPECT_EQ(Bytes(name.GetFileString()), "calm.tcp");
    EXPECT_EQ(Bytes(Filename("calm.tcp").GetDirectory()), "");
    EXPECT_EQ(Bytes((name.GetDirectory() + String((kSeparator).c_str())).GetFileString()), "Presets");
}

TEST_F(FilenameTest, TheRootIsItsOwnFolder) {
    const Filename root(kSeparator.c_str());
    EXPECT_EQ(Bytes(root.GetDirectory()), kSeparator);
    EXPECT_EQ(Bytes(root.GetFileString()), "");
    EXPECT_EQ(Bytes((root + "file").GetDirectory()), kSeparator);
    EXPECT_EQ(Bytes(root + "file"), kSeparator + "file");
}

}  // namespace
