#include "tag/tremoluxcam.h"

// The lens follows the input camera's as it is.
Real TremoluxCamClass::EvaluateZoom(BaseContainer *, Real input_focal_length) { return input_focal_length; }
