// Values that a file holds, and whether they can be trusted.
#pragma once

#include "c4d.h"

// The value of a parameter in a preset, written to `data` when it can be trusted: there, of the parameter's type
// (numbers convert), finite, and held to the parameter's limits. FALSE, and nothing written, otherwise.
Bool CopyPresetValue(const BaseContainer &preset, LONG id, BaseContainer *data);
