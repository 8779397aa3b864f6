// Turns the text files of the built-in presets into the host's preset files, by setting a tag and pressing its "Save".
//
//     preset_compiler MODULE TEXTS RESULT
//
// MODULE is the built module, with no presets beside it. For each TEXTS/<category>/<preset>.txt the file
// RESULT/Presets/<category>/<preset> is written, and a list of all with their sentences as RESULT/presets.json.
#include <algorithm>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <set>

#include "generated/module_ids.h"
#include "host/files/safe_write.h"
#include "host/ui/attribute_manager.h"
#include "host/value/descid.h"
#include "host/value/text.h"
#include "library/failure.h"
#include "library/parameters/settings.h"
#include "library/presets/pair.h"
#include "library/shots/embedded_host.h"
#include "library/shots/stage.h"
#include "presets/compiler/preset_text.h"

namespace {

namespace fs = std::filesystem;
using tremolux::Failure;

constexpr int kFramesPerSecond = 24;  // in which frames are given as times

std::vector<fs::path> Sorted(const fs::path &folder, bool folders) {
    std::vector<fs::path> found;
    for (const auto &entry : fs::directory_iterator(folder)) {
        const fs::path &path = entry.path();
        if (folders ? entry.is_directory() : path.extension() == ".txt") found.push_back(path);
    }
    std::sort(found.begin(), found.end());
    return found;
}

class Compiler {
  public:
    Compiler(const fs::path &module, const fs::path &result)
        : home_(result / ".user"), result_(result), host_(module, Emptied(home_)) {}
    ~Compiler() {
        std::error_code ignored;
        fs::remove_all(home_, ignored);
    }

    void Compile(const fs::path &text_file) {
        const fs::path category = text_file.parent_path().filename();
        const presets::PresetText preset = presets::ReadPresetText(text_file);
        if (!names_.insert(preset.name).second)
            throw Failure(tremolux::kExitInput, host::PathText(text_file) + ": found a second preset '" + preset.name +
                                                    "', expected a name of its own");
        host::Container saved;
        try {
            saved = Saved(preset.name, preset.settings);
            if (!preset.then.empty()) saved = tremolux::WithSecond(saved, Saved(preset.name, preset.then));
        } catch (const Failure &failure) {
            throw Failure(failure.Status(), host::PathText(text_file) + ": " + failure.what());
        }
        fs::create_directories(result_ / "Presets" / category);
        std::string error;
        if (!host::WriteFileSafely(result_ / "Presets" / category / text_file.stem(), tremolux::BytesOfPreset(saved),
                                   &error))
            throw Failure(tremolux::kExitOutput, error);
        list_.push_back({{"category", host::PathText(category)},
                         {"file", host::PathText(text_file.stem())},
                         {"name", preset.name},
                         {"about", preset.about},
                         {"frames_per_second", preset.frames_per_second}});
    }

    void WriteList() const {
        std::string error;
        if (!host::WriteFileSafely(result_ / "presets.json", list_.dump(2) + "\n", &error))
            throw Failure(tremolux::kExitOutput, error);
    }

  private:
    static const fs::path &Emptied(const fs::path &folder) {
        fs::remove_all(folder);
        fs::create_directories(folder);
        return folder;
    }

    // By the tag's own button.
    host::Container Saved(const std::string &name, const std::vector<std::string> &settings) {
        tremolux::CameraMove still;
        still.samples.emplace_back();
        still.rate = {kFramesPerSecond, 1};
        const tremolux::Stage stage(still);
        tremolux::ApplySettings(settings, kFramesPerSecond, &stage.CameraTag());
        host_.Application().dialogs.AnswerText(name);
        host::PressButton(&stage.CameraTag(), host::MakeId(ids::kSavePreset));
        const fs::path file = home_ / "plugins" / "TremoluxCam" / "User" / ("00_" + name);
        if (!fs::exists(file))
            throw Failure(tremolux::kExitModule, "found no saved preset, expected a name that file names can hold");
        host::Container preset = tremolux::ReadPresetFile(file);
        fs::remove(file);
        return preset;
    }

    fs::path home_, result_;
    tremolux::EmbeddedHost host_;
    std::set<std::string> names_;
    nlohmann::json list_ = nlohmann::json::array();
};

int Run(const fs::path &module, const fs::path &texts, const fs::path &result) {
    fs::remove_all(result / "Presets");
    fs::create_directories(result / "Presets");
    Compiler compiler(module, result);
    for (const fs::path &category : Sorted(texts, true))
        for (const fs::path &text : Sorted(category, false)) compiler.Compile(text);
    compiler.WriteList();
    return 0;
}

}  // namespace

int main(int count, char **arguments) {
    if (count != 4) {
        std::fprintf(stderr, "preset_compiler: expected MODULE TEXTS RESULT\n");
        return tremolux::kExitInput;
    }
    try {
        return Run(arguments[1], arguments[2], arguments[3]);
    } catch (const Failure &failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return failure.Status();
    } catch (const std::exception &error) {
        std::fprintf(stderr, "preset_compiler: %s\n", error.what());
        return tremolux::kExitInternal;
    }
}
