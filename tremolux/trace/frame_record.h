// Everything that can be observed of one frame.
#pragma once

#include "tremolux/shots/stage.h"
#include "tremolux/trace/json_value.h"
#include "tremolux/trace/private_state.h"

namespace tremolux {

Json FrameRecord(std::int64_t frame, Stage *stage, PrivateState *state);

}  // namespace tremolux
