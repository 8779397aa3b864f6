// Cameras that become one another's copy.
#pragma once

#include "c4d.h"

// Every described parameter but those that tell cameras apart: name, visibility, display colour.
void CopyCamera(BaseObject *from, BaseObject *to);
