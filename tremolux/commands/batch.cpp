#include <algorithm>
#include <cstdio>

#include "host/files/safe_write.h"
#include "library/failure.h"
#include "library/formats/csv_header.h"
#include "library/formats/numbers.h"
#include "library/measures/strayed.h"
#include "tremolux/commands/commands.h"
#include "tremolux/commands/playback.h"
#include "tremolux/process/output_files.h"

namespace tremolux {
namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t kSeeds = 100000;  // 0 to 99999
constexpr std::size_t kMaxShots = 100000;

struct BatchOptions {
    MoveOptions move;  // its input is the sheet
    std::string folder, shots, kind = ".csv", table;
};

struct Shot {
    std::string input, output, name, preset, seed, settings;
};

const CsvColumns kColumns = {
    {"shot", true}, {"preset", false}, {"seed", false}, {"settings", false}, {"output", false}};
constexpr std::size_t kShot = 0, kPreset = 1, kSeed = 2, kSettings = 3, kOutput = 4;

// FNV-1a of 64 bits: the same name has the same seed on every machine, for ever.
std::string SeedOfName(const std::string &name) {
    std::uint64_t hash = 14695981039346656037ULL;
    for (const char c : name) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
    return std::to_string(hash % kSeeds);
}

std::vector<std::string> SplitSettings(const std::string &text) {
    std::vector<std::string> settings;
    std::size_t start = 0;
    while (start <= text.size()) {
        const std::size_t end = std::min(text.find(';', start), text.size());
        const std::string_view setting = Trimmed(std::string_view(text).substr(start, end - start));
        if (!setting.empty()) settings.emplace_back(setting);
        start = end + 1;
    }
    return settings;
}

std::vector<Shot> ReadSheet(const BatchOptions &options) {
    const fs::path file = fs::u8path(options.move.input);
    std::string bytes, error;
    if (!host::ReadFile(file, &bytes, &error))
        throw Failure(kExitInput, options.move.input + ": found no file that can be read, expected a sheet (.csv)");
    const SourceText source(options.move.input, bytes);
    const CsvHeader header(source, kColumns);
    const fs::path shots = options.shots.empty() ? file.parent_path() : fs::u8path(options.shots);
    const fs::path folder = fs::u8path(options.folder);
    std::vector<Shot> sheet;
    for (std::size_t i = 1; i < source.Lines().size(); ++i) {
        const Line &line = source.Lines()[i];
        if (Trimmed(line.text).empty()) continue;
        const CsvRow row(header, line);
        const auto text = [&row](std::size_t column) {
            return row.Has(column) ? std::string(row.At(column).text) : std::string();
        };
        const fs::path shot = fs::u8path(text(kShot));
        if (shot.empty()) source.RefuseField(line, row.At(kShot), "the name of a camera file");
        const std::string output = text(kOutput).empty() ? shot.stem().u8string() + options.kind : text(kOutput);
        const auto twin = std::find_if(sheet.begin(), sheet.end(), [&](const Shot &other) {
            return fs::u8path(other.output) == folder / fs::u8path(output);
        });
        if (twin != sheet.end())
            source.RefuseField(line, row.At(kShot), "another output than " + Quoted(output) + ", which is taken");
        if (sheet.size() == kMaxShots) source.RefuseField(line, row.At(kShot), "the end of the sheet");
        sheet.push_back({(shots / shot).u8string(), (folder / fs::u8path(output)).u8string(), shot.stem().u8string(),
                         text(kPreset), text(kSeed), text(kSettings)});
    }
    if (sheet.empty()) source.Refuse(source.Lines().size() + 1, 1, "the end of the file", "at least one shot");
    return sheet;
}

std::string Joined(const std::vector<std::string> &texts) {
    std::string joined;
    for (const std::string &text : texts) joined += (joined.empty() ? "" : "; ") + text;
    return joined;
}

std::string CsvCell(const std::string &text) {
    std::string field;
    for (const char c : text) field += c == '"' || c == '\n' || c == '\r' ? '\'' : c;
    return field.find(',') == std::string::npos ? field : "\"" + field + "\"";
}

// The table's row of one shot, which is shaken and written.
std::string Shake(const Shot &shot, const MoveOptions &common, std::string *seed) {
    MoveOptions options = common;
    options.input = shot.input;
    if (!shot.preset.empty()) options.presets = SplitSettings(shot.preset);
    if (!shot.seed.empty()) options.seed = shot.seed;
    if (options.seed.empty()) options.seed = SeedOfName(shot.name);
    *seed = options.seed;
    for (const std::string &setting : SplitSettings(shot.settings)) options.settings.push_back(setting);
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

void Batch(const BatchOptions &options) {
    const std::vector<Shot> sheet = ReadSheet(options);
    const fs::path folder = fs::u8path(options.folder);
    std::error_code error;
    fs::create_directories(folder, error);
    const std::string table_name = options.table.empty() ? (folder / "table.csv").u8string() : options.table;
    std::vector<std::string> inputs = {options.move.input}, places = {table_name};
    for (const Shot &shot : sheet) {
        inputs.push_back(shot.input);
        places.push_back(shot.output);
    }
    const OutputFiles checked(places, inputs);
    OutputFiles table({table_name}, inputs);
    std::string text = "shot,output,preset,seed,settings,frames,fps,rms_cm,peak_cm,rms_deg,peak_deg,error\n";
    std::size_t failed = 0, done = 0;
    for (const Shot &shot : sheet) {
        std::string seed = shot.seed, figures;
        try {
            figures = Shake(shot, options.move, &seed);
        } catch (const Failure &failure) {
            if (failure.Status() == kExitInterrupted) {
                throw Failure(kExitInterrupted, "interrupted: " + std::to_string(done) + " of " +
                                                    std::to_string(sheet.size()) + " shots were written, and no table");
            }
            std::fprintf(stderr, "%s\n", failure.what());
            figures = ",,,,,," + CsvCell(failure.what());
            ++failed;
        }
        ++done;
        const std::string preset = shot.preset.empty() ? Joined(options.move.presets) : shot.preset;
        text += CsvCell(fs::u8path(shot.input).filename().u8string()) + "," +
                CsvCell(fs::u8path(shot.output).filename().u8string()) + "," + CsvCell(preset) + "," + CsvCell(seed) +
                "," + CsvCell(shot.settings) + "," + figures + "\n";
    }
    table.Write({text});
    if (failed > 0) {
        throw Failure(kExitInput, options.move.input + ": " + std::to_string(failed) + " of " +
                                      std::to_string(sheet.size()) + " shots failed, the others are done");
    }
}

}  // namespace

void AddBatchCommand(Command program, Action *action) {
    const auto options = std::make_shared<BatchOptions>();
    Command command = program.Subcommand("batch", "Shakes every shot of a sheet and writes a table of them");
    AddMoveOptions(command, &options->move);
    AddDirectionOptions(command, &options->move.direction);
    command.Find("INPUT").Description(
        "the sheet: a table (.csv) with the column shot and perhaps preset, seed, settings (LABEL=VALUE; ...) and "
        "output");
    command.Add("-o,--output", &options->folder, "folder of the camera files that are written").Required();
    command.Add("--shots", &options->shots, "folder of the shots; else the sheet's");
    command.Add("--format", &options->kind, "extension of the camera files where the sheet names none").ShowDefault();
    command.Add("--table", &options->table, "the table of what was done; else table.csv in the folder");
    command.OnCall([=] { *action = [options] { Batch(*options); }; });
}

}  // namespace tremolux
