// File names from names that a user typed.
#pragma once

#include "c4d.h"

// The name with "-" in place of whatever a file name cannot hold on some system: separators and other reserved
// characters, control characters, a blank or dot at either end, a name that stands for a device. Empty when nothing is
// left of it, or when it is too long for a file name.
String FileNameOf(const String &typed);

// A file of that name that is not in the folder yet, numbered by how many there are, and on where that number is taken.
Filename NewFileIn(const Filename &folder, const String &name);
