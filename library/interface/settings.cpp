// The settings of a shot.
#include <cmath>
#include <map>
#include <optional>

#include "generated/module_ids.h"
#include "host/scene/parameters.h"
#include "host/ui/attribute_manager.h"
#include "host/value/descid.h"
#include "host/value/time.h"
#include "library/formats/format.h"
#include "library/formats/numbers.h"
#include "library/interface/shot.h"
#include "library/parameters/lookup.h"
#include "library/parameters/settings.h"
#include "library/shots/keys.h"

namespace tremolux {
namespace {

using Choices = std::vector<std::pair<std::int32_t, std::string>>;

const Parameter &NumberOf(std::int32_t id) {
    const Parameter &parameter = ParameterOf(id);
    switch (parameter.kind) {
        case ParameterKind::kReal:
        case ParameterKind::kBool:
        case ParameterKind::kTime:
        case ParameterKind::kChoice:
            return parameter;
        default:
            RefuseKind(parameter, "one that holds a number");
    }
}

// As the shot's own tag has it now: its lists depend on what was chosen before.
Choices ChoicesOf(const ShotTarget &shot, std::int32_t id) {
    const Parameter &known = ParameterOf(id);
    if (known.kind != ParameterKind::kChoice) RefuseKind(known, "a choice");
    for (const Parameter &parameter : DescribedParameters(*shot.Tag()))
        if (parameter.id == id) return parameter.choices;
    return {};
}

// Throws a Refusal for a number that the setting cannot have.
host::Data StoredValue(const Parameter &parameter, double value, const ShotTarget &shot) {
    const auto refuse = [&](const std::string &expected) {
        RefuseInput("'" + parameter.label + "' (" + std::to_string(parameter.id) + ")", FormatNumber(value), expected);
    };
    if (!(std::fabs(value) <= kMaxNumber)) refuse("a number up to 1e12");
    if (parameter.minimum && value < *parameter.minimum) refuse("at least " + FormatNumber(*parameter.minimum));
    if (parameter.maximum && value > *parameter.maximum) refuse("at most " + FormatNumber(*parameter.maximum));
    const int fps = shot.move.rate.Whole();
    switch (parameter.kind) {
        case ParameterKind::kReal:
            return {value};
        case ParameterKind::kTime:
            // Times are whole frames, as on the time line.
            if (std::fabs(value * fps) > kMaxFrameNumber)
                refuse("a time of at most " + FormatNumber(kMaxFrameNumber) + " frames");
            return {host::MakeTime(std::round(value * fps), fps)};
        case ParameterKind::kBool:
            if (value != 0 && value != 1) refuse("0 or 1");
            return {static_cast<std::int32_t>(value)};
        default:
            for (const auto &[choice, label] : ChoicesOf(shot, parameter.id))
                if (choice == value) return {choice};
            refuse("the number of one of its entries");
            return {};
    }
}

// The number that a track's key holds.
double KeyedValue(const host::Data &stored) {
    return stored.type == host::kDataTime ? host::Seconds(stored.GetTime()) : stored.Real();
}

// How every tag describes a control, but for what its lists offer; nothing: it does not. Kept, because to build a description
// takes a hundred times as long as to ask whether a control is enabled. For the one whose turn it is.
const std::optional<host::Container> &ControlSettings(const TableDescID &id, const host::Tag &tag) {
    static auto &known = *new std::map<std::int32_t, std::optional<host::Container>>;
    const auto [place, is_new] = known.try_emplace(host::LevelId(id, 0));
    host::DescribedParameter described;
    if (is_new && host::FindDescribed(&tag, id, &described)) place->second = described.settings;
    return place->second;
}

// Another folder of presets would be every shot's.
void RefuseFolder(const std::string &setting) {
    const std::string name = setting.substr(0, setting.find('='));
    const Parameter &parameter = FindParameter(Runtime::Get().Parameters(), name);
    if (parameter.id == ids::kUserPresetFolder) RefuseKind(parameter, "one of the shot");
}

}  // namespace
}  // namespace tremolux

