// The module's file for Windows: what it gives, what it needs, and what Windows shows of it.
#ifdef _WIN32

#include <gtest/gtest.h>

#include "tests/support/windows_library_file.h"

namespace {

class WindowsLibrary : public testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(library_.Read(TREMOLUX_MODULE_FILE)); }
    test_support::WindowsLibraryFile library_;
};

TEST_F(WindowsLibrary, ExportsItsEntryAndNothingElse) {
    EXPECT_EQ(library_.exported, std::set<std::string>{"c4d_main"});
}

TEST_F(WindowsLibrary, ImportsOnlyWhatEveryWindowsHas) {
    // Of 64-bit Windows since 7, without anything that would have to be installed.
    const std::set<std::string> everywhere = {"kernel32.dll", "msvcrt.dll"};
    EXPECT_EQ(library_.needed, everywhere);
}

TEST_F(WindowsLibrary, IsSmallStrippedAndWithoutADate) {
    EXPECT_EQ(library_.file_header.Machine, IMAGE_FILE_MACHINE_AMD64);
    EXPECT_EQ(library_.file_header.NumberOfSymbols, 0u);
    EXPECT_EQ(library_.file_header.TimeDateStamp, 0u);
    EXPECT_LE(library_.Size(), 1500000u);
}

TEST_F(WindowsLibrary, TellsItsVersion) { EXPECT_TRUE(test_support::TellsVersion(TREMOLUX_MODULE_FILE, u"1.015")); }

}  // namespace

#endif
