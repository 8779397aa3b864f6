// What the module offers to the host: the camera tag and the command that applies it.
#pragma once

#include "c4d.h"
#include "tag/ids.h"

// Checks that the icon loads, prints the banner and registers the tag. FALSE without the icon (nothing is printed
// then), or when the host refuses.
Bool RegisterTremoluxCam();

// FALSE when the host refuses or memory is short. A missing icon is no reason not to have the command.
Bool RegisterTremoluxCommand();
