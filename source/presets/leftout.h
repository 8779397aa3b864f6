// Presets that lie in a folder and stand in no list: the host's console says why.
#pragma once

#include "presets/presetfile.h"

// One line, the first time that this file is left out for this reason. Others than the main thread say nothing: that
// one comes by, too.
void TellLeftOut(const Filename &file, PresetFault fault);

// At the module's end.
void ForgetLeftOut();
