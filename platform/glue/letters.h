// Upper and lower case of single letters: Latin with its common accents, Greek, Cyrillic. Independent of the system's
// language, so that a file is found by the same name everywhere.
#pragma once

#include "ge_types.h"

UWORD LowerLetter(UWORD letter);
UWORD UpperLetter(UWORD letter);
