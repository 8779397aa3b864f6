// What lies in the folders of presets. Everything here may be called on any thread.
#pragma once

#include <vector>

#include "presets/presetpath.h"

// The folders in a folder, in the order of browsing; their contents are left empty.
std::vector<PresetPath> FoldersIn(const Filename &folder);
// The names of the files in a folder, in the order of browsing; hidden ones are left out.
std::vector<Filename> FilesIn(const Filename &folder);
// The presets in a folder, in the order of browsing. What is no preset file, hidden, too large or behind the longest
// list is left out, and told of; `stop_at_folder`: so is whatever comes after a folder.
std::vector<PresetPath> PresetsIn(const Filename &folder, const String &category, Bool stop_at_folder);
// The presets in a folder that are displayed under a name, whatever its case, in the order of browsing.
std::vector<PresetPath> PresetsNamed(const Filename &folder, const String &name);
// The preset of one record as its file is now; FALSE when it opens no more.
Bool ReadAgain(const PresetPath &record, BaseContainer *preset);
