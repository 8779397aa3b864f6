// What the user holds down while a button is pressed.
#pragma once

#include "c4d.h"

inline Bool IsControlKeyHeld() {
    BaseContainer state;
    return GetInputState(BFM_INPUT_KEYBOARD, BFM_INPUT_CHANNEL, state) && (state.GetLong(BFM_INPUT_QUALIFIER) & QCTRL);
}
