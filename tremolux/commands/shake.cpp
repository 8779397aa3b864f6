#include <algorithm>
#include <chrono>
#include <cstdio>

#include "generated/module_ids.h"
#include "host/services/platform.h"
#include "library/failure.h"
#include "library/formats/added.h"
#include "library/parameters/name_seed.h"
#include "library/shots/scene.h"
#include "tremolux/commands/commands.h"
#include "tremolux/commands/judging_options.h"
#include "tremolux/commands/option_values.h"
#include "tremolux/commands/playback.h"
#include "tremolux/pictures/contact_sheet.h"
#include "tremolux/pictures/film.h"
#include "tremolux/pictures/gnuplot.h"
#include "tremolux/pictures/plot.h"
#include "tremolux/process/interrupt.h"
#include "tremolux/process/output_files.h"
#include "tremolux/process/streams.h"
#include "tremolux/words/report_text.h"

namespace tremolux {
namespace {

constexpr std::int64_t kMaxTakes = 1000;
constexpr FrameSize kTakeSize = {384, 216};

struct ShakeOptions {
    MoveOptions move;
    JudgingChoices judging;
    std::vector<std::string> outputs;
    std::string bake, scene, plot, on, takes;
    bool report = false, json = false, added = false;
    bool is_another_take = false;  // what was said of the first is not said again

