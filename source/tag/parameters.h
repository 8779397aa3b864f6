// One table of everything that is known about the tag's parameters.
#pragma once

#include "c4d.h"
#include "tag/ids.h"

enum class ParameterType { kReal, kBool, kLink, kButton, kCycle, kTime, kString };

// A number that may be absent.
struct OptionalReal {
    Bool given;
    Real value;
};

struct ParameterInfo {
    LONG id;
    const CHAR *label;  // null: the panel does not show it
    ParameterType type;
    LONG unit;  // DESC_UNIT_, 0 = none
    OptionalReal minimum, maximum;
    OptionalReal slider_minimum, slider_maximum;
    OptionalReal step;
    OptionalReal preset;  // the declared default, in the stored unit; of types without a number: given = empty value
    OptionalReal reset;   // what ResetParameter writes
    Bool whole_preset = FALSE;  // the default is declared as a whole number; the value is stored as a real all the same
};

// Whether a preset or a first set-up may touch it.
Bool IsPresetParameter(LONG id);
// All parameters, in the order of the panel; `count` receives their number.
const ParameterInfo *Parameters(LONG *count);
// NULL for an id that is none.
const ParameterInfo *FindParameter(LONG id);
// Writes the declared default where there is one.
void WriteDefault(const ParameterInfo &parameter, BaseContainer *data);

// The stored real of a parameter: 0 when absent, the declared default when it is not finite.
Real ReadReal(const BaseContainer &data, LONG id);
// Cut off toward zero, saturated at the range of a LONG; 0 for what is not a number.
LONG Truncate(Real value);
LONG ReadTruncated(const BaseContainer &data, LONG id);
