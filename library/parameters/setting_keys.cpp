#include "library/parameters/setting_keys.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "host/animation/track.h"
#include "host/scene/parameters.h"
#include "host/ui/field_text.h"
#include "host/value/descid.h"
#include "library/failure.h"
#include "library/formats/numbers.h"
#include "library/formats/source_text.h"
#include "library/moves/camera_move.h"
#include "library/parameters/lookup.h"
#include "library/parameters/nearest.h"
#include "library/parameters/value.h"
#include "library/shots/keys.h"

namespace tremolux {
namespace {

struct Easing {
    const char *name;
    std::int32_t interpolation;
};
constexpr Easing kEasings[] = {{"linear", host::kInterpolationLinear},
                               {"smooth", host::kInterpolationSpline},
                               {"hold", host::kInterpolationStep}};

struct SettingKey {
    std::int32_t id;
    double frame, value;
    std::int32_t interpolation;
};

[[noreturn]] void RefuseKey(std::string_view found, const std::string &expected) {
    throw Failure(kExitInput, "--key: found " + Quoted(found) + ", expected " + expected);
}

// Takes the easing off the end of the text; straight where there is none.
std::int32_t TakeEasing(std::string_view *text) {
    for (const Easing &easing : kEasings) {
        const std::string_view name = easing.name;
        if (text->size() <= name.size() || Folded(text->substr(text->size() - name.size())) != name) continue;
        if ((*text)[text->size() - name.size() - 1] != ' ') continue;
        *text = Trimmed(text->substr(0, text->size() - name.size()));
        return easing.interpolation;
    }
    return host::kInterpolationLinear;
}

double FrameOf(std::string_view text, int frames_per_second) {
    const std::optional<double> frame = host::ParseField(Trimmed(text), host::kUnitFrames, frames_per_second);
    if (frame && std::abs(*frame) <= static_cast<double>(kMaxFrameNumber)) return *frame;
    RefuseKey(text, "a frame (100), seconds (4s), or seconds and frames (4:12)");
}

// As a track holds it.
double KeyValue(const Parameter &parameter, std::string_view text, int frames_per_second) {
    const host::Data value = ParseValue(parameter, text, frames_per_second);
    return parameter.kind == ParameterKind::kReal ? value.Real() : static_cast<double>(value.Whole());
}

void ReadKeys(std::string_view text, const std::vector<Parameter> &parameters, int frames_per_second,
              std::vector<SettingKey> *keys) {
    const std::size_t at = text.find('@');
    if (at == std::string_view::npos) RefuseKey(text, "LABEL@FRAME=VALUE,FRAME=VALUE");
    const Parameter &parameter = FindParameter(parameters, text.substr(0, at), "--key");
    const bool moves = parameter.kind == ParameterKind::kReal || parameter.kind == ParameterKind::kBool ||
                       parameter.kind == ParameterKind::kChoice;
    if (!moves) RefuseKey(parameter.label, "a parameter that holds a number or is switched");
    for (const Field &field : CommaFields(text.substr(at + 1))) {
        const std::size_t equals = field.text.find('=');
        if (equals == std::string_view::npos) RefuseKey(field.text, "FRAME=VALUE");
        std::string_view value = Trimmed(field.text.substr(equals + 1));
        const std::int32_t interpolation = TakeEasing(&value);
        keys->push_back({parameter.id, FrameOf(field.text.substr(0, equals), frames_per_second),
                         KeyValue(parameter, value, frames_per_second), interpolation});
    }
}

}  // namespace

void ApplyKeys(const std::vector<std::string> &keys, int frames_per_second, host::Tag *tag) {
    if (keys.empty()) return;
    const std::vector<Parameter> parameters = DescribedParameters(*tag);
    std::vector<SettingKey> read;
    for (const std::string &text : keys) ReadKeys(text, parameters, frames_per_second, &read);
    for (const SettingKey &key : read)
        KeyNumber(tag, host::MakeId(key.id), host::MakeTime(key.frame, frames_per_second), key.value, key.interpolation);
    for (const host::Track *track : tag->Tracks()) FlattenSmoothKeys(*track, frames_per_second);
}

}  // namespace tremolux
