#include "library/parameters/parameter.h"

#include "host/description/description.h"
#include "host/scene/parameters.h"
#include "host/ui/field_text.h"
#include "library/failure.h"
#include "library/formats/numbers.h"

namespace tremolux {
namespace {

ParameterKind KindOf(std::int32_t described_type) {
    switch (described_type) {
        case host::kDataReal:
            return ParameterKind::kReal;
        case host::kDescribedBool:
            return ParameterKind::kBool;
        case host::kDataTime:
            return ParameterKind::kTime;
        case host::kDataString:
            return ParameterKind::kText;
        case host::kDataWhole:
            return ParameterKind::kChoice;
        case host::kDataLink:
            return ParameterKind::kLink;
        case host::kDescribedButton:
            return ParameterKind::kButton;
        default:
            return ParameterKind::kOther;
    }
}

ParameterUnit UnitOf(std::int32_t code) {
    switch (code) {
        case host::kUnitPercent:
            return ParameterUnit::kPercent;
        case host::kUnitDegree:
            return ParameterUnit::kDegrees;
        case host::kUnitFrames:
            return ParameterUnit::kFrames;
        default:
            return ParameterUnit::kNone;
    }
}

std::optional<double> Limit(const host::Container &settings, std::int32_t key, ParameterKind kind) {
    if (!settings.Has(key)) return std::nullopt;
    if (kind == ParameterKind::kTime) return host::Seconds(settings.GetTime(key));
    if (kind == ParameterKind::kReal) return settings.Real(key);
    return std::nullopt;
}

std::optional<host::Data> Usual(const host::Container &settings, ParameterKind kind) {
    const host::Data *usual = settings.Find(host::kDescDefault);
    const bool counts = kind == ParameterKind::kReal || kind == ParameterKind::kBool || kind == ParameterKind::kTime;
    return usual != nullptr && counts ? std::optional(*usual) : std::nullopt;
}

std::vector<std::pair<std::int32_t, std::string>> ChoicesOf(const host::Container &settings) {
    std::vector<std::pair<std::int32_t, std::string>> choices;
    const host::Data *cycle = settings.Find(host::kDescCycle);
    const host::Container *entries = cycle != nullptr ? cycle->GetContainer() : nullptr;
    if (entries == nullptr) return choices;
    for (std::int32_t i = 0; i < entries->Count(); ++i) {
        choices.emplace_back(entries->IdAt(i), std::string(Trimmed(entries->DataAt(i)->Text())));
    }
    return choices;
}

}  // namespace

std::vector<Parameter> DescribedParameters(const host::Tag &tag) {
    host::Description description;
    if (!host::BuildDescription(&tag, nullptr, 0, &description)) {
        throw Failure(kExitModule, "the module does not describe its tag's parameters");
    }
    std::vector<Parameter> parameters;
    for (const host::Description::Entry &entry : description.entries) {
        Parameter parameter;
        parameter.kind = KindOf(entry.id.level[0].dtype);
        if (entry.id.depth != 1 || parameter.kind == ParameterKind::kOther) continue;
        parameter.id = entry.id.level[0].id;
        parameter.label = Trimmed(entry.settings.Text(host::kDescName));
        parameter.unit = UnitOf(entry.settings.Whole(host::kDescUnit));
        parameter.minimum = Limit(entry.settings, host::kDescMin, parameter.kind);
        parameter.maximum = Limit(entry.settings, host::kDescMax, parameter.kind);
        parameter.slider_minimum = Limit(entry.settings, host::kDescMinSlider, parameter.kind);
        parameter.slider_maximum = Limit(entry.settings, host::kDescMaxSlider, parameter.kind);
        parameter.step = Limit(entry.settings, host::kDescStep, parameter.kind);
        parameter.usual = Usual(entry.settings, parameter.kind);
        parameter.choices = ChoicesOf(entry.settings);
        parameters.push_back(parameter);
    }
    return parameters;
}

}  // namespace tremolux
