// The presets that the panel's cycles offer.
#pragma once

#include "c4d.h"

// Entries of the cycles "Category" and "Preset": value and label, in the order of display.
BaseContainer CategoryEntries(const BaseContainer &data);
BaseContainer PresetEntries(const BaseContainer &data);
