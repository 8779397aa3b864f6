// Files in the folders of presets that stand in no list: the host's console says why.
#include <algorithm>
#include <fstream>
#include <thread>

#include "tests/tag/preset_bench.h"

namespace {

using namespace tag_test;
namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

constexpr std::size_t kLargest = 1048576;
constexpr int kLongestList = 4000;
const std::string kDamaged = "found it damaged, expected a preset as it was saved";
const std::string kNotOpened =
    "found a file that does not open as a preset, expected one that was saved as such and may be read";

class LeftOutPresets : public WithPresets {
  protected:
    LeftOutPresets() { BuiltIn("1_A", "5_Good"); }
    fs::path Category() const { return Root() / "1_A"; }
    std::string GoodBytes() const {
        std::ifstream good(Category() / "5_Good", std::ios::binary);
        return {std::istreambuf_iterator<char>(good), std::istreambuf_iterator<char>()};
    }
    static void Write(const fs::path &file, const std::string &bytes) {
        std::ofstream(file, std::ios::binary) << bytes;
    }
    std::string Damaged() const {
        const std::string bytes = GoodBytes();
        return bytes.substr(0, bytes.size() - 1);
    }
    static std::string Line(const fs::path &file, const std::string &reason) {
        return "TremoluxCam left out the preset " + file.u8string() + ": " + reason;
    }
    // In rising order, without the line of the start.
    Lines Told() {
        Lines told;
        for (const std::string &line : running_->App().console.lines)
            if (line.rfind("TremoluxCam V(", 0) != 0) told.push_back(line);
        std::sort(told.begin(), told.end());
        return told;
    }
};

TEST_F(LeftOutPresets, AreNoneWhereEveryFileIsAPreset) {
    Users("00_Mine");
    fs::create_directories(UserFolder() / "Exports");
    Start();
    EXPECT_EQ(Told(), Lines());
}

TEST_F(LeftOutPresets, AreTooLarge) {
    const std::string bytes = GoodBytes();
    Write(Category() / "1_large", bytes + std::string(kLargest - bytes.size(), 'x'));
    Write(Category() / "2_larger", bytes + std::string(kLargest + 1 - bytes.size(), 'x'));
    Start();
    EXPECT_EQ(Told(), Lines{Line(Category() / "2_larger", "found more than 1048576 bytes, expected a preset")});
}

TEST_F(LeftOutPresets, AreOfAnotherKind) {
    const std::string bytes = GoodBytes();
    Write(Category() / "1_empty", "");
    Write(Category() / "2_text", "a preset, really");
    Write(Category() / "3_code", bytes.substr(0, 8) + "XXXX" + bytes.substr(12));
    Start();
    EXPECT_EQ(Told(), (Lines{Line(Category() / "1_empty", kNotOpened), Line(Category() / "2_text", kNotOpened),
                             Line(Category() / "3_code", kNotOpened)}));
}

TEST_F(LeftOutPresets, AreDamaged) {
    Users("00_Mine");
    Write(UserFolder() / "00_Mine", Damaged());
    Start();
    EXPECT_EQ(Told(), Lines{Line(UserFolder() / "00_Mine", kDamaged)});
}

TEST_F(LeftOutPresets, AreHidden) {
    Write(Category() / ".1_hidden", GoodBytes());
    Write(Category() / ".settings of a browser", "no preset");
    // What a crash leaves of a save belongs to no list.
    Write(Category() / ".5_Good.tremolux", GoodBytes());
    Start();
    EXPECT_EQ(Told(), Lines{Line(Category() / ".1_hidden", "found it hidden, expected a file that is shown")});
}

TEST_F(LeftOutPresets, ComeAfterAFolderInACategory) {
    BuiltIn("1_A", "7_Behind");
    Write(Category() / "8_text", "no preset");
    fs::create_directories(Category() / "6_folder");
    Start();
    const std::string reason =
        "found it behind a folder, which ends a category for I'm Feeling Lucky, expected it before";
    // The panel lists it, and passes over the text.
    EXPECT_EQ(Told(), (Lines{Line(Category() / "7_Behind", reason), Line(Category() / "8_text", kNotOpened)}));
}

TEST_F(LeftOutPresets, ComeAfterTheLongestList) {
    for (int i = 1; i < kLongestList + 3; ++i)
        fs::copy_file(Category() / "5_Good", Category() / ("5_" + std::to_string(10000 + i)));
    Start();
    const Lines told = Told();
    ASSERT_EQ(told.size(), 1u) << "the first of them stands for all";
    // The list is full with number 4000: "5_Good" comes after all numbers.
    EXPECT_EQ(told.front(), Line(Category() / ("5_" + std::to_string(10000 + kLongestList + 1)),
                                 "found 4000 presets before it, which is the longest list, expected it and those "
                                 "behind it elsewhere"));
}

TEST_F(LeftOutPresets, ComeAfterTheLongestListOfAll) {
    for (int i = 1; i < kLongestList; ++i)
        fs::copy_file(Category() / "5_Good", Category() / ("5_" + std::to_string(10000 + i)));
    BuiltIn("2_B", "1_Next");
    BuiltIn("2_B", "2_Last");
    Start();
    EXPECT_EQ(Told(), Lines()) << "each category has room for its own";
    Choose(kCategory, kAll);
    const Lines told = Told();
    ASSERT_EQ(told.size(), 1u);
    EXPECT_EQ(told.front().find(Line(Root() / "2_B" / "1_Next", "found 4000 presets before it")), 0u) << told.front();
}

TEST_F(LeftOutPresets, AreToldOfOnce) {
    Write(Category() / "1_text", "no preset");
    Start();
    for (int frame = 0; frame < 3; ++frame) scene().Show(frame);
    Choose(kCategory, kAll);
    Choose(kCategory, 0);
    const Scene another(*running_);
    EXPECT_EQ(Told(), Lines{Line(Category() / "1_text", kNotOpened)});
}

TEST_F(LeftOutPresets, AreToldOfAgainForAnotherReason) {
    Write(Category() / "1_file", "no preset");
    Start();
    Write(Category() / "1_file", Damaged());
    Choose(kCategory, kAll);
    EXPECT_EQ(Told(), (Lines{Line(Category() / "1_file", kNotOpened), Line(Category() / "1_file", kDamaged)}));
}

TEST_F(LeftOutPresets, OfAnImportAreToldOfToo) {
    fs::create_directories(Imports() / "1_A");
    Write(Imports() / "1_A" / "1_file", Damaged());
    Start();
    EXPECT_EQ(Told(), Lines{Line(Imports() / "1_A" / "1_file", kDamaged)});
}

// Other threads read folders, too; what they leave out the main one comes by.
TEST_F(LeftOutPresets, AreToldOfByTheMainThreadAlone) {
    Write(Category() / "1_text", "no preset");
    running_ = std::make_unique<RunningHost>(module_);
    const std::unique_ptr<host::Object> camera = host::Object::Create(host::kTypeCamera);
    std::thread([&] { camera->MakeTag(kTag); }).join();
    ASSERT_NE(camera->FindTag(kTag), nullptr);
    EXPECT_EQ(Told(), Lines());
    Start();
    EXPECT_EQ(Told(), Lines{Line(Category() / "1_text", kNotOpened)});
}

}  // namespace
