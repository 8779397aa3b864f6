// What the program asks of the operating system.
#pragma once

#include <filesystem>

namespace tremolux {

// Beside the program: plugins/TremoluxCam/.
std::filesystem::path DefaultModuleFile();
// Where the user's settings lie unless another folder is asked for: tremolux/ in the user's configuration folder.
std::filesystem::path DefaultHome();

}  // namespace tremolux
