// Where presets lie.
#pragma once

#include "c4d.h"

// Beside the module: one folder for each category.
Filename BuiltInPresetFolder();
// The user's own, as the host's settings name it; empty when they do not.
Filename UserPresetFolder();
// Sees to it that a user folder exists and that the host's settings name it: the one chosen before where it is still
// there, else the default in the host's user folder.
void EnsureUserPresetFolder();
