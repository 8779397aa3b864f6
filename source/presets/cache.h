// What was read from preset files, so that each is read once however many tags there are. The cache lives as long as
// the module; no number from a file depends on it. Everything here may be called on any thread.
#pragma once

#include <vector>

#include "presets/presetpath.h"

// The folders in a folder, in the order of browsing; their contents are left empty.
std::vector<PresetPath> FoldersIn(const Filename &folder);
// The names of the files in a folder, in the order of browsing; hidden ones are left out.
std::vector<Filename> FilesIn(const Filename &folder);
// The presets in a folder, in the order of browsing. What is no preset file, hidden or too large is left out;
// `stop_at_folder`: so is whatever comes after a folder.
std::vector<PresetPath> PresetsIn(const Filename &folder, const String &category, Bool stop_at_folder);
// The presets in a folder that are displayed under a name, whatever its case, in the order of browsing.
std::vector<PresetPath> PresetsNamed(const Filename &folder, const String &name);
// The preset of one record as its file is now; FALSE when it opens no more.
Bool ReadAgain(const PresetPath &record, BaseContainer *preset);

// When the files of a folder last came or went. Equal only where nothing has since, however fast one change follows
// another.
class FolderStamp {
  public:
    explicit FolderStamp(const Filename &folder);
    Bool operator==(const FolderStamp &other) const;

  private:
    Filename folder_;
    LocalFileTime changed_;
    Bool exists_, is_certain_;
};

// At the module's end.
void ForgetPresets();
