// A sheet of shots.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>

#include "tests/program/formats_support.h"
#include "tests/program/run.h"

namespace {

using namespace program_test;

class Batch : public testing::Test {
  protected:
    Batch() {
        std::string move = "frame,x,y,z,h,p,b\n";
        for (int frame = 0; frame < 20; ++frame) move += std::to_string(frame) + ",0,0,0,0,0,0\n";
        for (const char *shot : {"one.csv", "two.csv"}) workplace_.Write(shot, move);
    }
    Outcome Run(const std::string &sheet, const std::vector<std::string> &more = {}) const {
        std::vector<std::string> arguments = {
            "batch", workplace_.Write("sheet.csv", sheet), "-o", workplace_.Path("out"), "--set", "Rotation Slow=8"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return workplace_.Run(arguments);
    }
    std::string Shaken(const std::string &shot, const std::vector<std::string> &more) const {
        std::vector<std::string> arguments = {"shake", workplace_.Path(shot), "-o", workplace_.Path("alone.csv"),
                                              "--set", "Rotation Slow=8"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        EXPECT_EQ(workplace_.Run(arguments).status, 0);
        return workplace_.Read("alone.csv");
    }
    Workplace workplace_;
};

TEST_F(Batch, ShakesEachShotAsTheSheetSays) {
    const Outcome outcome =
        Run("\xEF\xBB\xBFshot,seed,settings,output\r\none.csv,7,\"Rotation Fast=3; Custom Trigger=4,9\",\r\n"
            "two.csv,,,second.json\r\n");
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(workplace_.Read("out/one.csv"),
              Shaken("one.csv", {"--seed", "7", "--set", "Rotation Fast=3", "--set", "Custom Trigger=4,9"}));
    EXPECT_EQ(tremolux::ReadJson("second", workplace_.Read("out/second.json"), {}).samples.size(), 20u);
    const std::string table = workplace_.Read("out/table.csv");
    EXPECT_EQ(table.rfind("shot,output,preset,seed,settings,frames,fps,rms_cm,peak_cm,rms_deg,peak_deg,error\n"
                          "one.csv,one.csv,,7,\"Rotation Fast=3; Custom Trigger=4,9\",20,30,",
                          0),
              0u)
        << table;
}

TEST_F(Batch, TakesTheSeedFromTheShotsNameWhereTheSheetGivesNone) {
    ASSERT_EQ(Run("shot\none.csv\ntwo.csv\n").status, 0);
    // FNV-1a, 64 bits, of the name without its extension.
    std::uint64_t hash = 0xcbf29ce484222325U;
    for (const char c : std::string("two")) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3U;
    EXPECT_EQ(workplace_.Read("out/two.csv"), Shaken("two.csv", {"--seed", std::to_string(hash % 100000)}));
    EXPECT_NE(workplace_.Read("out/one.csv"), workplace_.Read("out/two.csv"));
}

TEST_F(Batch, WritesTheSameBytesAgain) {
    const std::string sheet = "shot,preset\none.csv,\ntwo.csv,\n";
    ASSERT_EQ(Run(sheet).status, 0);
    const std::string shot = workplace_.Read("out/one.csv"), table = workplace_.Read("out/table.csv");
    ASSERT_EQ(Run(sheet).status, 0);
    EXPECT_EQ(workplace_.Read("out/one.csv"), shot);
    EXPECT_EQ(workplace_.Read("out/table.csv"), table);
}

TEST_F(Batch, FinishesTheOthersWhenOneShotIsBad) {
    workplace_.Write("bad.csv", "frame,x,y,z,h,p,b\n0,0,0,0,0,0\n");
    const Outcome outcome = Run("shot,settings\nbad.csv,\nmissing.csv,\none.csv,No Such=1\ntwo.csv,\n");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 4) << outcome.err;
    EXPECT_NE(outcome.err.find("bad.csv:2:12: found 6 columns"), std::string::npos) << outcome.err;
    EXPECT_NE(outcome.err.find("sheet.csv: 3 of 4 shots failed, the others are done\n"), std::string::npos)
        << outcome.err;
    EXPECT_NE(workplace_.Read("out/two.csv"), "(missing)");
    EXPECT_EQ(workplace_.Read("out/one.csv"), "(missing)");
    EXPECT_NE(workplace_.Read("out/table.csv").find("found 6 columns"), std::string::npos);
}

TEST_F(Batch, RefusesASheetThatCannotBeFollowed) {
    for (const auto &[sheet, said] : std::vector<std::pair<std::string, std::string>>{
             {"", "sheet.csv:1:1: found an empty file"},
             {"shot\n", "expected at least one shot"},
             {"preset\nx\n", "found no column shot"},
             {"shot,colour\nx,y\n", "sheet.csv:1:6: found 'colour'"},
             {"shot,seed\none.csv\n", "sheet.csv:2:8: found 1 column"},
             {"shot\none.csv\none.csv\n", "expected another output than 'one.csv', which is taken"},
             {"shot,output\none.csv,../one.csv\n", "found the input itself"}}) {
        const Outcome outcome = Run(sheet);
        EXPECT_EQ(outcome.status, 2) << sheet;
        EXPECT_NE(outcome.err.find(said), std::string::npos) << outcome.err;
    }
}

}  // namespace
