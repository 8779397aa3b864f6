// The guide that comes with the module.
#pragma once

#include "c4d.h"

// Opens it in the user's browser.
void OpenGuide();

// The address of a file by its full path: from the root, from a drive, or from a machine in the network. UTF-8, with
// every byte that has no meaning of its own there as % and two digits (RFC 3986, 2.1; RFC 8089).
String FileAddress(const String &path);
