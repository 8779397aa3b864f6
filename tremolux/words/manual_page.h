// The manual page of the program, for man.
#pragma once

#include <string>

#include "tremolux/described_command.h"

namespace tremolux {

std::string ManualPage(const DescribedCommand &program);

}  // namespace tremolux
