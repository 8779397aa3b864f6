// Addresses of files for a browser, on any system.
#include <gtest/gtest.h>

#include "tag/help.h"

namespace {

String Address(const char *path) { return FileAddress(String(path, STRINGENCODING_UTF8)); }

TEST(FileAddress, IsRootedAtAFolderADriveOrAMachine) {
    EXPECT_TRUE(Address("/opt/res/guide.html") == "file:///opt/res/guide.html");
    EXPECT_TRUE(Address("C:\\Plug-ins\\res\\guide.html") == "file:///C:/Plug-ins/res/guide.html");
    EXPECT_TRUE(Address("\\\\server\\share\\guide.html") == "file://server/share/guide.html");
}

TEST(FileAddress, EscapesWhatABrowserWouldMisread) {
    EXPECT_TRUE(Address("/my files/50%#?\\.html") == "file:///my%20files/50%25%23%3F%5C.html");
    EXPECT_TRUE(Address("/\xC3\xBC/\xE6\x89\x8B") == "file:///%C3%BC/%E6%89%8B");
    EXPECT_TRUE(Address("") == "file:///");
}

}  // namespace
