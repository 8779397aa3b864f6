// What parameters do to the motion, in one sentence each.
#pragma once

#include <cstdint>

namespace tremolux {

// From the module's own table, as the manual has it; empty for what is no parameter of it.
const char *ParameterSentence(std::int32_t parameter);

}  // namespace tremolux
