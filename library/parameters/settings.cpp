#include "library/parameters/settings.h"

#include <algorithm>

#include "host/scene/parameters.h"
#include "host/value/descid.h"
#include "library/failure.h"
#include "library/formats/source_text.h"
#include "library/parameters/lookup.h"
#include "library/parameters/value.h"

namespace tremolux {

namespace {

struct ReadSetting {
    const Parameter *parameter;
    host::Data value;
};

std::vector<ReadSetting> ReadSettings(const std::vector<std::string> &settings, int frames_per_second,
                                      const std::vector<Parameter> &parameters) {
    std::vector<ReadSetting> values;
    for (const std::string &setting : settings) {
        const std::size_t equals = setting.find('=');
        if (equals == std::string::npos) {
            throw Failure(kExitInput, "--set: found " + Quoted(setting) + ", expected LABEL=VALUE or ID=VALUE");
        }
        const Parameter &parameter = FindParameter(parameters, setting.substr(0, equals));
        values.push_back({&parameter, ParseValue(parameter, setting.substr(equals + 1), frames_per_second)});
    }
    return values;
}

}  // namespace

void ApplySettings(const std::vector<std::string> &settings, int frames_per_second, host::Tag *tag) {
    const std::vector<Parameter> parameters = DescribedParameters(*tag);
    for (const auto &[parameter, value] : ReadSettings(settings, frames_per_second, parameters)) {
        if (tag->SetParameter(host::MakeId(parameter->id), value, host::kSetUserInteraction)) continue;
        throw Failure(kExitModule, "the module refuses a value of parameter " + std::to_string(parameter->id));
    }
}

std::vector<std::string> SliderNotes(const std::vector<std::string> &settings, int frames_per_second,
                                     const host::Tag &tag) {
    const std::vector<Parameter> parameters = DescribedParameters(tag);
    const std::vector<ReadSetting> values = ReadSettings(settings, frames_per_second, parameters);
    std::vector<std::string> notes;
    for (auto value = values.begin(); value != values.end(); ++value) {
        const bool is_last = std::none_of(value + 1, values.end(), [&](const ReadSetting &later) {
            return later.parameter == value->parameter;
        });
        const std::string note = is_last ? SliderNote(*value->parameter, value->value) : "";
        if (!note.empty()) notes.push_back(note);
    }
    return notes;
}

}  // namespace tremolux
