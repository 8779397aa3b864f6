#include "tag/tremoluxcam.h"

// The focus follows the input camera's as it is.
Real TremoluxCamClass::EvaluateFocus(BaseContainer *, Real input_distance) { return input_distance; }
