#include <algorithm>
#include <cstdio>

#include "generated/module_ids.h"
#include "generated/module_version.h"
#include "library/failure.h"
#include "library/formats/csv_header.h"
#include "library/formats/numbers.h"
#include "library/measures/strayed.h"
#include "library/parameters/name_seed.h"
#include "tremolux/commands/batch_records.h"
#include "tremolux/commands/batch_shots.h"
#include "tremolux/commands/commands.h"
#include "tremolux/commands/option_values.h"
#include "tremolux/commands/playback.h"
#include "tremolux/process/interrupt.h"
#include "tremolux/process/output_files.h"
#include "tremolux/process/progress.h"
#include "tremolux/process/workers.h"

namespace tremolux {
namespace {

namespace fs = std::filesystem;

constexpr int kMaxJobs = 256, kMaxShards = 100000;
constexpr std::size_t kFigures = 6;  // of a row, before the error

struct BatchOptions {
    MoveOptions move;  // of every shot; its input is empty
    std::vector<std::string> inputs;
    std::string folder, shots, kind = ".csv", table, jobs, shard;
    bool resume = false, works_for_another = false;
    std::string given;                   // all that was typed and changes an output
    std::vector<std::string> arguments;  // of the program, to start it again
};

struct Shard {
    std::size_t number = 1, of = 1;
};

Shard ShardOf(const std::string &text) {
    if (text.empty()) return {};
    const std::size_t slash = std::min(text.find('/'), text.size());
    const std::optional<std::int64_t> number = ParseWhole(std::string_view(text).substr(0, slash)),
                                      of = ParseWhole(std::string_view(text).substr(std::min(slash + 1, text.size())));
    if (!number || !of || *number < 1 || *of < *number || *of > kMaxShards)
        RefuseOption("--shard", text, "NUMBER/COUNT, from 1/COUNT to COUNT/COUNT");
    return {static_cast<std::size_t>(*number), static_cast<std::size_t>(*of)};
}

std::vector<Shot> ShotsOf(const BatchOptions &options) {
    const std::vector<Shot> all = ReadShots(options.inputs, {options.shots, options.folder, options.kind});
    const Shard shard = ShardOf(options.shard);
    std::vector<Shot> shots;
    for (std::size_t i = shard.number - 1; i < all.size(); i += shard.of) shots.push_back(all[i]);
    return shots;
}

std::string Joined(const std::vector<std::string> &texts) {
    std::string joined;
    for (const std::string &text : texts) joined += (joined.empty() ? "" : "; ") + text;
    return joined;
}

std::string CsvCell(const std::string &text) {
    std::string field;
    for (const char c : text) field += c == '"' || c == '\n' || c == '\r' || c == '\t' ? '\'' : c;
    return field.find(',') == std::string::npos ? field : "\"" + field + "\"";
}

MoveOptions OptionsOf(const Shot &shot, const MoveOptions &common) {
    MoveOptions options = common;
    options.quiet = true;
    options.input = shot.input;
    if (!shot.preset.empty()) options.presets = SplitList(shot.preset);
    if (!shot.seed.empty()) options.seed = shot.seed;
    if (options.seed.empty()) options.seed = SeedOfName(shot.name);
    for (const std::string &setting : SplitList(shot.settings)) options.settings.push_back(setting);
    return options;
}

// Everything that an output depends on.
class Origin {
  public:
    Origin(const BatchOptions &options) {
        common_.Add(TREMOLUX_VERSION_TEXT).AddFile(options.move.host.ModuleFile()).Add(options.given);
        for (const std::string &file : {options.move.jolts.file, options.move.recording.file, options.move.envelope})
            common_.AddFile(fs::u8path(file));
        for (const auto *files : {&options.move.target, &options.move.focus_object})
            for (const std::string &file : *files) common_.Add(file).AddFile(fs::u8path(file));
        AddUserPresets(options.move.host);
    }
    std::string Of(const Shot &shot) const {
        Fingerprint origin = common_;
        origin.Add(shot.name).Add(shot.preset).Add(shot.seed).Add(shot.settings);
        return origin.Add(fs::u8path(shot.output).extension().u8string()).AddFile(fs::u8path(shot.input)).Text();
    }

