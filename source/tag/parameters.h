// One table of everything that is known about the tag's parameters.
#pragma once

#include "c4d.h"
#include "engine/settings.h"
#include "tag/ids.h"

enum class ParameterType { kReal, kBool, kLink, kButton, kCycle, kTime, kString };

// A number that may be absent.
struct OptionalReal {
    Bool given = FALSE;
    Real value = 0.0;
};

// Where the engine has a parameter's value; nowhere, when no frame depends on it.
struct EngineKey {
    constexpr EngineKey() = default;
    constexpr EngineKey(double engine::Settings::*key) : real(key) {}
    constexpr EngineKey(bool engine::Settings::*key) : flag(key) {}
    constexpr EngineKey(engine::Time engine::Settings::*key) : time(key) {}
    double engine::Settings::*real = nullptr;
    bool engine::Settings::*flag = nullptr;
    engine::Time engine::Settings::*time = nullptr;
};

struct ParameterInfo {
    LONG id = 0;
    const CHAR *label = NULL;  // NULL: the panel does not show it
    ParameterType type = ParameterType::kReal;
    LONG unit = 0;  // DESC_UNIT_, 0 = none
    OptionalReal minimum, maximum;
    OptionalReal slider_minimum, slider_maximum;
    OptionalReal step;
    OptionalReal declared;  // the default, in the stored unit; of types without a number: given = empty value
    OptionalReal reset;     // what ResetParameter writes
    EngineKey key = {};
    Bool whole_default =
        FALSE;  // the default is declared as a whole number; the value is stored as a real all the same
    const CHAR *sentence = NULL;  // what it does to the motion
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
// What the engine needs of a container.
engine::Settings ReadSettings(const BaseContainer &data);
