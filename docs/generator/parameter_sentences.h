// What each parameter does to the motion, for the manual.
#pragma once

#include "c4d.h"

struct ParameterSentence {
    LONG id;
    const CHAR *text;
};

// One for every parameter, in the order of the panel; `count` receives their number.
const ParameterSentence *ParameterSentences(LONG *count);
