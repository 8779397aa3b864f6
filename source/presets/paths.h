// Paths as the file system sees them: one folder may be written in many ways.
#pragma once

#include "c4d.h"

// Whether both lead to the same file or folder: by the text, or by what the file system says. FALSE when one of them
// leads nowhere.
Bool IsSamePlace(const Filename &a, const Filename &b);

// The path of a folder that is there, without separators at its end, "." and ".."; empty for a path that leads nowhere,
// or elsewhere from another working folder.
Filename NormalFolder(const Filename &folder);
