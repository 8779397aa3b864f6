#include <algorithm>
#include <optional>

#include "library/failure.h"
#include "library/formats/numbers.h"
#include "library/formats/source_text.h"
#include "library/presets/catalog.h"
#include "library/presets/facts.h"
#include "tremolux/commands/commands.h"
#include "tremolux/commands/option_values.h"
#include "tremolux/commands/playback.h"
#include "tremolux/pictures/film.h"
#include "tremolux/process/interrupt.h"
#include "tremolux/process/output_files.h"
#include "tremolux/process/progress.h"
#include "tremolux/process/streams.h"

namespace tremolux {
namespace {

namespace fs = std::filesystem;

constexpr int kTrailSeconds = 10, kTrailRate = 24;
constexpr double kTrailHeight = 160;  // scene units: of the eyes of somebody who stands
constexpr FrameSize kTrailSize = {384, 216};
constexpr int kSheetColumns = 3;  // of the contact sheet
constexpr const char *kSheet = "README.md";
constexpr std::int64_t kMostSide = 4096;

struct PreviewOptions {
    MoveOptions move;
    std::string output, size;
    bool all_presets = false;
};

// Takes the word "shaken", which is no channel, out of the list.
bool TakeShaken(std::string *only) {
    std::string channels;
    bool is_there = false;
    for (const Field &field : CommaFields(*only)) {
        const std::string word(Trimmed(field.text));
        if (word == "shaken")
            is_there = true;
        else
            channels += (channels.empty() ? "" : ",") + word;
    }
    *only = channels;
    return is_there;
}

FilmLook LookOf(const PreviewOptions &options, const Playback &playback, bool only_shaken) {
    FilmLook look{PreviewSize(playback.Formats().width, playback.Formats().height), only_shaken, CaptionOf(playback)};
    if (options.size.empty()) return look;
    const std::size_t cross = std::min(options.size.find('x'), options.size.size());
    const std::optional<std::int64_t> width = ParseWhole(std::string_view(options.size).substr(0, cross)),
                                      height = ParseWhole(std::string_view(options.size)
                                                              .substr(std::min(cross + 1, options.size.size())));
    const auto fits = [](const std::optional<std::int64_t> &side) {
        return side && *side >= 16 && *side <= kMostSide && *side % 2 == 0;
    };
    if (!fits(width) || !fits(height))
        RefuseOption("--size", options.size,
                     "WIDTHxHEIGHT of one camera's picture, even numbers from 16 to " + std::to_string(kMostSide));
    look.size = {static_cast<int>(*width), static_cast<int>(*height)};
    return look;
}

void Film(const PreviewOptions &options) {
    const fs::path file = NamedOutput(options.output, options.move.formats.to_format);
    const FilmFormat format = FilmFormatOf(file);
    MoveOptions move = options.move;
    const bool only_shaken = TakeShaken(&move.direction.only);
    Playback playback(move);
    OutputFiles files({options.output}, options.move.InputFiles());
    playback.Start();
    SayBeyondSliders(playback.Settings(), playback.Rate().Whole(), playback.GetStage().CameraTag());
    const PlayedMotion motion = playback.Record();
    Progress progress(static_cast<std::int64_t>(motion.output.samples.size()), options.move.quiet);
    const std::string film = MakeFilm(motion, format, LookOf(options, playback, only_shaken), [&](std::int64_t frames) {
        CheckForInterrupt();
        progress.Done(frames);
    });
    files.Write({film});
}

CameraMove StandingCamera() {
    CameraMove move;
    move.rate = {kTrailRate, 1};
    move.samples.resize(std::size_t{kTrailSeconds} * kTrailRate);
    for (CameraSample &sample : move.samples) {
        sample.position.y = kTrailHeight;
        sample.focus_distance = 520;  // the nearest figure
    }
    return move;
}

std::vector<CatalogEntry> BuiltInPresets(const HostOptions &options) {
    const EmbeddedHost host(options.ModuleFile(), options.Home());
    Stage stage(StandingCamera());
    std::vector<CatalogEntry> presets = ReadCatalog(&stage.CameraTag());
    presets.erase(std::remove_if(presets.begin(), presets.end(),
                                 [](const CatalogEntry &entry) { return entry.category == "User"; }),
                  presets.end());
    if (presets.empty())
        throw Failure(kExitModule, "the module has no presets, expected its folder res/Presets beside it");
    return presets;
}

std::string FileName(std::string name) {
    for (char &c : name) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
        if (!((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-')) c = '_';
    }
    return name + ".png";
}

// One page of all pictures, by category.
std::string SheetText(const std::vector<CatalogEntry> &presets, const std::map<std::string, PresetFacts> &facts) {
    std::string text =
        "# The presets by sight\n\nEach for " + std::to_string(kTrailSeconds) +
        " seconds on a standing camera with a 36 mm lens. The line is the way that the camera's aim takes, "
        "the frame is\nthe picture where it is furthest off; a way too short to see stands ten times as large in the "
        "corner. `tremolux preview --all-presets -o FOLDER` draws "
        "this page.\n";
    std::string category;
    int column = 0;
    for (const CatalogEntry &preset : presets) {
        if (preset.category != category) {
            category = preset.category;
            text += std::string(column > 0 ? " |\n" : "") + "\n## " + category + "\n\n| | | |\n|---|---|---|\n";
            column = 0;
        }
        const auto fact = facts.find(preset.name);
        text += std::string(column == 0 ? "| " : " | ") + "![" + preset.name + "](" + FileName(preset.name) +
                ")<br>**" + preset.name + "**" + (fact != facts.end() ? "<br>" + fact->second.about : "");
        if (++column < kSheetColumns) continue;
        text += " |\n";
        column = 0;
    }
    return text + (column > 0 ? " |\n" : "");
}

void ContactSheet(const PreviewOptions &options) {
    const fs::path folder = fs::u8path(options.output);
    const std::vector<CatalogEntry> presets = BuiltInPresets(options.move.host);
    std::error_code error;
    fs::create_directories(folder, error);
    std::vector<std::string> names = {(folder / kSheet).u8string()};
    for (const CatalogEntry &preset : presets) names.push_back((folder / FileName(preset.name)).u8string());
    OutputFiles files(names, {});
    const CameraMove standing = StandingCamera();
    std::vector<std::string> bytes = {SheetText(presets, ReadPresetFacts(options.move.host.ModuleFile()))};
    Progress progress(static_cast<std::int64_t>(presets.size()), options.move.quiet);
    for (const CatalogEntry &preset : presets) {
        MoveOptions one = options.move;
        one.quiet = true;
        one.presets = {preset.category + "/" + preset.name};
        Playback playback(one, standing);
        playback.Start();
        bytes.push_back(PngOf(MotionTrail(playback.Record(), kTrailSize)));
        progress.Done(static_cast<std::int64_t>(bytes.size() - 1));
    }
    files.Write(bytes);
}

void Preview(const PreviewOptions &options) {
    if (options.all_presets != options.move.input.empty())
        throw Failure(kExitInput, "preview: expected either a camera move or --all-presets");
    if (options.all_presets) {
        ContactSheet(options);
    } else {
        Film(options);
    }
}

}  // namespace

void AddPreviewCommand(Command program, Action *action) {
    const auto options = std::make_shared<PreviewOptions>();
    Command command = program.Subcommand("preview", "Films a simple scene through the input camera and the shaken one");
    AddMoveOptions(command, &options->move);
    AddDirectionOptions(command, &options->move.direction);
    AddStreamFormats(command, &options->move.formats);
    AddTableName(command, &options->move.formats.table);
    command.Find("INPUT").Required(false);
    command.Add("--size", &options->size,
                "WIDTHxHEIGHT of one camera's picture in pixels, else 480 wide with the proportions of --resolution");
    command.Find("--only").Description(
        "shaken: its camera's picture alone; rotation, position or lens: the other channels are the input's; with "
        "commas "
        "between several");
    command.Add("--all-presets", &options->all_presets,
                "a contact sheet of the built-in presets on a standing camera, instead of a move");
    command
        .Add("-o,--output", &options->output,
             "film to write, .mp4 or .gif; .png for six frames below each other; of --all-presets the folder")
        .Required();
    command.OnCall([=] { *action = [options] { Preview(*options); }; });
}

}  // namespace tremolux
