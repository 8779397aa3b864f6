// Texts in scripts.
#pragma once

#include <string>

namespace tremolux {

// A literal of Python.
std::string PythonText(const std::string &text);

}  // namespace tremolux
