// A sheet of shots.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <filesystem>

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

std::vector<std::string> OutputsOf(const Workplace &workplace, const std::string &folder) {
    std::vector<std::string> outputs;
    for (const char *name : {"one.csv", "two.csv", "three.csv", "four.csv"})
        outputs.push_back(workplace.Read(folder + "/" + name));
    return outputs;
}

class BatchOfAFolder : public Batch {
  protected:
    BatchOfAFolder() {
        std::filesystem::create_directory(workplace_.Path("shots"));
        for (const char *shot : {"one.csv", "two.csv", "three.csv", "four.csv"})
            workplace_.Write(std::string("shots/") + shot, workplace_.Read("one.csv"));
        workplace_.Write("shots/notes.md", "no camera");
    }
    Outcome Into(const std::string &folder, const std::vector<std::string> &more = {}) const {
        std::vector<std::string> arguments = {"batch", workplace_.Path("shots"), "-o", workplace_.Path(folder),
                                              "--set", "Rotation Slow=8"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return workplace_.Run(arguments);
    }
};

TEST_F(BatchOfAFolder, ShakesEveryCameraFileInItByName) {
    const Outcome outcome = Into("out");
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    const std::string table = workplace_.Read("out/table.csv");
    std::size_t place = 0;
    for (const char *shot : {"four.csv", "one.csv", "three.csv", "two.csv"}) {
        const std::size_t row = table.find(std::string("\n") + shot + ",");
        ASSERT_NE(row, std::string::npos) << table;
        EXPECT_GT(row, place);
        place = row;
    }
    EXPECT_EQ(table.find("notes"), std::string::npos);
    EXPECT_EQ(workplace_.Read("out/one.csv"), Shaken("shots/one.csv", {"--seed", "shot"}));
}

TEST_F(BatchOfAFolder, TakesSeveralFilesAsWell) {
    const Outcome outcome = workplace_.Run({"batch", workplace_.Path("shots/one.csv"), workplace_.Path("shots/two.csv"),
                                            "-o", workplace_.Path("out"), "--format", ".json"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(tremolux::ReadJson("two", workplace_.Read("out/two.json"), {}).samples.size(), 20u);
}

TEST_F(BatchOfAFolder, IsTheSameHoweverManyWorkOnIt) {
    ASSERT_EQ(Into("alone", {"--jobs", "1"}).status, 0);
    const Outcome outcome = Into("together", {"--jobs", "3"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(OutputsOf(workplace_, "together"), OutputsOf(workplace_, "alone"));
    EXPECT_EQ(workplace_.Read("together/table.csv"), workplace_.Read("alone/table.csv"));
}

TEST_F(BatchOfAFolder, TellsOfABadShotWhoeverWorksOnIt) {
    workplace_.Write("shots/bad.csv", "frame,x,y,z,h,p,b\n0,0,0,0,0,0\n");
    const Outcome outcome = Into("out", {"--jobs", "2"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 2) << outcome.err;
    EXPECT_NE(outcome.err.find("bad.csv:2:12: found 6 columns"), std::string::npos) << outcome.err;
    EXPECT_NE(workplace_.Read("out/two.csv"), "(missing)");
}

TEST_F(BatchOfAFolder, ShardsTogetherAreTheWhole) {
    ASSERT_EQ(Into("whole").status, 0);
    std::size_t rows = 0;
    for (const char *shard : {"1/3", "2/3", "3/3"}) ASSERT_EQ(Into("parts", {"--shard", shard}).status, 0);
    EXPECT_EQ(OutputsOf(workplace_, "parts"), OutputsOf(workplace_, "whole"));
    for (const char *table : {"1", "2", "3"}) {
        const std::string text = workplace_.Read(std::string("parts/table-") + table + "-of-3.csv");
        rows += static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) - 1;
    }
    EXPECT_EQ(rows, 4u);
    // Nothing is left to do but the table.
    ASSERT_EQ(Into("parts", {"--resume"}).status, 0);
    EXPECT_EQ(workplace_.Read("parts/table.csv"), workplace_.Read("whole/table.csv"));
    EXPECT_NE(Into("parts", {"--shard", "4/3"}).err.find("--shard: found '4/3', expected NUMBER/COUNT"),
              std::string::npos);
}

TEST_F(BatchOfAFolder, DoesAgainOnlyWhatChanged) {
    ASSERT_EQ(Into("out").status, 0);
    const auto made = [this](const char *name) {
        return std::filesystem::last_write_time(workplace_.Path("out/" + std::string(name)));
    };
    const auto old = std::filesystem::file_time_type::clock::now() - std::chrono::hours(24);
    const auto age = [&] {
        for (const char *name : {"one.csv", "two.csv", "three.csv", "four.csv"})
            std::filesystem::last_write_time(workplace_.Path("out/" + std::string(name)), old);
    };
    const auto again = [&](const std::vector<std::string> &more) {
        age();
        const Outcome outcome = Into("out", more);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        std::string names;
        for (const char *name : {"one.csv", "two.csv", "three.csv", "four.csv"})
            if (made(name) > old + std::chrono::hours(1)) names += names.empty() ? name : std::string(" ") + name;
        return names;
    };
    const std::vector<std::string> whole = OutputsOf(workplace_, "out");
    EXPECT_EQ(again({"--resume"}), "");
    workplace_.Write("shots/two.csv", "frame,x,y,z,h,p,b\n0,0,0,0,0,0,0\n1,5,0,0,0,0,0\n");
    EXPECT_EQ(again({"--resume"}), "two.csv");
    workplace_.Write("out/four.csv", "somebody wrote here");
    EXPECT_EQ(again({"--resume"}), "four.csv");
    std::filesystem::remove(workplace_.Path("out/one.csv"));
    workplace_.Write("out/one.csv", "");
    EXPECT_EQ(again({"--resume"}), "one.csv");
    EXPECT_EQ(again({"--resume", "--mix", "0.5"}), "one.csv two.csv three.csv four.csv");
    EXPECT_EQ(again({}), "one.csv two.csv three.csv four.csv");
    EXPECT_EQ(OutputsOf(workplace_, "out")[0], whole[0]);
}

}  // namespace
