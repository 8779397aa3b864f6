#include "library/parameters/settings.h"

#include "host/scene/parameters.h"
#include "host/value/descid.h"
#include "library/failure.h"
#include "library/formats/source_text.h"
#include "library/parameters/lookup.h"
#include "library/parameters/value.h"

namespace tremolux {

void ApplySettings(const std::vector<std::string> &settings, int frames_per_second, host::Tag *tag) {
    const std::vector<Parameter> parameters = DescribedParameters(*tag);
    std::vector<std::pair<std::int32_t, host::Data>> values;
    for (const std::string &setting : settings) {
        const std::size_t equals = setting.find('=');
        if (equals == std::string::npos) {
            throw Failure(kExitInput, "--set: found " + Quoted(setting) + ", expected LABEL=VALUE or ID=VALUE");
        }
        const Parameter &parameter = FindParameter(parameters, setting.substr(0, equals));
        values.emplace_back(parameter.id, ParseValue(parameter, setting.substr(equals + 1), frames_per_second));
    }
    for (const auto &[id, value] : values) {
        if (tag->SetParameter(host::MakeId(id), value, host::kSetUserInteraction)) continue;
        throw Failure(kExitModule, "the module refuses a value of parameter " + std::to_string(id));
    }
}

}  // namespace tremolux
