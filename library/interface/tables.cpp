// What holds for every shot: version, errors, parameters, the panel, presets.
#include <limits>

#include "generated/module_version.h"
#include "library/interface/guard.h"
#include "library/runtime/parameter_sentences.h"
#include "library/runtime/runtime.h"

namespace tremolux {
namespace {

std::int32_t KindOf(ParameterKind kind) {
    switch (kind) {
        case ParameterKind::kReal:
            return TREMOLUX_NUMBER;
        case ParameterKind::kBool:
            return TREMOLUX_SWITCH;
        case ParameterKind::kTime:
            return TREMOLUX_TIME;
        case ParameterKind::kText:
            return TREMOLUX_TEXT;
        case ParameterKind::kChoice:
            return TREMOLUX_CHOICE;
        case ParameterKind::kLink:
            return TREMOLUX_LINK;
        default:
            return TREMOLUX_BUTTON;
    }
}

std::int32_t UnitOf(const Parameter &parameter) {
    if (parameter.kind == ParameterKind::kTime) return TREMOLUX_SECONDS;
    switch (parameter.unit) {
        case ParameterUnit::kPercent:
            return TREMOLUX_PERCENT;
        case ParameterUnit::kDegrees:
            return TREMOLUX_ANGLE;
        case ParameterUnit::kFrames:
            return TREMOLUX_FRAMES;
        default:
            return TREMOLUX_NO_UNIT;
    }
}

std::int32_t KindOf(PanelEntryKind kind) {
    switch (kind) {
        case PanelEntryKind::kGroup:
            return TREMOLUX_PANEL_GROUP;
        case PanelEntryKind::kSeparator:
            return TREMOLUX_PANEL_SEPARATOR;
        default:
            return TREMOLUX_PANEL_PARAMETER;
    }
}

double DefaultOf(const Parameter &parameter) {
    if (!parameter.usual) return 0;
    return parameter.kind == ParameterKind::kTime ? host::Seconds(parameter.usual->GetTime()) : parameter.usual->Real();
}

template <typename Entry>
const Entry &EntryAt(const std::vector<Entry> &table, std::size_t index) {
    if (index < table.size()) return table[index];
    RefuseInput("index", std::to_string(index), "less than " + std::to_string(table.size()));
}

// 0 when the module does not start.
template <typename Count>
std::size_t Counted(Count count) {
    std::size_t counted = 0;
    Guarded(&ThreadError(), [&] { counted = count(Runtime::Get()); });
    return counted;
}

}  // namespace
}  // namespace tremolux

using namespace tremolux;

const char *tremolux_version(void) { return TREMOLUX_VERSION_TEXT; }

const char *tremolux_last_error(const void *handle) {
    const std::shared_ptr<HandleTarget> target = FindHandle(handle);
    return target ? target->error.Text() : ThreadError().Text();
}

size_t tremolux_parameter_count(void) {
    return Counted([](const Runtime &runtime) { return runtime.Parameters().size(); });
}

tremolux_status tremolux_parameter_at(size_t index, tremolux_parameter *parameter) {
    return Guarded(&ThreadError(), [&] {
        RequireStruct(parameter, "parameter");
        constexpr double kInfinity = std::numeric_limits<double>::infinity();
        const Runtime &runtime = Runtime::Get();
        const Parameter &known = EntryAt(runtime.Parameters(), index);
        const PanelPlace &place = runtime.Places()[index];
        WriteStruct(parameter, {sizeof(*parameter),
                                known.id,
                                KindOf(known.kind),
                                UnitOf(known),
                                known.label.c_str(),
                                known.minimum.value_or(-kInfinity),
                                known.maximum.value_or(kInfinity),
                                DefaultOf(known),
                                place.group,
                                place.tab.c_str(),
                                place.section.c_str(),
                                ParameterSentence(known.id),
                                known.slider_minimum.value_or(-kInfinity),
                                known.slider_maximum.value_or(kInfinity),
                                known.step.value_or(0)});
    });
}

size_t tremolux_panel_count(void) {
    return Counted([](const Runtime &runtime) { return runtime.Panel().size(); });
}

tremolux_status tremolux_panel_at(size_t index, tremolux_panel_entry *entry) {
    return Guarded(&ThreadError(), [&] {
        RequireStruct(entry, "entry");
        const PanelEntry &known = EntryAt(Runtime::Get().Panel(), index);
        WriteStruct(entry, {sizeof(*entry), KindOf(known.kind), known.id, known.group, known.columns,
                            known.is_open ? 1 : 0, known.has_line ? 1 : 0, known.title.c_str()});
    });
}

size_t tremolux_preset_count(void) {
    return Counted([](const Runtime &runtime) { return runtime.Presets().size(); });
}

tremolux_status tremolux_preset_at(size_t index, tremolux_preset *preset) {
    return Guarded(&ThreadError(), [&] {
        RequireStruct(preset, "preset");
        const CatalogEntry &known = EntryAt(Runtime::Get().Presets(), index);
        const PresetAbout &about = Runtime::Get().AboutPresets()[index];
        WriteStruct(preset, {sizeof(*preset), known.category.c_str(), known.name.c_str(),
                             about.facts.about.c_str(), about.facts.frames_per_second, about.is_pair ? 1 : 0});
    });
}
