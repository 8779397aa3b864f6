#include "tremolux/commands/jolts_from.h"

#include <algorithm>
#include <cstdio>

#include "generated/module_ids.h"
#include "host/files/safe_write.h"
#include "host/value/text.h"
#include "library/events/take_events.h"
#include "library/failure.h"
#include "library/formats/numbers.h"
#include "library/formats/source_text.h"
#include "library/parameters/nearest.h"
#include "tremolux/commands/option_values.h"
#include "tremolux/pictures/tool.h"

namespace tremolux {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kMaxBytes = std::uintmax_t{1} << 31;  // three hours of sound in stereo

struct BandName {
    const char *name;
    SoundBand band;
};
constexpr BandName kBandNames[] = {{"low", SoundBand::kLow}, {"mid", SoundBand::kMid}, {"high", SoundBand::kHigh}};

OnsetSettings SettingsOf(const JoltsChoices &choices) {
    OnsetSettings settings;
    if (!choices.sensitivity.empty()) settings.sensitivity = NumberOption("--sensitivity", choices.sensitivity, 0, 100);
    for (const BandName &band : kBandNames)
        if (choices.band == band.name) settings.band = band.band;
    return settings;
}

std::string BytesOf(const std::string &name) {
    const fs::path file = fs::u8path(name);
    std::error_code error;
    const std::uintmax_t size = fs::file_size(file, error);
    if (!error && size > kMaxBytes)
        throw Failure(kExitInput, name + ": found " + std::to_string(size) + " bytes, expected at most " +
                                      std::to_string(kMaxBytes));
    std::string bytes, reason;
    if (error || !host::ReadFile(file, &bytes, &reason))
        throw Failure(kExitInput,
                      name + ": found no file that can be read, expected a table, music, an edit list or sound");
    return bytes;
}

// The sound of whatever ffmpeg opens, as a .wav file.
std::string WaveOf(const std::string &name) {
    const TemporaryFolder folder;
    const fs::path wave = folder.Path() / "sound.wav";
    // An absolute path: none begins with a dash, or looks like an address.
    std::error_code error;
    Tool ffmpeg({"ffmpeg", "-hide_banner", "-loglevel", "error", "-nostdin", "-i",
                 "file:" + host::PathText(fs::absolute(fs::u8path(name), error)), "-vn", "-ac", "1", "-c:a",
                 "pcm_f32le", "-f", "wav", "-y", host::PathText(wave)},
                "ffmpeg", folder);
    try {
        ffmpeg.Finish();
    } catch (const Failure &failure) {
        throw Failure(kExitInput, name + ": found nothing that can be heard, expected sound (" + failure.what() + ")");
    }
    return BytesOf(wave.u8string());
}

EventList ReadEventFile(const JoltsChoices &choices, const CameraMove &move) {
    const bool is_for_ffmpeg = EventFileOf(fs::u8path(choices.file)) == EventFile::kOther;
    return ReadEvents(choices.file, is_for_ffmpeg ? WaveOf(choices.file) : BytesOf(choices.file), move.rate,
                      SettingsOf(choices));
}

// Neither may be said twice.
void CheckSettings(const std::vector<std::string> &settings) {
    for (const std::string &setting : settings) {
        const std::string name = Folded(setting.substr(0, setting.find('=')));
        if (name == "custom trigger" || name == std::to_string(ids::kCustomTrigger))
            throw Failure(kExitInput, "--jolts-from: found " + Quoted(setting) + " as well, expected one of them");
    }
}

}  // namespace

JoltsFound ReadJolts(const JoltsChoices &choices, const CameraMove &move, const std::vector<std::string> &settings) {
    JoltsFound found;
    if (choices.file.empty()) {
        if (!choices.sensitivity.empty() || !choices.band.empty())
            throw Failure(kExitInput, "--sensitivity, --band: found no --jolts-from, expected one with a sound file");
        return found;
    }
    CheckSettings(settings);
    const EventList list = ReadEventFile(choices, move);
    std::size_t outside = 0;
    found.file = choices.file;
    found.frames = FramesOf(list, move, &outside);
    found.curve = list.curve;
    if (outside > 0) {
        std::fprintf(stderr, "%s: %zu of %zu events are beyond the move's frames, or before frame 0, and left out\n",
                     choices.file.c_str(), outside, list.events.size());
    }
    if (found.frames.empty()) {
        std::fprintf(stderr, "%s: no event falls on a frame of the move%s\n", choices.file.c_str(),
                     list.curve ? ": --sensitivity says how faint a sound counts" : "");
    }
    return found;
}

void AddJoltsOptions(Command command, JoltsChoices *choices) {
    command.Add("--jolts-from", &choices->file,
                "a jolt on each event of a file: a table (.csv) with the column frame or time and perhaps strength, "
                "frames (.txt), "
                "notes (.mid), cuts (.edl), or the beats of a sound (.wav, or anything that ffmpeg opens)");
    command.Add("--sensitivity", &choices->sensitivity,
                "of sounds, 0 to 100 (else 50): the more, the fainter beats are found");
    command.Add("--band", &choices->band, "low, mid or high: beats below 200 Hz, up to 2000 Hz, or above alone")
        .OneOf({"low", "mid", "high"});
}

}  // namespace tremolux
