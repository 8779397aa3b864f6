// A tag that adds nothing: its camera is the input's.
#pragma once

#include "host/scene/tag.h"

namespace tremolux {

// Takes back whatever its settings would add; what is set later adds to the input alone.
void ComeToRest(host::Tag *tag);

}  // namespace tremolux
