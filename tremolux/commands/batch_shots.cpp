#include "tremolux/commands/batch_shots.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>

#include "host/files/safe_write.h"
#include "library/failure.h"
#include "library/formats/csv_header.h"
#include "library/formats/format.h"
#include "library/formats/numbers.h"

namespace tremolux {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMaxShots = 100000;

const CsvColumns kColumns = {
    {"shot", true}, {"preset", false}, {"seed", false}, {"settings", false}, {"output", false}};
constexpr std::size_t kShot = 0, kPreset = 1, kSeed = 2, kSettings = 3, kOutput = 4;

std::vector<Shot> ReadSheet(const std::string &name, const std::string &bytes, const ShotPlaces &places) {
    const SourceText source(name, bytes);
    const CsvHeader header(source, kColumns);
    const fs::path shots = places.shots.empty() ? fs::u8path(name).parent_path() : fs::u8path(places.shots);
    const fs::path folder = fs::u8path(places.folder);
    std::vector<Shot> sheet;
    std::set<std::string> outputs;
    for (std::size_t i = 1; i < source.Lines().size(); ++i) {
        const Line &line = source.Lines()[i];
        if (Trimmed(line.text).empty()) continue;
        const CsvRow row(header, line);
        const auto text = [&row](std::size_t column) {
            return row.Has(column) ? std::string(row.At(column).text) : std::string();
        };
        const fs::path shot = fs::u8path(text(kShot));
        if (shot.empty()) source.RefuseField(line, row.At(kShot), "the name of a camera file");
        const std::string output = text(kOutput).empty() ? shot.stem().u8string() + places.kind : text(kOutput);
        if (!outputs.insert((folder / fs::u8path(output)).u8string()).second)
            source.RefuseField(line, row.At(kShot), "another output than " + Quoted(output) + ", which is taken");
        if (sheet.size() == kMaxShots) source.RefuseField(line, row.At(kShot), "the end of the sheet");
        sheet.push_back({(shots / shot).u8string(), (folder / fs::u8path(output)).u8string(), shot.stem().u8string(),
                         text(kPreset), text(kSeed), text(kSettings)});
    }
    if (sheet.empty()) source.Refuse(source.Lines().size() + 1, 1, "the end of the file", "at least one shot");
    return sheet;
}

bool IsCameraFile(const fs::path &file) {
    try {
        FormatOf(file, FormatUse::kRead);
        return true;
    } catch (const Failure &) {
        return false;
    }
}

std::vector<Shot> ShotsIn(const std::vector<fs::path> &files, const ShotPlaces &places) {
    std::vector<Shot> shots;
    std::map<std::string, std::string> inputs;  // by their outputs
    const fs::path folder = fs::u8path(places.folder);
    for (const fs::path &file : files) {
        const std::string output = (folder / fs::u8path(file.stem().u8string() + places.kind)).u8string();
        const auto [twin, is_new] = inputs.try_emplace(output, file.u8string());
        if (!is_new)
            throw Failure(kExitInput, file.u8string() + ": found the same name as " + Quoted(twin->second) +
                                          ", expected another: both become " + Quoted(output));
        shots.push_back({file.u8string(), output, file.stem().u8string(), "", "", ""});
    }
    return shots;
}

std::vector<fs::path> FilesIn(const fs::path &folder) {
    std::vector<fs::path> files;
    std::error_code error;
    for (const fs::directory_entry &entry : fs::directory_iterator(folder, error))
        if (entry.is_regular_file(error) && IsCameraFile(entry.path())) files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    if (files.empty())
        throw Failure(kExitInput, folder.u8string() + ": found no camera file in this folder, expected at least one");
    return files;
}

}  // namespace

std::vector<Shot> ReadShots(const std::vector<std::string> &inputs, const ShotPlaces &places) {
    std::error_code error;
    if (inputs.size() > 1) {
        std::vector<fs::path> files;
        files.reserve(inputs.size());
        for (const std::string &input : inputs) files.push_back(fs::u8path(input));
        return ShotsIn(files, places);
    }
    const fs::path file = fs::u8path(inputs.front());
    if (fs::is_directory(file, error)) return ShotsIn(FilesIn(file), places);
    std::string bytes, reason;
    if (!host::ReadFile(file, &bytes, &reason)) {
        throw Failure(
            kExitInput,
            inputs.front() + ": found no file that can be read, expected a sheet (.csv), a folder or camera files");
    }
    return ReadSheet(inputs.front(), bytes, places);
}

std::vector<std::string> SplitList(const std::string &text) {
    std::vector<std::string> parts;
    std::size_t start = 0;
    while (start <= text.size()) {
        const std::size_t end = std::min(text.find(';', start), text.size());
        const std::string_view part = Trimmed(std::string_view(text).substr(start, end - start));
        if (!part.empty()) parts.emplace_back(part);
        start = end + 1;
    }
    return parts;
}

}  // namespace tremolux