using namespace tremolux;

tremolux_status tremolux_shot_set(tremolux_shot shot, int32_t parameter, double value) {
    return InOneStep(shot, host::kUndoChangeSmall, [&](ShotTarget &target) {
        const host::Data data = StoredValue(NumberOf(parameter), value, target);
        if (!target.Tag()->SetParameter(host::MakeId(parameter), data, host::kSetUserInteraction))
            throw Refusal(TREMOLUX_MODULE, "the module refuses a value of parameter " + std::to_string(parameter));
    });
}

tremolux_status tremolux_shot_get(tremolux_shot shot, int32_t parameter, double *value) {
    return ByHand(shot, [&](ShotTarget &target) {
        RequirePointer(value, "value");
        NumberOf(parameter);
        host::Data data;
        if (!target.Tag()->GetParameter(host::MakeId(parameter), &data))
            throw Refusal(TREMOLUX_MODULE, "the module has no value of parameter " + std::to_string(parameter));
        *value = KeyedValue(data);
    });
}

tremolux_status tremolux_shot_set_text(tremolux_shot shot, const char *setting) {
    return InOneStep(shot, host::kUndoChangeSmall, [&](ShotTarget &target) {
        RequirePointer(setting, "setting");
        if (std::string_view(setting).find('=') != std::string_view::npos) RefuseFolder(setting);
        ApplySettings({setting}, target.move.rate.Whole(), target.Tag());
    });
}

tremolux_status tremolux_shot_is_enabled(tremolux_shot shot, int32_t parameter, int32_t *enabled) {
    return ByHand(shot, [&](ShotTarget &target) {
        RequirePointer(enabled, "enabled");
        const TableDescID id = host::MakeId(ParameterOf(parameter).id);
        const std::optional<host::Container> &settings = ControlSettings(id, *target.Tag());
        *enabled = settings && host::IsControlEnabled(target.Tag(), id, *settings) ? 1 : 0;
    });
}

tremolux_status tremolux_shot_choice_count(tremolux_shot shot, int32_t parameter, size_t *count) {
    return ByHand(shot, [&](ShotTarget &target) {
        RequirePointer(count, "count");
        *count = ChoicesOf(target, parameter).size();
    });
}

tremolux_status tremolux_shot_choice_at(tremolux_shot shot, int32_t parameter, size_t index, tremolux_choice *choice) {
    return ByHand(shot, [&](ShotTarget &target) {
        RequireStruct(choice, "choice");
        Choices choices = ChoicesOf(target, parameter);
        if (index >= choices.size())
            RefuseInput("index", std::to_string(index), "less than " + std::to_string(choices.size()));
        target.label = std::move(choices[index].second);
        WriteStruct(choice, {sizeof(*choice), choices[index].first, target.label.c_str()});
    });
}

tremolux_status tremolux_shot_key(tremolux_shot shot, int32_t parameter, int64_t frame, double value,
                                  int32_t interpolation) {
    return InOneStep(shot, host::kUndoChange, [&](ShotTarget &target) {
        const Parameter &known = NumberOf(parameter);
        if (known.kind == ParameterKind::kChoice) RefuseKind(known, "a number, a switch or a time");
        const double stored = KeyedValue(StoredValue(known, value, target));
        PlaceOf(target, frame);
        if (interpolation < TREMOLUX_SMOOTH || interpolation > TREMOLUX_HOLD)
            RefuseInput("interpolation", std::to_string(interpolation), "1 to 3");
        const host::Time time = host::MakeTime(static_cast<double>(frame), target.move.rate.Whole());
        KeyNumber(target.Tag(), host::MakeId(parameter), time, stored, interpolation);
        FlattenSmoothKeys(*target.Tag()->FindTrack(host::MakeId(parameter)), target.move.rate.Whole());
    });
}
