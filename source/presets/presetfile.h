// Preset files: one container of named settings behind an identification code.
#pragma once

#include "c4d.h"
#include "presets/presetkeys.h"

// Nobody's presets are larger; what is, is not opened.
constexpr LLONG kLargestPresetFile = 1048576;

// FALSE for what is no preset file; `preset` is then empty.
Bool ReadPresetFile(const Filename &file, BaseContainer *preset);

// The settings in `data` as a preset of that name; empty when there is no memory for all of them.
BaseContainer MakePreset(const String &name, Bool is_default, const BaseContainer &data);

// Replaces a file only by a complete new one; FALSE, with the old one untouched, where that fails.
Bool WritePresetFile(const Filename &file, const BaseContainer &preset);

// The same for a copy of `source`. Nothing happens when both are the same file.
Bool CopyPresetFile(const Filename &source, const Filename &destination);

// The value of a parameter in a preset, written to `data` when it can be trusted: there, of the parameter's type
// (numbers convert), finite, and held to the parameter's limits. FALSE, and nothing written, otherwise.
Bool CopyPresetValue(const BaseContainer &preset, LONG id, BaseContainer *data);
