// One category folder or preset file that was found.
#pragma once

#include "presets/folders.h"
#include "presets/order.h"
#include "presets/presetfile.h"

// The category of whatever lies in the user's folder.
const CHAR *const kUserCategory = "User";

class PresetPath : public BaseData {
    INSTANCEOF(PresetPath, BaseData)

  public:
    PresetPath() {}
    PresetPath(const Filename &folder, const Filename &file, const String &category_name)
        : path(InFolder(folder, file)), full_path(path.GetString()), category(category_name) {}

    String FileName() const { return path.GetFileString(); }
    // Its own name, or the file's where it has none.
    String Name() const {
        const String name = contents.GetString(kPresetName);
        return name.Content() ? name : DisplayName(FileName());
    }
    // The path as the tag remembers it.
    String Key() const { return full_path.ToLower(); }

    Filename path;
    BaseContainer contents;  // of a preset; empty for a category
    String full_path;
    String category;  // the name of the category's folder, or "User"
};
