// What the program asks of the operating system.
#pragma once

#include <filesystem>

namespace tremolux {

// Where the running program's file lies; empty when the system does not say.
std::filesystem::path ProgramFolder();
// Where the user's settings lie unless another folder is asked for: tremolux/ in the user's configuration folder.
std::filesystem::path DefaultHome();

}  // namespace tremolux
