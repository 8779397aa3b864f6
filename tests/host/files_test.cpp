#include <gtest/gtest.h>

#include <chrono>

#include "host/files/faults.h"
#include "host/files/folders.h"
#include "host/files/safe_write.h"
#include "tests/support/links.h"
#include "tests/support/temporary_folder.h"

namespace host {
namespace {

using test_support::TemporaryFolder;
using Names = std::vector<std::string>;

// ---- Writing safely

TEST(SafeWrite, ReplacesAFileByTheNewOne) {
    const TemporaryFolder folder;
    folder.Write("a.txt", "old");
    std::string error;
    EXPECT_TRUE(WriteFileSafely(folder / "a.txt", "new", &error)) << error;
    EXPECT_EQ(folder.Read("a.txt"), "new");
    EXPECT_EQ(folder.Names(), Names{"a.txt"});
}

TEST(SafeWrite, KeepsBytesAsTheyAre) {
    const TemporaryFolder folder;
    const std::string bytes("a\r\n\0b\n", 6);
    std::string error, read;
    ASSERT_TRUE(WriteFileSafely(folder / "a", bytes, &error));
    ASSERT_TRUE(ReadFile(folder / "a", &read, &error));
    EXPECT_EQ(read, bytes);
}

TEST(SafeWrite, LeavesNothingBehindWhenItCannotWrite) {
    const TemporaryFolder folder;
    folder.Write("file", "precious");
    std::filesystem::create_directory(folder / "folder");
    for (const std::string name : {"folder", "nowhere/a.txt", "file/a.txt"}) {
        std::string error;
        EXPECT_FALSE(WriteFileSafely(folder / name, "new", &error)) << name;
        EXPECT_EQ(error.rfind((folder / name).string() + ": ", 0), 0u) << error;
        EXPECT_EQ(error.find('\n'), std::string::npos);
    }
    EXPECT_EQ(folder.Read("file"), "precious");
    EXPECT_EQ(folder.Names(), (Names{"file", "folder"}));
}

namespace fs = std::filesystem;

TEST(SafeWrite, RefusesAFileThatNobodyMayWrite) {
    const TemporaryFolder folder;
    folder.Write("a.txt", "precious");
    fs::permissions(folder / "a.txt", fs::perms::owner_read);
    std::string error;
    EXPECT_FALSE(WriteFileSafely(folder / "a.txt", "new", &error));
    EXPECT_EQ(error, (folder / "a.txt").string() + ": is write-protected, expected a file that may be changed");
    EXPECT_EQ(folder.Read("a.txt"), "precious");
    EXPECT_EQ(folder.Names(), Names{"a.txt"});
}

#ifndef _WIN32  // which has no modes
TEST(SafeWrite, KeepsTheMode) {
    const TemporaryFolder folder;
    folder.Write("a.txt", "old");
    const fs::perms mode =
        fs::perms::owner_read | fs::perms::owner_write | fs::perms::owner_exec | fs::perms::group_read;
    fs::permissions(folder / "a.txt", mode);
    std::string error;
    ASSERT_TRUE(WriteFileSafely(folder / "a.txt", "new", &error)) << error;
    EXPECT_EQ(fs::status(folder / "a.txt").permissions(), mode);
}
#endif

class FileBehind : public ::testing::Test {
  protected:
    void SetUp() override {
        if (!test_support::CanLink(folder_.Path())) GTEST_SKIP() << "no symbolic links on this system";
        fs::create_directory(folder_ / "there");
    }
    const TemporaryFolder folder_;
};

TEST_F(FileBehind, IsWhereTheLastLinkLeads) {
    folder_.Write("there/a.txt", "old");
    fs::create_symlink("a.txt", folder_ / "there/second");
    fs::create_symlink(fs::path("there") / "second", folder_ / "first");
    EXPECT_TRUE(fs::equivalent(FileBehindLinks(folder_ / "first").value(), folder_ / "there/a.txt"));
}

TEST_F(FileBehind, MayBeMissingStill) {
    fs::create_symlink(folder_ / "there/a.txt", folder_ / "link");
    EXPECT_EQ(FileBehindLinks(folder_ / "link"), folder_ / "there/a.txt");
    EXPECT_EQ(FileBehindLinks(folder_ / "no link"), folder_ / "no link");
}

TEST_F(FileBehind, IsNoneWhereLinksLeadInACircle) {
    fs::create_symlink("b", folder_ / "a");
    fs::create_symlink("a", folder_ / "b");
    EXPECT_FALSE(FileBehindLinks(folder_ / "a"));
}

TEST(ReadFile, SaysWhyItCannot) {
    const TemporaryFolder folder;
    std::string bytes, error;
    EXPECT_FALSE(ReadFile(folder / "missing", &bytes, &error));
    EXPECT_EQ(error, (folder / "missing").string() + ": there is no such file");
    EXPECT_FALSE(ReadFile(folder.Path(), &bytes, &error));
    EXPECT_NE(error.find("is a folder"), std::string::npos);
}

// ---- Folders

TEST(BrowseFiles, ListsByNameWithoutRegardToCase) {
    const TemporaryFolder folder;
    for (const char *name : {"b", "A", "c", "a1", ".hidden"}) folder.Write(name, "12345");
    std::filesystem::create_directory(folder / "B2");
    BrowseFiles browse;
    browse.Init(folder.Path());
    EXPECT_EQ(browse.Current(), nullptr);
    Names names;
    while (browse.Next()) {
        const BrowseFiles::Entry &entry = *browse.Current();
        names.push_back(entry.name);
        EXPECT_EQ(entry.is_folder, entry.name == "B2");
        EXPECT_EQ(entry.is_hidden, entry.name == ".hidden");
        EXPECT_EQ(entry.size, entry.is_folder ? 0 : 5);
    }
    EXPECT_EQ(names, (Names{".hidden", "A", "a1", "b", "B2", "c"}));
    EXPECT_FALSE(browse.Next());
    EXPECT_EQ(browse.Current(), nullptr);
}

TEST(BrowseFiles, FindsNothingInAFolderThatIsMissing) {
    const TemporaryFolder folder;
    BrowseFiles browse;
    browse.Init(folder / "missing");
    EXPECT_FALSE(browse.Next());
}

TEST(Folders, ExistOnlyAsWhatTheyAre) {
    const TemporaryFolder folder;
    folder.Write("file", "");
    EXPECT_TRUE(Exists(folder / "file", false));
    EXPECT_FALSE(Exists(folder / "file", true));
    EXPECT_TRUE(Exists(folder.Path(), true));
    EXPECT_FALSE(Exists(folder.Path(), false));
}

TEST(Folders, AreMadeOneLevelAtATime) {
    const TemporaryFolder folder;
    EXPECT_FALSE(CreateFolder(folder / "a/b"));
    EXPECT_TRUE(CreateFolder(folder / "a"));
    EXPECT_TRUE(CreateFolder(folder / "a/b"));
    EXPECT_FALSE(CreateFolder(folder / "a"));
}

TEST(Folders, AreRemovedOnlyWhenAskedForThat) {
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder / "a/b");
    EXPECT_FALSE(RemoveFile(folder / "a", 0));
    EXPECT_FALSE(RemoveFile(folder / "a", kRemoveFolder));  // it is not empty
    EXPECT_TRUE(RemoveFile(folder / "a", kRemoveFolder | kRemoveRecursive));
    EXPECT_TRUE(folder.Names().empty());
    EXPECT_FALSE(RemoveFile(folder / "a", 0));
}

TEST(Folders, CopyOverAFileOnlyWhenAllowed) {
    const TemporaryFolder folder;
    folder.Write("from", "new");
    folder.Write("to", "old");
    EXPECT_FALSE(CopyFileTo(folder / "from", folder / "to", false));
    EXPECT_EQ(folder.Read("to"), "old");
    EXPECT_TRUE(CopyFileTo(folder / "from", folder / "to", true));
    EXPECT_EQ(folder.Read("to"), "new");
    EXPECT_FALSE(CopyFileTo(folder / "missing", folder / "to", true));
}

TEST(Folders, AreCopiedWithTheirFiles) {
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder / "from/deeper");
    folder.Write("from/a", "1");
    folder.Write("from/deeper/b", "2");
    EXPECT_TRUE(CopyFileTo(folder / "from", folder / "to", false));
    EXPECT_EQ(folder.Read("to/a"), "1");
    EXPECT_EQ(folder.Read("to/deeper/b"), "2");
}

