// Arithmetic in edit fields: "1+2" is 3.
#pragma once

#include <string_view>

namespace host {

// Numbers with a decimal point, + - * / ^ (right to left, before signs), signs, parentheses, spaces. false, and
// `value` untouched, when the text is no such expression, has no finite value, or is nested too deeply.
bool ParseExpression(std::string_view text, double *value);

}  // namespace host
