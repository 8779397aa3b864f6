#include "host/files/memory_files.h"

#include <gtest/gtest.h>

#include "host/files/folders.h"
#include "host/files/hyperfile.h"
#include "host/files/safe_write.h"
#include "host/value/container.h"

namespace host {
namespace {

namespace fs = std::filesystem;

// A folder of its own below the root, empty again after each test.
class MemoryFiles : public ::testing::Test {
  protected:
    MemoryFiles() { memory_files::MakeFolders(folder); }
    ~MemoryFiles() override { memory_files::Remove(folder); }

    std::string Written(const char *name, const std::string &bytes) {
        std::string error;
        return WriteFileSafely(folder / name, bytes, &error) ? "" : error;
    }
    const fs::path folder = memory_files::Root() / "test";
};

std::string TextOf(const fs::path &file) {
    std::string bytes, error;
    return ReadFile(file, &bytes, &error) ? bytes : error;
}

std::vector<std::string> NamesOf(const fs::path &folder) {
    BrowseFiles browse;
    browse.Init(folder);
    std::vector<std::string> names;
    while (browse.Next()) names.push_back(browse.Current()->name + (browse.Current()->is_folder ? "/" : ""));
    return names;
}

TEST_F(MemoryFiles, AreReadAsTheyWereWritten) {
    const std::string bytes("one\0two\n", 8);
    EXPECT_EQ("", Written("a", bytes));
    EXPECT_EQ(bytes, TextOf(folder / "a"));
    EXPECT_TRUE(Exists(folder / "a", false));
    EXPECT_FALSE(Exists(folder / "a", true));
    EXPECT_TRUE(Exists(folder, true));
    EXPECT_FALSE(Exists(folder, false));
}

TEST_F(MemoryFiles, AreNotOnTheDisk) {
    Written("a", "text");
    EXPECT_FALSE(fs::exists(folder / "a"));
    EXPECT_FALSE(fs::exists(memory_files::Root()));
}

TEST_F(MemoryFiles, BelongBelowTheirRootAlone) {
    EXPECT_TRUE(memory_files::Holds(memory_files::Root()));
    EXPECT_TRUE(memory_files::Holds(memory_files::Root() / "a" / ".." / "b"));
    EXPECT_FALSE(memory_files::Holds(memory_files::Root() / ".." / "b"));
    EXPECT_FALSE(memory_files::Holds(memory_files::Root().u8string() + "s"));
    EXPECT_FALSE(memory_files::Holds(""));
}

TEST_F(MemoryFiles, AreListedByNameWhateverTheCase) {
    for (const char *name : {"b", "C", "a", ".hidden"}) Written(name, name);
    EXPECT_TRUE(CreateFolder(folder / "B2"));
    Written("B2/inside", "");
    EXPECT_EQ((std::vector<std::string>{".hidden", "a", "b", "B2/", "C"}), NamesOf(folder));
    EXPECT_EQ(std::vector<std::string>(), NamesOf(folder / "a"));
    EXPECT_EQ(std::vector<std::string>(), NamesOf(folder / "none"));
}

TEST_F(MemoryFiles, NeedTheirFolder) {
    EXPECT_EQ((folder / "none/a").u8string() + ": cannot be written, expected a folder that is there",
              Written("none/a", ""));
    EXPECT_EQ((folder / "none").u8string() + ": there is no such file", TextOf(folder / "none"));
    EXPECT_EQ((folder / "").u8string() + ": is a folder, expected a file to write", Written("", ""));
    EXPECT_FALSE(CreateFolder(folder / "none" / "b"));
    EXPECT_FALSE(CreateFolder(folder));
    Written("a", "");
    EXPECT_FALSE(CreateFolder(folder / "a"));
    EXPECT_FALSE(CreateFolder(folder / "a" / "b"));
}

TEST_F(MemoryFiles, AreRemovedLikeOthers) {
    memory_files::MakeFolders(folder / "b" / "c");
    Written("a", "");
    Written("b/c/d", "");
    EXPECT_TRUE(RemoveFile(folder / "a", 0));
    EXPECT_FALSE(RemoveFile(folder / "a", 0));
    EXPECT_FALSE(RemoveFile(folder / "b", 0));
    EXPECT_FALSE(RemoveFile(folder / "b", kRemoveFolder));
    EXPECT_TRUE(RemoveFile(folder / "b", kRemoveFolder | kRemoveRecursive));
    EXPECT_EQ(std::vector<std::string>(), NamesOf(folder));
    EXPECT_FALSE(RemoveFile(memory_files::Root(), kRemoveFolder | kRemoveRecursive));
}

TEST_F(MemoryFiles, AreCopiedLikeOthers) {
    memory_files::MakeFolders(folder / "from" / "deep");
    Written("from/deep/a", "new");
    Written("old", "old");
    EXPECT_TRUE(CopyFileTo(folder / "from", folder / "to", false));
    EXPECT_EQ("new", TextOf(folder / "to" / "deep" / "a"));
    EXPECT_FALSE(CopyFileTo(folder / "from" / "deep" / "a", folder / "old", false));
    EXPECT_EQ("old", TextOf(folder / "old"));
    EXPECT_TRUE(CopyFileTo(folder / "from" / "deep" / "a", folder / "old", true));
    EXPECT_EQ("new", TextOf(folder / "old"));
}

TEST_F(MemoryFiles, HaveALaterTimeAfterEachChange) {
    const auto as_numbers = [&] {
        FileTime time{};
        EXPECT_TRUE(GetFileTime(folder / "a", FileTimeKind::kModified, &time));
        return std::vector<int>{time.year, time.month, time.day, time.hour, time.minute, time.second};
    };
    Written("a", "");
    std::vector<int> last = as_numbers();
    for (int i = 0; i < 200; ++i) {
        Written("a", "");
        const std::vector<int> time = as_numbers();
        EXPECT_LT(last, time);
        last = time;
    }
    FileTime time{};
    EXPECT_FALSE(GetFileTime(folder / "none", FileTimeKind::kModified, &time));
}

TEST_F(MemoryFiles, HoldHyperFiles) {
    Container data;
    data.SetReal(7, 2.5);
    HyperFile file;
    ASSERT_TRUE(file.Open(1, folder / "hyper", FileMode::kWrite));
    EXPECT_TRUE(file.WriteContainer(data));
    EXPECT_TRUE(file.Close());
    EXPECT_FALSE(file.Open(1, folder / "none" / "hyper", FileMode::kWrite));

    Container read;
    ASSERT_TRUE(file.Open(1, folder / "hyper", FileMode::kRead));
    EXPECT_TRUE(file.ReadContainer(&read));
    EXPECT_EQ(2.5, read.Real(7));
}

}  // namespace
}  // namespace host
