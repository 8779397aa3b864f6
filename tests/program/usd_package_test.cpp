// Scene descriptions are opened by their content: text, packages, and binary files, which are not.
#include <gtest/gtest.h>

#include "tests/program/formats_support.h"
#include "tests/support/temporary_folder.h"

namespace tremolux {
namespace {

// A zip with one stored file, and the checksum that nobody asks for left 0.
std::string Package(const std::string &name, const std::string &text, std::uint16_t method = 0) {
    const auto number = [](std::size_t value, int size) {
        std::string bytes;
        for (int i = 0; i < size; ++i) {
            bytes += static_cast<char>(value & 255);
            value >>= 8;
        }
        return bytes;
    };
    const std::string shared = number(0, 2) + number(method, 2) + number(0, 8) + number(text.size(), 4) +
                               number(text.size(), 4) + number(name.size(), 2);
    const std::string local = "PK\x03\x04" + number(20, 2) + shared + number(5, 2) + name + "extra" + text;
    const std::string central = "PK\x01\x02" + number(20, 2) + number(20, 2) + shared + number(0, 16) + name;
    return local + central + "PK\x05\x06" + number(0, 4) + number(1, 2) + number(1, 2) + number(central.size(), 4) +
           number(local.size(), 4) + number(0, 2);
}

TEST(UsdContents, AreOpenedByTheirContentWhateverTheirName) {
    const std::string text = WriteUsda({0, {24, 1}, {ReferencePose()}}, {});
    const test_support::TemporaryFolder folder;
    EXPECT_EQ(ReadMove(folder.Write("a.usd", text), {}).samples.size(), 1u);
    EXPECT_EQ(ReadMove(folder.Write("b.usdz", Package("shot.usda", text)), {}).samples.size(), 1u);
}

TEST(UsdContents, AreRefusedWhereTheyAreBinaryOrABrokenPackage) {
    const std::string binary = RefusalOf(ReadUsda, "PXR-USDC\x01\x02");
    EXPECT_EQ(binary,
              "move: found a binary scene description, expected text, which `usdcat -o FILE.usda FILE` makes of it");
    EXPECT_EQ(RefusalOf(ReadUsda, Package("a.usdc", "PXR-USDC")).rfind("move[a.usdc]: found a binary", 0), 0u);
    const std::string whole = Package("a.usda", "#usda 1.0\ndef Camera \"C\"\n{\n}\n");
    EXPECT_EQ(RefusalOf(ReadUsda, whole), "accepted");
    EXPECT_NE(RefusalOf(ReadUsda, Package("a.usda", "text", 8)).find("a compressed file"), std::string::npos);
    for (std::size_t size = 4; size < whole.size(); ++size) {
        EXPECT_NE(RefusalOf(ReadUsda, whole.substr(0, size)).find(", expected "), std::string::npos) << size;
    }
}

}  // namespace
}  // namespace tremolux
