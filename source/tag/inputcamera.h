// Cameras that become one another's copy.
#pragma once

#include "c4d.h"

// What an input camera is called that its user gave no name.
extern const CHAR *const kInputCameraName;
// Renames a camera that still has the host's name for new ones.
void NameInputCamera(BaseObject *input);

// Every described parameter but those that tell cameras apart: name, visibility, display colour. FALSE when `from` does
// not describe itself.
Bool CopyCamera(BaseObject *from, BaseObject *to);
