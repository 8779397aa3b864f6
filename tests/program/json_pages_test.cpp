// docs/json.md and what the program prints have the same keys.
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <regex>
#include <set>

#include "library/formats/json.h"
#include "tests/program/run.h"

namespace {

using namespace program_test;
using Keys = std::set<std::string>;

// By the command that the section's title names.
std::map<std::string, Keys> DocumentedKeys() {
    std::ifstream page(std::string(TREMOLUX_SOURCE_DIR) + "/docs/json.md");
    std::map<std::string, Keys> sections;
    std::string command;
    for (std::string line; std::getline(page, line);) {
        if (line.rfind("## ", 0) == 0) command = line.substr(3);
        if (line.rfind("| `", 0) == 0) sections[command].insert(line.substr(3, line.find('`', 3) - 3));
    }
    return sections;
}

// Groups in groups have the keys of groups; in some objects any key may be.
std::string GeneralKey(std::string key) {
    const std::string inner = ".rows[][].rows[][]";
    for (std::size_t at; (at = key.find(inner)) != std::string::npos;) key.replace(at, inner.size(), ".rows[][]");
    return std::regex_replace(key, std::regex("^(ranges|carried|lost|recorded|before[.]rms|after[.]rms)[.].*$"),
                              "$1.*");
}

void Collect(const nlohmann::json &value, const std::string &place, Keys *keys) {
    if (value.is_array()) {
        const std::string inside = place + "[]";
        for (const nlohmann::json &element : value) Collect(element, inside, keys);
    }
    if (!value.is_object()) return;
    for (const auto &[key, inner] : value.items()) {
        std::string path = place;
        if (!path.empty()) path += '.';
        path += key;
        keys->insert(GeneralKey(path));
        Collect(inner, path, keys);
    }
}

class JsonPages : public testing::Test {
  protected:
    nlohmann::json Printed(std::vector<std::string> arguments) {
        arguments.emplace_back("--json");
        const Outcome outcome = workplace_.RunBare(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        return nlohmann::json::parse(outcome.out, nullptr, false);
    }
    std::string Path(const std::string &name) { return workplace_.Path(name); }
    Workplace workplace_;
};

TEST_F(JsonPages, HaveTheKeysThatTheProgramPrintsAndNoOthers) {
    const std::string samples = std::string(TREMOLUX_SOURCE_DIR) + "/samples/push_in.csv";
    tremolux::CameraMove move;
    move.samples.emplace_back();
    move.traits.channels[tremolux::kFStop] = {2.8};
    const std::string carried = workplace_.Write("carried.json", tremolux::WriteJson(move, {}));
    std::map<std::string, std::vector<std::string>> commands = {
        {"tremolux shake --json",
         {"shake", samples, "-o", Path("a.csv"), "--scene", Path("a.scene"), "--readout", "16", "--against",
          Path("b.csv")}},
        {"tremolux presets --json", {"presets"}},
        {"tremolux presets show --json", {"presets", "show", "Standing still"}},
        {"tremolux presets diff --json", {"presets", "diff", "Standing still", "Brisk walk"}},
        {"tremolux presets nearest --json", {"presets", "nearest", Path("b.csv"), "--quiet"}},
        {"tremolux fit --json", {"fit", Path("b.csv"), "-o", Path("fitted"), "--layers", "2", "--quiet"}},
        {"tremolux panel --json", {"panel"}},
        {"tremolux keys --json", {"keys", Path("a.scene"), "--camera", "Input Camera"}},
        {"tremolux inspect --json", {"inspect", carried}},
        {"tremolux info --json", {"info"}}};
    ASSERT_EQ(workplace_.RunBare({"shake", samples, "-o", Path("b.csv"), "--scene", Path("a.scene")}).status, 0);
    const std::map<std::string, Keys> documented = DocumentedKeys();
    EXPECT_EQ(documented.size(), commands.size());
    for (const auto &[command, arguments] : commands) {
        ASSERT_EQ(documented.count(command), 1u) << command;
        Keys printed;
        Collect(Printed(arguments), "", &printed);
        EXPECT_EQ(printed, documented.at(command)) << command;
    }
}

TEST_F(JsonPages, SayWhatTheTextSays) {
    const nlohmann::json difference = Printed({"presets", "diff", "Standing still", "Brisk walk"});
    EXPECT_EQ(difference["presets"][0], "Hand-held/Standing still");
    for (const nlohmann::json &setting : difference["settings"]) EXPECT_NE(setting["values"][0], setting["values"][1]);

    workplace_.Write("still.csv", "frame,x,y,z,h,p,b\n5,0,0,0,0,0,0\n6,0,0,0,0,0,0\n");
    const nlohmann::json report = Printed({"shake", Path("still.csv"), "-o", Path("a.csv"), "--set", "Seed=3"});
    EXPECT_EQ(report["first_frame"], 5);
    EXPECT_EQ(report["frames"], 2);
    EXPECT_EQ(report["settings"], nlohmann::json::array({"Seed=3"}));
    EXPECT_EQ(report["outputs"], nlohmann::json::array({Path("a.csv")}));
    // Of two frames the mean square is between half of the greater square and that.
    const double rms = report["strayed_cm"]["rms"], peak = report["strayed_cm"]["peak"];
    EXPECT_GE(rms, peak * 0.70710678 - 1e-9);
    EXPECT_LE(rms, peak);

    const nlohmann::json panel = Printed({"panel", "--set", "Position Intensity=150%"});
    EXPECT_EQ(panel["tabs"][1]["label"], "TremoluxCam");
    EXPECT_NE(panel.dump().find(R"("label":"Position Intensity","value":"150 %")"), std::string::npos);
}

}  // namespace
