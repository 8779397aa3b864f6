#include "library/parameters/lookup.h"

#include <algorithm>
#include <numeric>

#include "library/failure.h"
#include "library/formats/numbers.h"
#include "library/formats/source_text.h"

namespace tremolux {
namespace {

constexpr std::size_t kNearestNames = 3;
constexpr std::size_t kLongestComparedName = 200;  // a distance costs the product of both lengths

struct Name {
    std::optional<std::int64_t> id;
    std::string label;  // folded; empty: not given
};

Name Split(std::string_view text) {
    text = Trimmed(text);
    const std::size_t blank = text.find(' ');
    const std::optional<std::int64_t> id = ParseWhole(text.substr(0, blank));
    if (!id) return {std::nullopt, Folded(text)};
    return {id, blank == std::string_view::npos ? std::string() : Folded(text.substr(blank))};
}

std::string NearestNames(const std::vector<Parameter> &parameters, std::string_view name) {
    std::vector<std::pair<std::size_t, const Parameter *>> ranked;
    for (const Parameter &parameter : parameters) {
        if (parameter.label.empty()) continue;
        ranked.emplace_back(EditDistance(Folded(name).substr(0, kLongestComparedName), Folded(parameter.label)), &parameter);
    }
    std::stable_sort(ranked.begin(), ranked.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
    std::vector<std::string> names;
    for (const auto &[distance, parameter] : ranked) {
        const std::string quoted = "'" + parameter->label + "'";
        if (std::find(names.begin(), names.end(), quoted) == names.end()) names.push_back(quoted);
        if (names.size() == kNearestNames) break;
    }
    std::string list;
    for (const std::string &nearest : names) list += (list.empty() ? "" : ", ") + nearest;
    return list;
}

std::string Ids(const std::vector<const Parameter *> &found) {
    std::string list;
    for (const Parameter *parameter : found) list += (list.empty() ? "" : " or ") + std::to_string(parameter->id);
    return list;
}

}  // namespace

std::string Folded(std::string_view text) {
    std::string folded(Trimmed(text));
    for (char &c : folded)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return folded;
}

std::size_t EditDistance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0]++;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t changed = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({changed, row[j] + 1, diagonal + 1});
        }
    }
    return row.back();
}

const Parameter &FindParameter(const std::vector<Parameter> &parameters, std::string_view name,
                               const std::string &place) {
    const Name wanted = Split(name);
    std::vector<const Parameter *> found;
    for (const Parameter &parameter : parameters) {
        if (wanted.id && parameter.id != *wanted.id) continue;
        if (!wanted.label.empty() ? Folded(parameter.label) == wanted.label : wanted.id.has_value())
            found.push_back(&parameter);
    }
    if (found.size() == 1) return *found.front();
    if (found.empty()) {
        throw Failure(kExitInput, place + ": found no parameter " + Quoted(name) +
                                      ", expected a label or an id; nearest: " + NearestNames(parameters, name));
    }
    throw Failure(kExitInput, place + ": found " + std::to_string(found.size()) + " parameters " + Quoted(name) +
                                  ", expected one of their ids: " + Ids(found));
}

}  // namespace tremolux
