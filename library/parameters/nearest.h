// Names that are like what a user typed.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tremolux {

// A name as it is compared: without the blanks around it, in small letters.
std::string Folded(std::string_view text);

// The words of a name, folded: runs of letters and digits; of a long name those at its start.
std::vector<std::string> WordsOf(std::string_view name);

// How many letters have to be added, removed or changed, or swapped with their neighbour, to turn one text into the
// other, no letter twice (optimal string alignment).
std::size_t EditDistance(std::string_view a, std::string_view b);

// How far the wanted name is from another one, whatever the case and what stands between the words: twice the distance
// to the nearest run of its words, and one more where the name has further words. What stands in the name as it is is
// near.
std::size_t NameDistance(std::string_view wanted, std::string_view name);

// The near ones, nearest first, at most three, each once; none where nothing is near.
std::vector<std::string> NearestNames(std::string_view wanted, const std::vector<std::string> &names);

// The same as the end of an error line: ": did you mean 'a' or 'b'?"; empty where nothing is near.
std::string DidYouMean(std::string_view wanted, const std::vector<std::string> &names);

}  // namespace tremolux
