#include <algorithm>

#include "library/failure.h"
#include "library/presets/catalog.h"
#include "library/presets/facts.h"
#include "tremolux/commands/commands.h"
#include "tremolux/commands/playback.h"
#include "tremolux/pictures/film.h"
#include "tremolux/process/interrupt.h"
#include "tremolux/process/output_files.h"
#include "tremolux/process/progress.h"

namespace tremolux {
namespace {

namespace fs = std::filesystem;

constexpr int kTrailSeconds = 10, kTrailRate = 24;
constexpr double kTrailHeight = 160;  // scene units: of the eyes of somebody who stands
constexpr FrameSize kTrailSize = {384, 216};
constexpr int kSheetColumns = 3;  // of the contact sheet
constexpr const char *kSheet = "README.md";

struct PreviewOptions {
    MoveOptions move;
    std::string output;
    bool all_presets = false;
};

void Film(const PreviewOptions &options) {
    const fs::path file = fs::u8path(options.output);
    const FilmFormat format = FilmFormatOf(file);
    Playback playback(options.move);
    OutputFiles files({options.output}, options.move.InputFiles());
    playback.Start();
    const PlayedMotion motion = playback.Record();
    Progress progress(static_cast<std::int64_t>(motion.output.samples.size()), options.move.quiet);
    const FrameSize size = PreviewSize(playback.Formats().width, playback.Formats().height);
    const std::string film = MakeFilm(motion, format, size, [&](std::int64_t frames) {
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
    AddTableName(command, &options->move.formats.table);
    command.Find("INPUT").Required(false);
    command.Add("--all-presets", &options->all_presets,
                "a contact sheet of the built-in presets on a standing camera, instead of a move");
    command
        .Add("-o,--output", &options->output,
             "film to write, .mp4 or .gif; .png for six frames below each other; of --all-presets the folder")
        .Required();
    command.OnCall([=] { *action = [options] { Preview(*options); }; });
}

}  // namespace tremolux
