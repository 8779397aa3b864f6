#include "library/parameters/nearest.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "library/formats/numbers.h"

namespace tremolux {
namespace {

constexpr std::size_t kMostNearest = 3;
constexpr std::size_t kLongestComparedName = 200;  // a distance costs the product of both lengths
constexpr std::size_t kLettersPerMistake = 4;      // so many letters for each mistake that is taken for one
constexpr std::size_t kShortestPart = 3;           // fewer letters stand in nearly every name
constexpr std::size_t kPartDistance = 2;           // a part of a word: as far as one mistake
constexpr std::size_t kMostBehindTheNearest = 2;   // one mistake more than in the nearest

bool IsLetter(char c) {
    // Bytes beyond ASCII are parts of letters.
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || static_cast<unsigned char>(c) >= 0x80;
}

std::string WordsInARow(const std::vector<std::string> &words, std::size_t first, std::size_t count) {
    std::string text;
    for (std::size_t i = first; i < first + count; ++i) text += (i == first ? "" : " ") + words[i];
    return text;
}

// Nothing farther is taken for what was meant.
std::size_t MeantWithin(std::string_view wanted) {
    const std::vector<std::string> words = WordsOf(wanted);
    const std::size_t letters = WordsInARow(words, 0, words.size()).size();
    const std::size_t mistakes = letters < 2 ? 0 : std::max<std::size_t>(1, letters / kLettersPerMistake);
    return 2 * mistakes + 1;
}

}  // namespace

std::string Folded(std::string_view text) {
    std::string folded(Trimmed(text));
    for (char &c : folded)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return folded;
}

std::vector<std::string> WordsOf(std::string_view name) {
    std::vector<std::string> words(1);
    for (const char c : Folded(name.substr(0, kLongestComparedName))) {
        if (IsLetter(c))
            words.back() += c;
        else if (!words.back().empty())
            words.emplace_back();
    }
    if (words.back().empty()) words.pop_back();
    return words;
}

std::size_t EditDistance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> before_last, last, row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        before_last = std::exchange(last, row);
        row[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); ++j) {
            row[j + 1] = std::min({last[j] + (a[i] == b[j] ? 0 : 1), last[j + 1] + 1, row[j] + 1});
            if (i > 0 && j > 0 && a[i] == b[j - 1] && a[i - 1] == b[j])
                row[j + 1] = std::min(row[j + 1], before_last[j - 1] + 1);
        }
    }
    return row.back();
}

std::size_t NameDistance(std::string_view wanted, std::string_view name) {
    const std::vector<std::string> typed = WordsOf(wanted), known = WordsOf(name);
    const std::string text = WordsInARow(typed, 0, typed.size()), whole = WordsInARow(known, 0, known.size());
    std::size_t nearest = 2 * EditDistance(text, whole);
    if (text.size() >= kShortestPart && whole.find(text) != std::string::npos)
        nearest = std::min(nearest, kPartDistance);
    for (std::size_t first = 0; !typed.empty() && first + typed.size() <= known.size(); ++first)
        nearest = std::min(nearest, 2 * EditDistance(text, WordsInARow(known, first, typed.size())) + 1);
    return nearest;
}

std::vector<std::string> NearestNames(std::string_view wanted, const std::vector<std::string> &names) {
    std::vector<std::pair<std::size_t, const std::string *>> ranked;
    for (const std::string &name : names)
        if (const std::size_t distance = NameDistance(wanted, name); distance <= MeantWithin(wanted))
            ranked.emplace_back(distance, &name);
    std::stable_sort(ranked.begin(), ranked.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
    std::vector<std::string> nearest;
    for (const auto &[distance, name] : ranked) {
        if (nearest.size() == kMostNearest || distance > ranked.front().first + kMostBehindTheNearest) break;
        if (std::find(nearest.begin(), nearest.end(), *name) == nearest.end()) nearest.push_back(*name);
    }
    return nearest;
}

std::string DidYouMean(std::string_view wanted, const std::vector<std::string> &names) {
    const std::vector<std::string> nearest = NearestNames(wanted, names);
    std::string text;
    for (std::size_t i = 0; i < nearest.size(); ++i) {
        const bool is_last = i + 1 == nearest.size();
        text += (i == 0 ? "" : is_last ? " or " : ", ") + ("'" + nearest[i] + "'");
    }
    return text.empty() ? "" : ": did you mean " + text + "?";
}

}  // namespace tremolux
