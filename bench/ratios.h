// The table of ratios: what outlives the machine, against what was measured before.
#pragma once

#include <filesystem>
#include <string>

#include "bench/medians.h"

namespace bench {

// One line for each row whose measurements were run: time, noise, ratio, aim, and the ratio in `committed`.
void PrintRatios(const Medians &medians, const std::filesystem::path &committed);
// false with a line on standard error when it cannot be written. Rows that were not run keep their ratio.
bool WriteRatios(const Medians &medians, const std::filesystem::path &committed);

}  // namespace bench
