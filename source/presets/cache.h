// What was read from preset files, so that each is read once however many tags there are. The cache lives as long as
// the module; no number from a file depends on it. Everything here may be called on any thread.
#pragma once

#include "presets/presetfile.h"
#include "presets/stamps.h"

// As ReadPresetFile, of a file that is now as the stamp says.
PresetFault ReadPresetFileOnce(const Filename &file, const FileStamp &stamp, BaseContainer *preset);

// At the module's end.
void ForgetPresets();
