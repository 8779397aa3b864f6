// Folders as the file system sees them: one may be written in many ways.
#pragma once

#include "c4d.h"

// Whether both paths lead to the same folder: by the text, or by what the file system says. FALSE when one of them
// leads nowhere.
Bool IsSameFolder(const Filename &a, const Filename &b);

// The path of a folder that is there, without "." and separators too many; empty for a path that leads nowhere, or
// elsewhere from another working folder. ".." stays: after a link it is not what the text says.
Filename NormalFolder(const Filename &folder);

// The file or folder of that name as the folder lists it: a system may know it under another case, too.
Filename ListedIn(const Filename &folder, const String &name);
