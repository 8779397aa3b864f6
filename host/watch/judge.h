// What a module did wrong at the host's border, on whichever thread.
#pragma once

#include <string>

namespace host {

// The first wrong call since the last time it was forgotten, in one line: the module's operation, the entry, what was
// found and what was expected. Empty: there was none.
std::string FirstWrongCall();
void ForgetWrongCall();

void Complain(const std::string &entry, const std::string &found, const std::string &expected);

}  // namespace host
