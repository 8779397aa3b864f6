// Preset files: one container of named settings behind an identification code.
#pragma once

#include "c4d.h"
#include "presets/presetkeys.h"

// Nobody's presets are larger; what is, is not opened.
constexpr LLONG kLargestPresetFile = 1048576;

// Why a file is no preset in a list.
enum class PresetFault { kNone, kTooLarge, kNotOpened, kDamaged, kHidden, kBehindFolder, kBehindLongestList };

// kNone, kNotOpened or kDamaged; `preset` is empty but for the first.
PresetFault ReadPresetFile(const Filename &file, BaseContainer *preset);

// The settings in `data` as a preset of that name; empty when there is no memory for all of them.
BaseContainer MakePreset(const String &name, Bool is_default, const BaseContainer &data);

// Replaces a file only by a complete new one; FALSE, with the old one untouched, where that fails.
Bool WritePresetFile(const Filename &file, const BaseContainer &preset);

// The same for a copy of `source`. Nothing happens when both are the same file.
Bool CopyPresetFile(const Filename &source, const Filename &destination);

// Whether a file of that name is what the two above had not finished when the application ended.
Bool IsUnfinished(const Filename &name);
