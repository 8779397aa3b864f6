// Parameters over time: keys from the command line on the tracks of a tag.
#pragma once

#include <string>
#include <vector>

#include "host/scene/tag.h"

namespace tremolux {

// Each of the form "LABEL@FRAME=VALUE EASING,FRAME=VALUE ...", with an id in place of the label where one is wanted; a value as
// for a setting, and behind it how it goes on to the next key: linear (else), smooth (at rest on the key) or hold. All are
// checked before the first is written; a parameter that is named again gets those keys, too. Throws a Failure.
void ApplyKeys(const std::vector<std::string> &keys, int frames_per_second, host::Tag *tag);

}  // namespace tremolux
