// The library's file for Windows: what it gives, what it needs, and what Windows shows of it.
#ifdef _WIN32

#include <gtest/gtest.h>

#include <iterator>
#include <regex>

#include "tests/support/windows_library_file.h"

namespace {

class WindowsLibrary : public testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(library_.Read(TREMOLUX_LIBRARY_FILE)); }
    test_support::WindowsLibraryFile library_;
};

// The names of the functions that the header declares.
std::set<std::string> Declared() {
    std::string header, error;
    EXPECT_TRUE(host::ReadFile(TREMOLUX_SOURCE_DIR "/library/include/tremolux/tremolux.h", &header, &error)) << error;
    const std::regex declaration(R"(TREMOLUX_API [^(;]*\b(tremolux_\w+)\()");
    std::set<std::string> names;
    for (std::sregex_iterator found(header.begin(), header.end(), declaration), end; found != end; ++found)
        names.insert((*found)[1]);
    return names;
}

TEST_F(WindowsLibrary, ExportsWhatTheHeaderDeclaresAndNothingElse) {
    EXPECT_FALSE(library_.exported.empty());
    EXPECT_EQ(library_.exported, Declared());
}

TEST_F(WindowsLibrary, ImportsOnlyWhatEveryWindowsHas) {
    // Of 64-bit Windows since 7, without anything that would have to be installed.
    const std::set<std::string> everywhere = {"kernel32.dll", "msvcrt.dll", "shell32.dll"};
    EXPECT_EQ(library_.needed, everywhere);
}

TEST_F(WindowsLibrary, IsSmallStrippedAndWithoutADate) {
    EXPECT_EQ(library_.file_header.Machine, IMAGE_FILE_MACHINE_AMD64);
    EXPECT_EQ(library_.file_header.NumberOfSymbols, 0u);
    EXPECT_EQ(library_.file_header.TimeDateStamp, 0u);
    EXPECT_LE(library_.Size(), 4000000u);
}

TEST_F(WindowsLibrary, TellsItsVersion) { EXPECT_TRUE(test_support::TellsVersion(TREMOLUX_LIBRARY_FILE, u"1.015")); }

}  // namespace

#endif