  private:
    void AddUserPresets(const HostOptions &options) {
        const EmbeddedHost host(options.ModuleFile(), options.Home());
        CameraMove still;
        still.samples.emplace_back();
        const Stage stage(still);
        std::vector<fs::path> files;
        std::error_code error;
        for (const fs::directory_entry &entry :
             fs::directory_iterator(fs::u8path(stage.CameraTag().Data().Text(ids::kUserPresetFolder)), error))
            files.push_back(entry.path());
        std::sort(files.begin(), files.end());
        for (const fs::path &file : files) common_.AddFile(file);
    }
    Fingerprint common_;
};

// The figures of one shot, which is shaken and written.
std::string ShakeShot(const Shot &shot, const MoveOptions &options) {
    FormatOf(fs::u8path(shot.output), FormatUse::kWrite);
    Playback playback(options);
    OutputFiles files({shot.output}, options.InputFiles());
    playback.Start();
    const PlayedMotion motion = playback.Record();
    files.Write({TextForFile(files.Files().front(), motion.output, playback.Formats())});
    const Strayed strayed = MeasureStrayed(motion.input, motion.output);
    return std::to_string(motion.output.samples.size()) + "," + FrameRateText(playback.Rate()) + "," +
           FormatNumber(strayed.position.rms) + "," + FormatNumber(strayed.position.peak) + "," +
           FormatNumber(strayed.angle.rms) + "," + FormatNumber(strayed.angle.peak) + ",";
}

// The shot's row of the table. A shot that fails says so there, and on the standard error output.
std::string RowOf(const Shot &shot, const BatchOptions &options, const Origin &origin, const BatchRecords &records) {
    const std::string made_of = origin.Of(shot);
    if (options.resume) {
        if (const std::optional<std::string> row = records.Row(fs::u8path(shot.output), made_of)) return *row;
    }
    const MoveOptions move = OptionsOf(shot, options.move);
    const auto row = [&](const std::string &figures) {
        return CsvCell(fs::u8path(shot.input).filename().u8string()) + "," +
               CsvCell(fs::u8path(shot.output).filename().u8string()) + "," + CsvCell(Joined(move.presets)) + "," +
               CsvCell(move.seed) + "," + CsvCell(shot.settings) + "," + figures;
    };
    try {
        std::string done = row(ShakeShot(shot, move));
        records.Keep(fs::u8path(shot.output), made_of, done);
        return done;
    } catch (const Failure &failure) {
        if (failure.Status() == kExitInterrupted) throw;
        std::fprintf(stderr, "%s\n", failure.what());
        return row(std::string(kFigures, ',') + CsvCell(failure.what()));
    }
}

bool HasFailed(const std::string &row) { return row.back() != ','; }

// Calls `at_row` with the number of each shot and its row, in whatever order.
void MakeRows(const BatchOptions &options, const std::vector<Shot> &shots,
              const std::function<void(std::size_t, const std::string &)> &at_row) {
    const int jobs =
        options.jobs.empty() ? UsualJobs() : static_cast<int>(WholeOption("--jobs", options.jobs, 1, kMaxJobs));
    const int useful = static_cast<int>(std::min<std::size_t>(static_cast<std::size_t>(jobs), shots.size()));
    if (useful > 1) {
        std::vector<std::string> arguments = options.arguments;
        arguments.emplace_back("--work-for-another");
        ShareOut(arguments, useful, shots.size(), at_row);
        return;
    }
    const Origin origin(options);
    const BatchRecords records(fs::u8path(options.folder));
    for (std::size_t i = 0; i < shots.size(); ++i) {
        CheckForInterrupt();
        at_row(i, RowOf(shots[i], options, origin, records));
    }
}

std::string TableName(const BatchOptions &options) {
    if (!options.table.empty()) return options.table;
    const Shard shard = ShardOf(options.shard);
    const std::string part =
        shard.of > 1 ? "-" + std::to_string(shard.number) + "-of-" + std::to_string(shard.of) : std::string();
    return (fs::u8path(options.folder) / fs::u8path("table" + part + ".csv")).u8string();
}

void Batch(const BatchOptions &options) {
    const std::vector<Shot> shots = ShotsOf(options);
    if (options.works_for_another) {
        const Origin origin(options);
        const BatchRecords records(fs::u8path(options.folder));
        DoPieces([&](std::size_t piece) { return RowOf(shots.at(piece), options, origin, records); });
        return;
    }
    std::error_code error;
    fs::create_directories(fs::u8path(options.folder), error);
    const std::string table_name = TableName(options);
    std::vector<std::string> inputs = options.inputs, places = {table_name};
    for (const Shot &shot : shots) {
        inputs.push_back(shot.input);
        places.push_back(shot.output);
    }
    const OutputFiles checked(places, inputs);
    OutputFiles table({table_name}, inputs);
    std::vector<std::string> rows(shots.size());
    std::size_t done = 0;
    try {
        Progress progress(static_cast<std::int64_t>(shots.size()), options.move.quiet);
        MakeRows(options, shots, [&](std::size_t shot, const std::string &row) {
            rows.at(shot) = row;
            progress.Done(static_cast<std::int64_t>(++done));
        });
    } catch (const Failure &failure) {
        if (failure.Status() != kExitInterrupted) throw;
        throw Failure(kExitInterrupted, "interrupted: " + std::to_string(done) + " of " + std::to_string(shots.size()) +
                                            " shots were written, and no table; --resume goes on from there");
    }
    std::string text = "shot,output,preset,seed,settings,frames,fps,rms_cm,peak_cm,rms_deg,peak_deg,error\n";
    for (const std::string &row : rows) text += row + "\n";
    table.Write({text});
    const auto failed = std::count_if(rows.begin(), rows.end(), HasFailed);
    if (failed > 0) {
        throw Failure(kExitInput, options.inputs.front() + ": " + std::to_string(failed) + " of " +
                                      std::to_string(shots.size()) + " shots failed, the others are done");
    }
}

}  // namespace

void AddBatchCommand(Command program, const std::vector<std::string> &arguments, Action *action) {
    const auto options = std::make_shared<BatchOptions>();
    Command command =
        program.Subcommand("batch", "Shakes every shot of a sheet, or a folder, and writes a table of them");
    AddShakeOptions(command, &options->move);
    AddDirectionOptions(command, &options->move.direction);
    command
        .Add("SHOTS", &options->inputs,
             "a sheet: a table (.csv) with the column shot and perhaps preset, seed, settings (LABEL=VALUE; ...) and "
             "output; or a folder with camera files, or several camera files")
        .Required();
    command.Add("-o,--output", &options->folder, "folder of the camera files that are written").Required();
    command.Add("--shots", &options->shots, "folder of the shots; else the sheet's");
    command.Add("--format", &options->kind, "extension of the camera files where the sheet names none").ShowDefault();
    command.Add("--table", &options->table, "the table of what was done; else table.csv in the folder");
    command.Add("--jobs", &options->jobs, "how many shots are made at once; else as many as there are cores");
    command.Add("--shard", &options->shard, "NUMBER/COUNT: this part of the shots alone, such as 3/16");
    command.Add("--resume", &options->resume,
                "leave out shots that were made of the same file, with the same settings, by the same version");
    command.Add("--work-for-another", &options->works_for_another, "a process of --jobs").Hidden();
    command.OnCall([=] {
        options->arguments = arguments;
        options->given = command.Given({"--output", "--shots", "--table", "--jobs", "--shard", "--resume", "--quiet",
                                        "--work-for-another", "--user-folder", "--module", "SHOTS"});
        *action = [options] { Batch(*options); };
    });
}

}  // namespace tremolux
