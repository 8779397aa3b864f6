#include "library/presets/preset_file.h"

#include <filesystem>

#include "generated/module_ids.h"
#include "host/application.h"
#include "host/files/memory_files.h"
#include "host/scene/document.h"
#include "host/ui/attribute_manager.h"
#include "host/value/descid.h"
#include "library/failure.h"
#include "library/formats/source_text.h"
#include "library/presets/catalog.h"

namespace tremolux {
namespace {

namespace fs = std::filesystem;
namespace memory = host::memory_files;

// The user's presets, of which there are none from one call to the next.
class UserPresets {
  public:
    explicit UserPresets(const host::Tag &tag) : folder_(fs::u8path(tag.Data().Text(ids::kUserPresetFolder))) {
        if (!memory::Holds(folder_)) throw Failure(kExitModule, "the module keeps a user's presets on a disk");
    }
    ~UserPresets() {
        for (const fs::path &file : Files()) memory::Remove(file);
    }
    UserPresets(const UserPresets &) = delete;
    UserPresets &operator=(const UserPresets &) = delete;

    std::vector<fs::path> Files() const {
        std::vector<fs::path> files;
        for (const memory::Entry &entry : memory::Inside(folder_))
            if (!entry.is_folder) files.push_back(folder_ / fs::u8path(entry.name));
        return files;
    }
    void Add(std::string_view bytes) const {
        if (!memory::Write(folder_ / "preset", bytes)) throw Failure(kExitModule, "there is no folder for presets");
    }

  private:
    fs::path folder_;
};

// Whatever was done to the tag meanwhile did not happen.
class Unseen {
  public:
    explicit Unseen(host::Tag *tag) : undo_(tag->GetDocument()->Undo()) {
        undo_.Start();
        undo_.Add(host::kUndoChangeSmall, tag);
    }
    ~Unseen() { undo_.TakeBack(); }
    Unseen(const Unseen &) = delete;
    Unseen &operator=(const Unseen &) = delete;

  private:
    host::UndoStack &undo_;
};

std::string SaveUnder(const std::string &name, host::Tag *tag) {
    const UserPresets presets(*tag);
    host::Application::Current()->dialogs.AnswerText(name);
    if (!host::PressButton(tag, host::MakeId(ids::kSavePreset)))
        throw Failure(kExitInput, "found a baked shot, expected one whose settings still hold");
    std::string bytes;
    const std::vector<fs::path> files = presets.Files();
    if (files.size() == 1 && memory::Read(files.front(), &bytes)) return bytes;
    throw Failure(kExitInput, "name: found " + Quoted(name) + ", expected a name for a file (150 bytes at most)");
}

}  // namespace

std::string WritePresetFile(const std::string &name, host::Tag *tag) {
    const std::int32_t category = tag->Data().Whole(ids::kCategory);
    const Unseen unseen(tag);
    std::string bytes = SaveUnder(name, tag);
    // The lists forget the file.
    ChooseEntry(tag, ids::kCategory, category);
    return bytes;
}

void ApplyPresetFile(std::string_view bytes, host::Tag *tag) {
    const std::int32_t category = tag->Data().Whole(ids::kCategory);
    {
        const UserPresets presets(*tag);
        presets.Add(bytes);
        ChooseEntry(tag, ids::kCategory, ids::kCategoryUser);
        if (tag->Data().Whole(ids::kCategory) != ids::kCategoryUser)
            throw Failure(kExitInput, "found a baked shot, expected one that takes settings");
        const auto entries = ListEntries(*tag, ids::kPreset);
        if (entries.empty() || entries.front().first != 0)
            throw Failure(kExitInput, "preset: found " + std::to_string(bytes.size()) +
                                          " bytes of something else, expected a preset file (1 MiB at most)");
        ChooseEntry(tag, ids::kPreset, 0);
        if (tag->Data().Whole(ids::kPreset, -1) != 0)
            throw Failure(kExitModule, "the module does not apply the preset");
    }
    ChooseEntry(tag, ids::kCategory, category);
}

}  // namespace tremolux
