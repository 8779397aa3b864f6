// The spring that lets a channel swing past its goal.
#pragma once

#include "c4d.h"

// Puts the spring of the channel at `base` at rest on a value: that was its last output and its last input.
void RestOvershoot(LONG base, const Vector &value, BaseContainer *data);
