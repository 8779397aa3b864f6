#include "tag/tremoluxcam.h"

void TremoluxCamClass::QuickBake(BaseContainer *, BaseObject *) {}
