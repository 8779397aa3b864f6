// The second camera of presets that are pairs, as a tag remembers the preset that was chosen for it.
#pragma once

#include <cstdint>

#include "library/shots/stage.h"

namespace tremolux {

// Another seed of the first camera is another take of both; with one seed for both they would move alike. `presets_seed` is
// the one that the first camera's preset has.
void SeedSecond(const host::Tag &first, std::int64_t presets_seed, host::Tag *second);

// Whether the preset that was applied last is a pair: also after settings were changed by hand.
bool IsPair(const host::Tag &tag);
// From now on it is none.
void ForgetSecond(host::Tag *tag);
// The second camera's settings are to be carried from this rate too.
void CarrySecond(host::Tag *tag, double made_for);

// Gives the stage the second camera that its tag's preset asks for, or takes one away. In the running host, on its main
// thread. Throws a Failure.
void BringSecond(Stage *stage);

}  // namespace tremolux