// What walks through a folder of the user's must not be led out of it.
TEST(SymbolicLinks, AreNeitherListedNorCopiedNorWrittenThrough) {
    const TemporaryFolder folder, outside;
    if (!test_support::CanLink(folder.Path())) GTEST_SKIP() << "this system makes no symbolic links";
    outside.Write("precious", "kept");
    std::filesystem::create_symlink(outside / "precious", folder / "link");
    std::filesystem::create_directory_symlink(outside.Path(), folder / "folder");
    folder.Write("file", "new");
    BrowseFiles browse;
    browse.Init(folder.Path());
    ASSERT_TRUE(browse.Next());
    EXPECT_EQ(browse.Current()->name, "file");
    EXPECT_FALSE(browse.Next());
    EXPECT_FALSE(CopyFileTo(folder / "link", folder / "copy", true));
    EXPECT_FALSE(CopyFileTo(folder / "folder", folder / "copy", true));
    EXPECT_TRUE(CopyFileTo(folder / "file", folder / "link", true)) << "the link itself is replaced";
    EXPECT_TRUE(RemoveFile(folder / "folder", kRemoveFolder | kRemoveRecursive));
    EXPECT_EQ(outside.Read("precious"), "kept");
}

bool SameFileTime(const FileTime &a, const FileTime &b) {
    return a.year == b.year && a.month == b.month && a.day == b.day && a.hour == b.hour && a.minute == b.minute &&
           a.second == b.second;
}

