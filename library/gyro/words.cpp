#include "library/gyro/words.h"

namespace tremolux {

std::string LowerCaseWord(std::string_view text) {
    std::string lower(text);
    for (char &c : lower) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return lower;
}

std::string PrintableWords(std::string_view text) {
    constexpr std::size_t kLongest = 80;
    std::string words(text.substr(0, kLongest));
    for (char &c : words) {
        if (c < ' ' || c > '~') c = '?';
    }
    return words;
}

}  // namespace tremolux
