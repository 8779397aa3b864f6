#include "library/presets/saved_preset.h"

#include "generated/module_ids.h"
#include "host/ui/attribute_manager.h"
#include "host/value/descid.h"
#include "library/failure.h"
#include "library/formats/source_text.h"
#include "library/parameters/settings.h"
#include "library/presets/pair.h"
#include "library/shots/embedded_host.h"
#include "library/shots/stage.h"

namespace tremolux {

namespace fs = std::filesystem;

host::Container SavedPreset(const fs::path &module_file, const fs::path &home, const std::string &name,
                            const std::vector<std::string> &settings, int frames_per_second) {
    fs::remove_all(home);
    fs::create_directories(home);
    const EmbeddedHost host(module_file, home);
    CameraMove still;
    still.samples.emplace_back();
    still.rate = {frames_per_second, 1};
    const Stage stage(still);
    host::Tag *tag = &stage.CameraTag();
    ApplySettings(settings, frames_per_second, tag);
    host.Application().dialogs.AnswerText(name);
    host::PressButton(tag, host::MakeId(ids::kSavePreset));
    for (const auto &file : fs::directory_iterator(fs::u8path(tag->Data().Text(ids::kUserPresetFolder))))
        if (file.is_regular_file()) return ReadPresetFile(file.path());
    throw Failure(kExitInput, "found " + Quoted(name) + ", expected a name for a file (150 bytes at most)");
}

}  // namespace tremolux
