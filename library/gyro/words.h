// Words in the headers of logs.
#pragma once

#include <string>
#include <string_view>

namespace tremolux {

std::string LowerCaseWord(std::string_view text);
// On one line: what is not printable is a question mark.
std::string PrintableWords(std::string_view text);

}  // namespace tremolux
