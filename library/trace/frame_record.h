// Everything that can be observed of one frame.
#pragma once

#include "library/shots/stage.h"
#include "library/trace/json_value.h"
#include "library/trace/private_state.h"

namespace tremolux {

Json FrameRecord(std::int64_t frame, Stage *stage, PrivateState *state);

}  // namespace tremolux
