#include "library/presets/pair.h"

#include "generated/module_ids.h"
#include "host/files/folders.h"
#include "host/files/hyperfile.h"
#include "host/files/safe_write.h"
#include "host/scene/parameters.h"
#include "host/value/descid.h"
#include "host/value/text.h"
#include "library/failure.h"

namespace tremolux {
namespace {

namespace fs = std::filesystem;

// "2_Walking and running" is "Walking and running".
std::string_view WithoutNumber(std::string_view name) {
    const std::size_t line = name.find('_');
    return line == std::string_view::npos ? name : name.substr(line + 1);
}

// Of a preset, somewhere in the folder; empty for none.
fs::path FileInside(const fs::path &folder, const std::string &name) {
    host::BrowseFiles files;
    files.Init(folder);
    while (files.Next()) {
        const host::BrowseFiles::Entry &file = *files.Current();
        fs::path path = folder / fs::u8path(file.name);
        if (!file.is_folder && WithoutNumber(file.name) == name) return path;
        if (!file.is_folder) continue;
        fs::path found = FileInside(path, name);
        if (!found.empty()) return found;
    }
    return {};
}

}  // namespace

host::Container PresetOfBytes(const std::string &file, std::string_view bytes) {
    host::HyperFile stream;
    host::Container preset;
    if (!stream.OpenForReading(ids::kPresetFileCode, std::string(bytes)) || !stream.ReadContainer(&preset))
        throw Failure(kExitInput, file + ": found no preset, expected a file that was saved as one");
    return preset;
}

host::Container ReadPresetFile(const fs::path &file) {
    std::string bytes, error;
    if (!host::ReadFile(file, &bytes, &error)) throw Failure(kExitInput, error);
    return PresetOfBytes(host::PathText(file), bytes);
}

std::string BytesOfPreset(const host::Container &preset) {
    host::HyperFile stream;
    stream.OpenForWriting(ids::kPresetFileCode);
    if (!stream.WriteContainer(preset)) throw Failure(kExitInternal, "a preset could not be written");
    return stream.Bytes();
}

std::string NameOfPreset(const host::Container &preset) { return preset.Text(ids::kPresetName); }

std::optional<host::Container> SecondOf(const host::Container &preset) {
    const host::Data *second = preset.Find(ids::kPresetSecond);
    if (second == nullptr || second->GetContainer() == nullptr) return std::nullopt;
    return *second->GetContainer();
}

host::Container WithSecond(const host::Container &first, const host::Container &second) {
    host::Container pair = first;
    pair.Set(ids::kPresetSecond, host::Data(second));
    return pair;
}

void ApplyPresetValues(const host::Container &preset, host::Tag *tag) {
    for (std::int32_t i = 0; i < preset.Count(); ++i) {
        const std::int32_t id = preset.IdAt(i);
        if (id < ids::kFirstPresetId || id > ids::kLastPresetId || preset.Whole(-id) == 0) continue;
        tag->SetParameter(host::MakeId(id), *preset.DataAt(i), host::kSetUserInteraction);
    }
}

fs::path FileOfPreset(const CatalogEntry &entry, const fs::path &module_file, const host::Tag &tag) {
    const bool is_users = entry.category_value == ids::kCategoryUser;
    const fs::path root = is_users ? fs::u8path(tag.Data().Text(ids::kUserPresetFolder)) : module_file.parent_path() / "res" / "Presets";
    if (is_users) return FileInside(root, entry.name);
    host::BrowseFiles folders;
    folders.Init(root);
    while (folders.Next()) {
        const host::BrowseFiles::Entry &folder = *folders.Current();
        if (folder.is_folder && WithoutNumber(folder.name) == entry.category)
            return FileInside(root / fs::u8path(folder.name), entry.name);
    }
    return {};
}

std::optional<host::Container> SecondOfEntry(const CatalogEntry &entry, const fs::path &module_file,
                                             const host::Tag &tag) {
    const fs::path file = FileOfPreset(entry, module_file, tag);
    if (file.empty()) return std::nullopt;
    return SecondOf(ReadPresetFile(file));
}

void FollowExactly(host::Tag *tag) {
    for (const std::int32_t id : {ids::kInitialPositionSmooth, ids::kInitialPositionOvershoot, ids::kInitialRotationSmooth,
                                  ids::kInitialRotationOvershoot, ids::kZoomSmooth, ids::kZoomOvershoot,
                                  ids::kFocusSmoothing, ids::kFocusOvershoot})
        tag->SetParameter(host::MakeId(id), host::Data(0.0));
    tag->SetParameter(host::MakeId(ids::kUseTarget), host::Data(0));
}

}  // namespace tremolux
