#include "library/parameters/lookup.h"

#include "library/failure.h"
#include "library/formats/numbers.h"
#include "library/formats/source_text.h"
#include "library/parameters/nearest.h"

namespace tremolux {
namespace {

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

std::vector<std::string> Labels(const std::vector<Parameter> &parameters) {
    std::vector<std::string> labels;
    labels.reserve(parameters.size());
    for (const Parameter &parameter : parameters) labels.push_back(parameter.label);
    return labels;
}

std::string Ids(const std::vector<const Parameter *> &found) {
    std::string list;
    for (const Parameter *parameter : found) list += (list.empty() ? "" : " or ") + std::to_string(parameter->id);
    return list;
}

}  // namespace

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
                                      ", expected a label or an id" + DidYouMean(name, Labels(parameters)));
    }
    throw Failure(kExitInput, place + ": found " + std::to_string(found.size()) + " parameters " + Quoted(name) +
                                  ", expected one of their ids: " + Ids(found));
}

}  // namespace tremolux
