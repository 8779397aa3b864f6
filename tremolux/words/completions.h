// What shells read to complete the program's commands, options and choices; files everywhere else.
#pragma once

#include <string>

#include "tremolux/described_command.h"

namespace tremolux {

std::string BashCompletion(const DescribedCommand &program);
std::string ZshCompletion(const DescribedCommand &program);
std::string FishCompletion(const DescribedCommand &program);

}  // namespace tremolux
