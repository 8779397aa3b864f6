#include "presets/compiler/preset_text.h"

#include <algorithm>

#include "host/files/safe_write.h"
#include "host/value/text.h"
#include "library/failure.h"
#include "library/formats/numbers.h"
#include "library/formats/source_text.h"
#include "library/moves/frame_rate.h"

namespace presets {
namespace {

using tremolux::Trimmed;

enum class Section { kHead, kSettings, kThen, kMotion, kEvidence };

constexpr struct {
    const char *name;
    Section section;
} kSections[] = {{"[settings]", Section::kSettings},
                 {"[then]", Section::kThen},
                 {"[motion]", Section::kMotion},
                 {"[aim]", Section::kEvidence},
                 {"[measured]", Section::kEvidence}};

std::string Bytes(const std::filesystem::path &file) {
    std::string bytes, error;
    if (!host::ReadFile(file, &bytes, &error)) throw tremolux::Failure(tremolux::kExitInput, error);
    return bytes;
}

}  // namespace

PresetText ReadPresetText(const std::filesystem::path &file) {
    const std::string bytes = Bytes(file);
    const tremolux::SourceText source(host::PathText(file), bytes);
    source.CheckEnd();
    PresetText preset;
    Section section = Section::kHead;
    for (const tremolux::Line &line : source.Lines()) {
        const std::string_view text = Trimmed(line.text);
        if (text.empty() || text[0] == '#') continue;
        const auto *const begun = std::find_if(std::begin(kSections), std::end(kSections),
                                               [&](const auto &known) { return text == known.name; });
        if (begun != std::end(kSections)) {
            section = begun->section;
            continue;
        }
        const std::size_t equals = text.find('=');
        if (equals == std::string_view::npos)
            source.Refuse(line.number, 1, tremolux::Quoted(text),
                          "NAME = VALUE, or a section: [settings], [then], [aim], [measured], [motion]");
        const std::string key(Trimmed(text.substr(0, equals))), value(Trimmed(text.substr(equals + 1)));
        if (section == Section::kSettings || section == Section::kThen) {
            (section == Section::kThen ? preset.then : preset.settings).emplace_back(key).append("=").append(value);
        } else if (section == Section::kHead) {
            if (key != "name" && key != "about") source.Refuse(line.number, 1, tremolux::Quoted(key), "name or about");
            (key == "name" ? preset.name : preset.about) = value;
        } else if (section == Section::kMotion && key == "frame rate") {
            const std::optional<double> rate = tremolux::ParseNumber(value);
            if (!rate || *rate < 1 || *rate > tremolux::kMaxFramesPerSecond)
                source.Refuse(line.number, 1, tremolux::Quoted(value), "frames a second");
            preset.frames_per_second = *rate;
        }
    }
    if (preset.name.empty() || preset.about.empty())
        source.Refuse(1, 1, "no name or no sentence", "name = ... and about = ... at the top");
    return preset;
}

}  // namespace presets
