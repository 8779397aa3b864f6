// Files and folders with any name, from the command line.
#include <gtest/gtest.h>

#include <memory>

#include "host/files/folders.h"
#include "host/services/platform.h"
#include "tests/program/run.h"

namespace {

using namespace program_test;
namespace fs = std::filesystem;

const fs::path kModule = fs::u8path(TREMOLUX_MODULE_FILE);

// The module, the user's settings and every file in one folder, which goes with the object.
class Everything {
  public:
    explicit Everything(const fs::path &folder) : folder_(folder) {
        host::CopyFileTo(kModule.parent_path(), folder_ / "module", false);
    }
    ~Everything() { host::RemoveFile(folder_, host::kRemoveFolder | host::kRemoveRecursive); }
    void ExpectToWork() {
        workplace_.Write("move.csv", "frame,x,y,z,h,p,b,focal_length\n0,0,0,0,0,0,0,35\n1,1,0,0,0,0,0,35\n");
        ASSERT_TRUE(host::CopyFileTo(fs::u8path(workplace_.Path("move.csv")), folder_ / "move.csv", false));
        Text({"shake", In("move.csv"), "-o", In("out.csv"), "--scene", In("live.scene"), "--quiet"});
        EXPECT_TRUE(fs::is_regular_file(folder_ / "out.csv"));
        EXPECT_EQ(Text({"bake", In("live.scene"), "--quick", "-o", In("baked.scene"), "--quiet"}),
                  "Camera: 16 keys on 8 tracks\n");
        Text({"presets", "save", "M\xC3\xADo", "--set", "Position Slow=3%"});
        EXPECT_NE(Text({"presets", "list"}).find("M\xC3\xADo"), std::string::npos);
        EXPECT_EQ(Text({"presets", "path"}).rfind(In("home"), 0), 0u);
        EXPECT_NE(Text({"info"}).find(In("module")), std::string::npos);
    }

  private:
    std::string In(const char *name) const { return (folder_ / name).make_preferred().u8string(); }
    std::string Text(std::vector<std::string> arguments) {
        const std::string module = (folder_ / "module" / kModule.filename()).u8string();
        arguments.insert(arguments.end(), {"--user-folder", In("home"), "--module", module});
        const Outcome outcome = workplace_.Run(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_EQ(outcome.err, "");
        return outcome.out;
    }
    Workplace workplace_;
    fs::path folder_;
};

struct Name {
    const char *title;
    std::string folder;
};

void PrintTo(const Name &name, std::ostream *out) { *out << name.title; }

class AnyPath : public testing::TestWithParam<Name> {};

TEST_P(AnyPath, ServesForMovesScenesPresetsAndTheModule) {
    const Workplace workplace;
    const fs::path folder = fs::u8path(workplace.Path("")) / fs::u8path(GetParam().folder);
    fs::create_directories(folder);
    Everything(folder).ExpectToWork();
}

// 260 letters are where Windows used to end.
const std::string kLong = std::string(100, 'a') + "/" + std::string(100, 'b') + "/" + std::string(100, 'c');

INSTANTIATE_TEST_SUITE_P(With, AnyPath,
                         testing::Values(Name{"Blanks", "two  words"},
                                         Name{"Umlauts", "\xC3\x9C-bergr\xC3\xB6\xC3\x9F-en"},
                                         Name{"Japanese", "\xE6\x89\x8B\xE3\x81\xB6\xE3\x82\x8C"},
                                         Name{"Length", kLong}),
                         [](const testing::TestParamInfo<Name> &test) { return std::string(test.param.title); });

#ifdef _WIN32
// Elsewhere a share has a path like any other. script/windows names one.
TEST(NetworkPath, ServesToo) {
    const fs::path share = fs::u8path(host::EnvironmentText("TREMOLUX_SHARE"));
    if (share.empty()) GTEST_SKIP() << "TREMOLUX_SHARE names no share of a machine in the network";
    const fs::path folder = share / ("tremolux-" + std::to_string(host::ProcessId()));
    ASSERT_TRUE(fs::create_directory(folder));
    Everything(folder).ExpectToWork();
}
#endif

}  // namespace
