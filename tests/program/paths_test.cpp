// Files and folders with any name, from the command line.
#include <gtest/gtest.h>

#include "tests/program/run.h"

namespace {

using namespace program_test;
namespace fs = std::filesystem;

class AnyPath : public testing::TestWithParam<const char *> {
  protected:
    AnyPath() {
        fs::create_directories(Folder());
        const fs::path bare = fs::u8path(TREMOLUX_MODULE_FILE).parent_path();
        fs::copy(bare, Folder() / "module", fs::copy_options::recursive);
    }
    fs::path Folder() const { return fs::u8path(workplace_.Path("")) / fs::u8path(GetParam()); }
    std::string In(const char *name) const { return (Folder() / fs::u8path(name)).u8string(); }
    std::string Text(std::vector<std::string> arguments) {
        arguments.insert(arguments.end(), {"--user-folder", In("home")});
        arguments.insert(arguments.end(),
                         {"--module", (Folder() / "module" / fs::u8path(TREMOLUX_MODULE_FILE).filename()).u8string()});
        const Outcome outcome = workplace_.Run(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_EQ(outcome.err, "");
        return outcome.out;
    }
    Workplace workplace_;
};

TEST_P(AnyPath, ServesForMovesScenesPresetsAndTheModule) {
    workplace_.Write("move.csv", "frame,x,y,z,h,p,b,focal_length\n0,0,0,0,0,0,0,35\n1,1,0,0,0,0,0,35\n");
    fs::rename(fs::u8path(workplace_.Path("move.csv")), Folder() / "move.csv");
    Text({"shake", In("move.csv"), "-o", In("out.csv"), "--scene", In("live.scene"), "--quiet"});
    EXPECT_TRUE(fs::is_regular_file(Folder() / "out.csv"));
    EXPECT_EQ(Text({"bake", In("live.scene"), "--quick", "-o", In("baked.scene"), "--quiet"}),
              "Camera: 16 keys on 8 tracks\n");
    Text({"presets", "save", "M\xC3\xADo", "--set", "Position Slow=3%"});
    EXPECT_NE(Text({"presets", "list"}).find("M\xC3\xADo"), std::string::npos);
    EXPECT_NE(Text({"presets", "path"}).find(fs::u8path(GetParam()).u8string()), std::string::npos);
}

// 260 letters are where Windows used to end.
const std::string kLong = std::string(100, 'a') + "/" + std::string(100, 'b') + "/" + std::string(100, 'c');

std::string NameOf(const testing::TestParamInfo<const char *> &info) {
    const char *const names[] = {"Blank", "Umlauts", "Japanese", "Long"};
    return names[info.index];
}

INSTANTIATE_TEST_SUITE_P(Names, AnyPath,
                         testing::Values("two words",
                                         "\xC3\x9C"
                                         "bergr\xC3\xB6\xC3\x9F"
                                         "en",
                                         "\xE6\x89\x8B\xE3\x81\xB6\xE3\x82\x8C", kLong.c_str()),
                         NameOf);

}  // namespace