    // What is written there: what was added, or else the shaken camera.
    bool IsAdded(const std::filesystem::path &file) const {
        return added || (!on.empty() && file.extension() == ".py");
    }
};

std::filesystem::path Path(const std::string &text) { return std::filesystem::u8path(text); }

bool Zooms(const CameraMove &move) {
    return std::any_of(move.samples.begin(), move.samples.end(), [&move](const CameraSample &sample) {
        return sample.focal_length != move.samples.front().focal_length;
    });
}

void Bake(const std::string &kind, Playback *playback) {
    if (kind == "brute") playback->GetStage().BakeByBruteForce();
    if (kind == "quick") playback->GetStage().BakeQuickly();
    CheckForInterrupt();
    if (kind == "quick" && Zooms(playback->Move()))
        std::fprintf(stderr, "--bake quick: the move zooms, which a quick bake does not see; --bake brute does\n");
}

void CheckFormats(const ShakeOptions &options) {
    bool has_script = false;
    for (const std::string &file : options.outputs) {
        const std::filesystem::path name = options.move.formats.OutputName(file);
        if (options.IsAdded(name))
            CheckAddedFormat(name);
        else
            FormatOf(name, FormatUse::kWrite);
        has_script = has_script || name.extension() == ".py";
    }
    if (!options.on.empty() && !has_script)
        throw Failure(kExitInput,
                      "--on: found no .py among the outputs, expected a script that puts the shake on a camera");
}

PlayedMotion ShakeOnce(const ShakeOptions &options) {
    using Clock = std::chrono::steady_clock;
    CheckFormats(options);
    Playback playback(options.move);
    JudgingChoices judging = options.judging;
    Judgement judgement = judging.Read(playback.Formats());
    std::vector<std::string> places = options.outputs;
    if (!options.plot.empty()) {
        PlotFormatOf(Path(options.plot));
        places.push_back(options.plot);
        places.push_back(SecondSheet(Path(options.plot)).u8string());
    }
    OutputFiles files(places, options.move.InputFiles());
    if (IsStream(options.scene))
        throw Failure(kExitInput, "--scene: found '-', expected a file: scenes are not streamed");
    if (!options.scene.empty()) places.push_back(options.scene);
    const OutputFiles checked(places, options.move.InputFiles());
    if (!options.plot.empty()) RequireGnuplot();
    playback.Start();
    if (!options.is_another_take)
        SayBeyondSliders(playback.Settings(), playback.Rate().Whole(), playback.GetStage().CameraTag());
    Bake(options.bake, &playback);

    const Clock::time_point start = Clock::now();
    PlayedMotion motion = playback.Record();
    const double microseconds = std::chrono::duration<double, std::micro>(Clock::now() - start).count();

    std::vector<std::string> texts;
    for (const std::string &file : options.outputs) {
        const std::filesystem::path name = options.move.formats.OutputName(file);
        texts.push_back(options.IsAdded(name)
                            ? AddedText(name, motion.input, motion.output, options.on, playback.Formats())
                            : TextForFile(name, motion.output, playback.Formats()));
    }
    if (!options.plot.empty()) {
        const PlotLook look{PlotFormatOf(Path(options.plot)), TitleOf(playback), false, playback.Jolts().curve};
        texts.push_back(DrawMotion(motion, look));
        texts.push_back(
            DrawSpectrum(motion, MeasureAddedMotion(motion.input, motion.output, playback.Formats().width), look));
    }
    if (!options.scene.empty()) playback.GetStage().KeyWholeMove();
    if (!options.scene.empty()) SaveScene(playback.GetStage().Scene(), Path(options.scene));
    files.Write(texts);
    const bool reports = options.report || options.json || !judging.IsNone();
    if (!reports && (options.move.quiet || !host::ErrorOutputIsTerminal())) return motion;
    judging.Judge(motion, &judgement);
    const double played = static_cast<double>(playback.LastFrame() - playback.Move().first_frame + 1);
    const std::vector<std::filesystem::path> moves(
        files.Files().begin(), files.Files().begin() + static_cast<std::ptrdiff_t>(options.outputs.size()));
    const ShakeReport report{options.move.input,  moves,           playback.Preset(),     playback.PresetRate(),
                             playback.Settings(), playback.Rate(), microseconds / played, judgement};
    const std::string text = (!reports       ? ReportSentence
                              : options.json ? ReportJson
                                             : ReportText)(report, motion.input, motion.output);
    if (!reports || files.HasStream()) {
        std::fputs(text.c_str(), stderr);
    } else {
        Print(text);
    }
    return motion;
}

// "shot.csv" becomes "shot-take2.csv".
std::string OfTake(const std::string &file, int take) {
    const std::filesystem::path path = Path(file);
    const std::string name = path.stem().u8string() + "-take" + std::to_string(take) + path.extension().u8string();
    return (path.parent_path() / Path(name)).u8string();
}

ShakeOptions TakeOptions(ShakeOptions options, std::int64_t first_seed, int take) {
    for (std::string &output : options.outputs) output = OfTake(output, take);
    for (std::string *file : {&options.scene, &options.plot})
        if (!file->empty()) *file = OfTake(*file, take);
    options.is_another_take = take > 1;
    options.move.seed = std::to_string((first_seed + take - 1) % (kMaxSeed + 1));
    return options;
}

// The seed that the first take has: as it was said, or what the tag would have had.
std::int64_t FirstSeed(const ShakeOptions &options) {
    Playback playback(options.move);
    playback.Start();
    return playback.GetStage().CameraTag().Data().Whole(ids::kSeed);
}

void ShakeTakes(const ShakeOptions &options) {
    const int takes = static_cast<int>(WholeOption("--takes", options.takes, 1, kMaxTakes));
    const bool streams =
        IsStream(options.move.input) || std::any_of(options.outputs.begin(), options.outputs.end(), IsStream);
    if (streams) throw Failure(kExitInput, "--takes: found '-', expected files: each take is one");
    const std::filesystem::path first_output = Path(options.outputs.front());
    const std::string sheet =
        (first_output.parent_path() / Path(first_output.stem().u8string() + "-takes.png")).u8string();
    std::vector<std::string> places = {sheet};
    for (int take = 1; take <= takes; ++take)
        for (const std::string &output : options.outputs) places.push_back(OfTake(output, take));
    const OutputFiles checked(places, options.move.InputFiles());
    OutputFiles files({sheet}, options.move.InputFiles());
    const std::int64_t first_seed = FirstSeed(options);
    std::vector<CaptionedPicture> pictures;
    for (int take = 1; take <= takes; ++take) {
        const ShakeOptions one = TakeOptions(options, first_seed, take);
        const PlayedMotion motion = ShakeOnce(one);
        pictures.push_back(
            {MotionTrail(motion, kTakeSize), "take " + std::to_string(take) + "  seed " + one.move.seed});
    }
    files.Write({PngOf(ContactSheetOf(pictures))});
}

void Shake(const ShakeOptions &options) {
    if (options.takes.empty())
        ShakeOnce(options);
    else
        ShakeTakes(options);
}

}  // namespace

void AddShakeCommand(Command program, Action *action) {
    const auto options = std::make_shared<ShakeOptions>();
    Command command = program.Subcommand("shake", "Makes a camera move hand-held and writes the shaken camera");
    AddMoveOptions(command, &options->move);
    AddDirectionOptions(command, &options->move.direction);
    AddStreamFormats(command, &options->move.formats);
    AddTableName(command, &options->move.formats.table);
    command
        .Add("-o,--output", &options->outputs,
             "camera file to write, " + KnownExtensions(FormatUse::kWrite) + "; may be given again")
        .Required()
        .Repeatable();
    command.Add("--added", &options->added,
                "write what was added alone, not the shaken camera; " + KnownAddedExtensions());
    command.Add("--on", &options->on,
                "NAME: a .py puts the shake onto that camera of a scene in Blender, and takes it off again");
    command.Add("--bake", &options->bake, "quick or brute: turn the motion into keys first, and play those")
        .OneOf({"quick", "brute"});
    command.Add("--scene", &options->scene, "save the document too, for bake, press and apply");
    command.Add("--plot", &options->plot,
                "drawing of both cameras, .svg or .png; a second sheet with the path from above and the "
                "spectrum lies beside it, named FILE-spectrum");
    command.Add("--takes", &options->takes,
                "so many takes, each with a seed of its own, in files NAME-take1 and so on, and a picture of all, "
                "NAME-takes.png");
    command.Add("--report", &options->report, "print what was done and how far the camera strayed");
    AddJudgingOptions(command, &options->judging);
    command.Add("--json", &options->json, "print the report as one JSON object");
    command.OnCall([=] { *action = [options] { Shake(*options); }; });
}

}  // namespace tremolux
