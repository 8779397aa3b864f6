// Where presets lie.
#pragma once

#include "c4d.h"

// `name` in `folder`. Empty when one of them is, as without memory: what is left of a path then lies who knows where.
Filename InFolder(const Filename &folder, const Filename &name);

// Beside the module: one folder for each category.
Filename BuiltInPresetFolder();
// Beside the module: what is to be taken over at the next chance.
Filename ImportFolder();
// The user's own, as the host's settings name it; empty when they do not. On any thread: others than the main one get
// it as that asked for it last.
Filename UserPresetFolder();
// At the module's end.
void ForgetUserPresetFolder();
// Made where it is missing.
Filename ExportFolder();

// Sees to it that a user folder exists and that the host's settings name it: the one chosen before where it is still
// there whatever the working folder is, else the default one.
void EnsureUserPresetFolder();
// The user folder in the host's own user folder, made where it is missing.
Filename DefaultUserPresetFolder();
// From now on the user's presets lie there, for every tag.
void RememberUserPresetFolder(const Filename &folder);

// Made where it is missing; none is made of an empty path.
Filename ExistingFolder(const Filename &folder);
