// What holds for every shot: version, errors, parameters, presets.
#include <limits>

#include "generated/module_version.h"
#include "library/interface/guard.h"
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

std::int32_t UnitOf(ParameterUnit unit) {
    switch (unit) {
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
    return target ? target->error.c_str() : ThreadError().c_str();
}

size_t tremolux_parameter_count(void) {
    return Counted([](const Runtime &runtime) { return runtime.Parameters().size(); });
}

tremolux_status tremolux_parameter_at(size_t index, tremolux_parameter *parameter) {
    return Guarded(&ThreadError(), [&] {
        RequireStruct(parameter, "parameter");
        constexpr double kInfinity = std::numeric_limits<double>::infinity();
        const Parameter &known = EntryAt(Runtime::Get().Parameters(), index);
        *parameter = {sizeof(*parameter),
                      known.id,
                      KindOf(known.kind),
                      UnitOf(known.unit),
                      known.label.c_str(),
                      known.minimum.value_or(-kInfinity),
                      known.maximum.value_or(kInfinity),
                      DefaultOf(known)};
    });
}

size_t tremolux_preset_count(void) {
    return Counted([](const Runtime &runtime) { return runtime.Presets().size(); });
}

tremolux_status tremolux_preset_at(size_t index, tremolux_preset *preset) {
    return Guarded(&ThreadError(), [&] {
        RequireStruct(preset, "preset");
        const CatalogEntry &known = EntryAt(Runtime::Get().Presets(), index);
        *preset = {sizeof(*preset), known.category.c_str(), known.name.c_str(), Runtime::Get().Sentences()[index].c_str()};
    });
}
