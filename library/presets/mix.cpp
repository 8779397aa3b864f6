#include "library/presets/mix.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>

#include "generated/module_ids.h"
#include "host/scene/parameters.h"
#include "host/value/descid.h"
#include "library/failure.h"
#include "library/formats/numbers.h"
#include "library/formats/source_text.h"
#include "library/parameters/parameter.h"

namespace tremolux {
namespace {

constexpr double kShareRounding = 1e-9;  // that shares may miss a whole by

std::optional<double> ShareOf(std::string_view text) {
    const bool is_percent = !text.empty() && text.back() == '%';
    if (is_percent) text.remove_suffix(1);
    const std::optional<double> number = ParseNumber(Trimmed(text));
    const double share = number ? *number / (is_percent ? 100 : 1) : -1;
    return share >= 0 && share <= 1 ? std::optional(share) : std::nullopt;
}

// The preset's name, and its share where one stands behind the last equals sign.
std::pair<std::string_view, std::optional<double>> Parted(std::string_view text) {
    const std::size_t equals = text.rfind('=');
    if (equals == std::string_view::npos) return {text, std::nullopt};
    const std::optional<double> share = ShareOf(text.substr(equals + 1));
    return share ? std::make_pair(Trimmed(text.substr(0, equals)), share) : std::make_pair(text, share);
}

bool IsMixed(const Parameter &parameter) {
    const bool has_value = parameter.kind == ParameterKind::kReal || parameter.kind == ParameterKind::kBool ||
                           parameter.kind == ParameterKind::kChoice;
    const bool is_kept = parameter.id >= ids::kFirstPresetId && parameter.id <= ids::kLastPresetId;
    return has_value && is_kept && parameter.id != ids::kSeed && parameter.id != ids::kOverallScale;
}

using Values = std::map<std::int32_t, double>;

Values ValuesOf(const std::vector<Parameter> &parameters, const host::Tag &tag) {
    Values values;
    for (const Parameter &parameter : parameters) {
        if (!IsMixed(parameter)) continue;
        values[parameter.id] = parameter.kind == ParameterKind::kReal
                                   ? tag.Data().Real(parameter.id)
                                   : static_cast<double>(tag.Data().Whole(parameter.id));
    }
    return values;
}

// Of switches and choices: the value that most of the weight has, of equals the first.
double Elected(const std::vector<PresetShare> &mix, const std::vector<Values> &values, std::int32_t id) {
    std::map<double, double> weights;
    for (std::size_t i = 0; i < mix.size(); ++i) weights[values[i].at(id)] += mix[i].share;
    double elected = values.front().at(id);
    for (const Values &candidate : values)
        if (weights[candidate.at(id)] > weights[elected] + kShareRounding) elected = candidate.at(id);
    return elected;
}

double Weighed(const std::vector<PresetShare> &mix, const std::vector<Values> &values, std::int32_t id) {
    double sum = 0;
    for (std::size_t i = 0; i < mix.size(); ++i) sum += mix[i].share * values[i].at(id);
    return sum;
}

}  // namespace

std::vector<PresetShare> ReadPresetShares(const std::vector<CatalogEntry> &catalog, const std::vector<std::string> &texts,
                                          const std::string &place) {
    std::vector<PresetShare> mix;
    std::vector<std::size_t> unsaid;
    double said = 0;
    for (const std::string &text : texts) {
        const auto [name, share] = Parted(text);
        if (!share) unsaid.push_back(mix.size());
        said += share.value_or(0);
        mix.push_back({FindPreset(catalog, name, place), share.value_or(0)});
    }
    if (said > 1 + kShareRounding || (unsaid.empty() && said < 1 - kShareRounding)) {
        throw Failure(kExitInput, place + ": found shares that make " + FormatNumber(said) +
                                      ", expected 1, or less and a preset without one, which gets the rest");
    }
    for (const std::size_t i : unsaid) mix[i].share = (1 - said) / static_cast<double>(unsaid.size());
    return mix;
}

void ChooseMix(const std::vector<PresetShare> &mix, host::Tag *tag) {
    const std::vector<Parameter> parameters = DescribedParameters(*tag);
    std::vector<Values> values;
    for (const PresetShare &share : mix) {
        ChoosePreset(share.preset, tag);
        values.push_back(ValuesOf(parameters, *tag));
    }
    if (mix.size() == 1) return;
    ChoosePreset(mix.front().preset, tag);
    for (const Parameter &parameter : parameters) {
        if (!IsMixed(parameter)) continue;
        const bool is_real = parameter.kind == ParameterKind::kReal;
        const double value = is_real ? Weighed(mix, values, parameter.id) : Elected(mix, values, parameter.id);
        if (value == values.front().at(parameter.id)) continue;
        const host::Data data = is_real ? host::Data(value) : host::Data(static_cast<std::int32_t>(value));
        if (!tag->SetParameter(host::MakeId(parameter.id), data, host::kSetUserInteraction))
            throw Failure(kExitModule, "the module refuses a value of parameter " + std::to_string(parameter.id));
    }
}

double RateOf(const std::vector<PresetShare> &mix, const std::map<std::string, PresetFacts> &facts) {
    double rate = 0;
    for (const PresetShare &share : mix) {
        const auto fact = facts.find(share.preset.name);
        if (fact == facts.end() || share.preset.category_value == ids::kCategoryUser) return 0;
        if (rate != 0 && fact->second.frames_per_second != rate) return 0;
        rate = fact->second.frames_per_second;
    }
    return rate;
}

std::string MixName(const std::vector<PresetShare> &mix) {
    if (mix.size() == 1) return mix.front().preset.name;
    std::string name;
    for (const PresetShare &share : mix)
        name += (name.empty() ? "" : ", ") + share.preset.name + " " +
                FormatNumber(std::round(share.share * 1000) / 10) + "%";
    return name;
}

}  // namespace tremolux