TEST(FileTimes, AreToldForFilesAndFolders) {
    const TemporaryFolder folder;
    const auto file = folder.Write("a", "1");
    // Days lie between this time and the time of writing, whatever the time zone.
    std::filesystem::last_write_time(file, std::filesystem::last_write_time(file) - std::chrono::hours(24 * 400));
    FileTime written{}, time{}, listed{};
    ASSERT_TRUE(GetFileTime(folder.Path(), FileTimeKind::kModified, &written));
    ASSERT_TRUE(GetFileTime(file, FileTimeKind::kModified, &time));
    EXPECT_GT(written.year, time.year);
    EXPECT_TRUE(time.month >= 1 && time.month <= 12 && time.day >= 1 && time.day <= 31 && time.hour <= 23);
    BrowseFiles browse;
    browse.Init(folder.Path());
    ASSERT_TRUE(browse.Next());
    listed = browse.Current()->modified;
    EXPECT_TRUE(SameFileTime(time, listed));
    EXPECT_FALSE(GetFileTime(folder / "missing", FileTimeKind::kModified, &time));
}

// ---- Interrupted in the middle

class Interrupted : public ::testing::Test {
  protected:
    ~Interrupted() override { ArmFileFault(0, FileFault::kNone); }
    // How many uses of the file system `work` makes.
    template <typename Work>
    std::int64_t UsesOf(Work work) {
        ArmFileFault(0, FileFault::kNone);
        work();
        return FileUses();
    }
};

TEST_F(Interrupted, WritingLeavesTheOldFileOrTheNewOneAtEveryMoment) {
    std::string error;
    const TemporaryFolder trial;
    const std::int64_t uses = UsesOf([&] { WriteFileSafely(trial / "a", "new", &error); });
    ASSERT_GE(uses, 2);
    for (const FileFault fault : {FileFault::kFails, FileFault::kKilled}) {
        for (std::int64_t nth = 1; nth <= uses; ++nth) {
            SCOPED_TRACE(nth);
            const TemporaryFolder folder;
            folder.Write("a", "old");
            ArmFileFault(nth, fault);
            EXPECT_FALSE(WriteFileSafely(folder / "a", "new", &error));
            ArmFileFault(0, FileFault::kNone);
            EXPECT_EQ(folder.Read("a"), "old");
            // A failure cleans up; after a kill only hidden remains are left.
            for (const std::string &name : folder.Names())
                EXPECT_TRUE(name == "a" || (fault == FileFault::kKilled && name[0] == '.')) << name;
        }
    }
}

TEST_F(Interrupted, CopyingLeavesTheOldFileOrTheNewOneAtEveryMoment) {
    const TemporaryFolder trial;
    trial.Write("from", "new");
    const std::int64_t uses = UsesOf([&] { CopyFileTo(trial / "from", trial / "to", true); });
    for (const FileFault fault : {FileFault::kFails, FileFault::kKilled}) {
        for (std::int64_t nth = 1; nth <= uses; ++nth) {
            SCOPED_TRACE(nth);
            const TemporaryFolder folder;
            folder.Write("from", "new");
            folder.Write("to", "old");
            ArmFileFault(nth, fault);
            EXPECT_FALSE(CopyFileTo(folder / "from", folder / "to", true));
            ArmFileFault(0, FileFault::kNone);
            EXPECT_EQ(folder.Read("to"), "old");
            EXPECT_EQ(folder.Read("from"), "new");
        }
    }
}

TEST_F(Interrupted, AKillEndsEverythingAfterItToo) {
    const TemporaryFolder folder;
    folder.Write("a", "1");
    ArmFileFault(1, FileFault::kKilled);
    EXPECT_FALSE(RemoveFile(folder / "a", 0));
    EXPECT_FALSE(CreateFolder(folder / "b"));
    EXPECT_EQ(folder.Names(), Names{"a"});
}

}  // namespace
}  // namespace host
