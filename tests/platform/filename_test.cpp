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
    EXPECT_EQ(Bytes(name.GetFile()), "calm.tcp");
    EXPECT_EQ(Bytes(Filename("calm.tcp").GetDirectory()), "");
    EXPECT_EQ(Bytes((name.GetDirectory() + String((kSeparator).c_str())).GetFileString()), "Presets");
}

TEST_F(FilenameTest, TheRootIsItsOwnFolder) {
    const Filename root(kSeparator.c_str());
    EXPECT_EQ(Bytes(root.GetDirectory()), kSeparator);
    EXPECT_EQ(Bytes(root.GetFile()), "");
    EXPECT_EQ(Bytes((root + "file").GetDirectory()), kSeparator);
    EXPECT_EQ(Bytes(root + "file"), kSeparator + "file");
}

TEST_F(FilenameTest, ReplacesFolderOrFile) {
    Filename name = Filename("a") + "b";
    name.SetFile("c");
    EXPECT_EQ(Bytes(name), "a" + kSeparator + "c");
    name.SetDirectory("d");
    EXPECT_EQ(Bytes(name), "d" + kSeparator + "c");
}

TEST_F(FilenameTest, ChangesTheSuffixOfTheLastComponentOnly) {
    Filename name = Filename("v1.2") + "calm";
    EXPECT_EQ(Bytes(name.GetSuffix()), "");
    name.SetSuffix("tcp");
    EXPECT_EQ(Bytes(name), "v1.2" + kSeparator + "calm.tcp");
    name.SetSuffix("txt");
    EXPECT_EQ(Bytes(name.GetFile()), "calm.txt");
    EXPECT_TRUE(name.CheckSuffix("TXT"));
    EXPECT_FALSE(name.CheckSuffix("tcp"));
    name.ClearSuffix();
    EXPECT_EQ(Bytes(name), "v1.2" + kSeparator + "calm");
}

TEST_F(FilenameTest, ClearsOneSuffixOrAll) {
    Filename one("calm.tcp.bak"), all("calm.tcp.bak");
    one.ClearSuffix();
    all.ClearSuffixComplete();
    EXPECT_EQ(Bytes(one), "calm.tcp");
    EXPECT_EQ(Bytes(all), "calm");
}

TEST_F(FilenameTest, ADotInFrontStartsNoSuffix) {
    Filename hidden(".settings");
    EXPECT_EQ(Bytes(hidden.GetSuffix()), "");
    hidden.ClearSuffix();
    EXPECT_EQ(Bytes(hidden), ".settings");
}

TEST_F(FilenameTest, WithoutANameGetsNoSuffix) {
    Filename name;
    name.SetSuffix("tcp");
    EXPECT_FALSE(name.Content());
}

}  // namespace
