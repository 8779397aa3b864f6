#include "host/files/hyperfile.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "host/value/custom.h"
#include "tests/support/temporary_folder.h"

namespace host {
namespace {

using test_support::TemporaryFolder;

constexpr std::int32_t kIdent = 0x74656D70;

// One entry of every kind, nested, with ids of both signs.
Container Everything() {
    Container inner(7);
    inner.Set(-5, Data("Umlaut \xC3\xA4, \xE6\x97\xA5"));
    Container all(42);
    all.Set(-6000, Data(std::int32_t{1}));
    all.Set(1, Data(0.1));
    all.Set(2, Data(-std::numeric_limits<double>::infinity()));
    all.Set(3, Data(Vector{1, -2, 3e300}));
    all.Set(4, Data(Matrix{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}, {10, 11, 12}}));
    all.Set(5, Data(MakeTime(-7, 24)));
    all.Set(6, Data(""));
    all.Set(7, Data::Filename("/a/b c/d"));
    all.Set(8, Data(inner));
    all.Set(9, Data::OfType(kDataWhole64));
    all.Live(9)->value.whole64 = INT64_MIN;
    all.Set(10, Data());
    auto *spline = new Spline;
    spline->Insert(0, 0, 16);
    spline->Insert(1, 2, 0);
    spline->knots[0].tangent_right = {0.25, 0.5, 0};
    all.Set(11, Data::Custom(spline));
    auto *priority = new Priority;
    priority->Set(Priority::kPriority, Data(std::int32_t{111}));
    all.Set(12, Data::Custom(priority));
    all.Append(1, Data(std::int32_t{-3}));  // the same id again
    return all;
}

std::string BytesOf(const Container &container) {
    HyperFile file;
    file.OpenForWriting(kIdent);
    EXPECT_TRUE(file.WriteContainer(container));
    return file.Bytes();
}

TEST(HyperFile, GivesBackAContainerOfEverything) {
    const TemporaryFolder folder;
    const Container written = Everything();
    HyperFile file;
    ASSERT_TRUE(file.Open(kIdent, folder / "file", FileMode::kWrite));
    ASSERT_TRUE(file.WriteContainer(written));
    ASSERT_TRUE(file.Close());
    Container read;
    ASSERT_TRUE(file.Open(kIdent, folder / "file", FileMode::kRead));
    ASSERT_TRUE(file.ReadContainer(&read));
    EXPECT_TRUE(read == written);
    EXPECT_EQ(read.id, 42);
    EXPECT_EQ(read.Find(8)->GetContainer()->id, 7);
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"file"});
}

TEST(HyperFile, IsReadOnlyByItsOwnIdent) {
    HyperFile file;
    EXPECT_FALSE(file.OpenForReading(kIdent + 1, BytesOf(Container())));
    EXPECT_EQ(file.Error(), kFileInvalid);
    EXPECT_TRUE(file.OpenForReading(kIdent, BytesOf(Container())));
    EXPECT_FALSE(file.OpenForReading(kIdent, "temp"));
    EXPECT_FALSE(file.OpenForReading(kIdent, ""));
}

TEST(HyperFile, TellsAMissingFile) {
    const TemporaryFolder folder;
    HyperFile file;
    EXPECT_FALSE(file.Open(kIdent, folder / "missing", FileMode::kRead));
    EXPECT_FALSE(file.Open(kIdent, folder / "missing/file", FileMode::kWrite));
    EXPECT_EQ(file.Error(), kFileOpen);
}

TEST(HyperFile, RefusesAValueOfAnotherTypeAndReadsItAsItsOwnAfterwards) {
    HyperFile file;
    file.OpenForWriting(kIdent);
    ASSERT_TRUE(file.WriteReal(2.5));
    ASSERT_TRUE(file.OpenForReading(kIdent, file.Bytes()));
    std::int32_t whole = 7;
    EXPECT_FALSE(file.ReadWhole(&whole));
    EXPECT_EQ(file.Error(), kFileWrongValue);
    EXPECT_EQ(whole, 7);
    double real = 0;
    EXPECT_TRUE(file.ReadReal(&real));
    EXPECT_EQ(real, 2.5);
}

TEST(HyperFile, StoresNumbersBigEndian) {
    HyperFile file;
    file.OpenForWriting(kIdent);
    const std::size_t head = file.Bytes().size();
    ASSERT_TRUE(file.WriteWhole(0x01020304));
    // The type, 15, then the value: four bytes each, the highest first.
    EXPECT_EQ(file.Bytes().substr(head), std::string("\0\0\0\x0F\x01\x02\x03\x04", 8));
}

TEST(HyperFile, FailsCleanlyWhereverItIsCutOff) {
    const std::string bytes = BytesOf(Everything());
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        HyperFile file;
        Container read;
        read.Set(1, Data(std::int32_t{99}));
        const bool opened = file.OpenForReading(kIdent, bytes.substr(0, size));
        ASSERT_FALSE(opened && file.ReadContainer(&read)) << size;
        EXPECT_EQ(read.Whole(1), 99);  // nothing half read
    }
}

TEST(HyperFile, SurvivesEveryFlippedBit) {
    const std::string bytes = BytesOf(Everything());
    for (std::size_t i = 0; i < bytes.size() * 8; ++i) {
        std::string damaged = bytes;
        damaged[i / 8] = static_cast<char>(damaged[i / 8] ^ 1 << i % 8);
        HyperFile file;
        Container read;
        if (file.OpenForReading(kIdent, damaged)) file.ReadContainer(&read);
        EXPECT_LE(read.Count(), static_cast<std::int32_t>(bytes.size()));
    }
}

Container NestedTooDeep() {
    Container deep;
    for (int depth = 0; depth < 80; ++depth) {
        Container outer;
        outer.Set(1, Data(deep));
        deep = outer;
    }
    return deep;
}

TEST(HyperFile, RefusesContainersThatAreNestedTooDeep) {
    HyperFile file;
    file.OpenForWriting(kIdent);
    EXPECT_FALSE(file.WriteContainer(NestedTooDeep()));
    EXPECT_EQ(file.Error(), kFileWrongValue);
}

TEST(HyperFile, DoesNotReplaceAFileByOneThatCouldNotBeMadeWhole) {
    const TemporaryFolder folder;
    folder.Write("file", "precious");
    HyperFile file;
    ASSERT_TRUE(file.Open(kIdent, folder / "file", FileMode::kWrite));
    EXPECT_FALSE(file.WriteContainer(NestedTooDeep()));
    EXPECT_FALSE(file.Close());
    EXPECT_EQ(folder.Read("file"), "precious");
}

}  // namespace
}  // namespace host
