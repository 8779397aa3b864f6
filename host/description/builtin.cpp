#include "host/description/builtin.h"

#include <cmath>

#include "host/scene/document.h"
#include "host/scene/tag.h"
#include "host/value/custom.h"

namespace host {

namespace {

enum DataKind : std::int32_t {
    kGroup = 1,
    kColor = 3,
    kWhole = 15,
    kReal = 19,
    kTime = 22,
    kVector = 23,
    kString = 130,
    kLink = 133,
    kBool = 400006001
};

constexpr std::int32_t kMeter = 1718445428, kDegree = 1717856114, kRealUnit = 1718773089;
constexpr double kNoLimit = HUGE_VAL;

constexpr std::int32_t kGroupBasic = 800, kGroupCoordinates = 806, kGroupObject = 802, kGroupTag = 803,
                       kGroupDocument = 807;
constexpr std::int32_t kParamLayer = 898, kParamEditorVisibility = 901, kParamRenderVisibility = 902,
                       kParamGenerator = 906;

struct Parameter {
    std::int32_t id;
    DataKind kind;
    const char *name;
    std::int32_t group;
    double declared_default = 0;  // of every component
    std::int32_t unit = 0;        // 0: the kind's own
    double least = -kNoLimit, most = kNoLimit;
    const char *const *choices = nullptr;  // of a cycle: texts of 0, 1, ...; ends with a null
};

constexpr const char *kVisibility[] = {"On", "Off", "Default", nullptr};
constexpr const char *kUseColor[] = {"Off", "Automatic", "Always", "Layer", nullptr};
constexpr const char *kOrderNames[] = {"YXZ (Global)", "YZX (Global)", "ZYX (Global)", "ZXY (Global)",
                                       "XZY (Global)", "XYZ (Global)", "HPB",          nullptr};
constexpr const char *kProjections[] = {"Perspective", "Parallel",  "Left",      "Right",    "Front",
                                        "Back",        "Top",       "Bottom",    "Military", "Frog",
                                        "Bird",        "Gentleman", "Isometric", "Dimetric", nullptr};

const Parameter kObject[] = {
    {kGroupBasic, kGroup, "Basic", 0},
    {kParamName, kString, "Name", kGroupBasic},
    {kParamLayer, kLink, "Layer", kGroupBasic},
    {kParamEditorVisibility, kWhole, "Visible in Editor", kGroupBasic, 2, 0, 0, 2, kVisibility},
    {kParamRenderVisibility, kWhole, "Visible in Renderer", kGroupBasic, 2, 0, 0, 2, kVisibility},
    {kParamUseColor, kWhole, "Use Color", kGroupBasic, 0, 0, 0, 3, kUseColor},
    {kParamColor, kColor, "Display Color", kGroupBasic, 0.8},
    {kParamGenerator, kBool, "Enabled", kGroupBasic, 1},
    {kGroupCoordinates, kGroup, "Coordinates", 0},
    {kParamRelPosition, kVector, "Position", kGroupCoordinates, 0, kMeter},
    {kParamRelScale, kVector, "Scale", kGroupCoordinates, 1, kRealUnit},
    {kParamRelRotation, kVector, "Rotation", kGroupCoordinates, 0, kDegree},
    {kParamRotationOrder, kWhole, "Order", kGroupCoordinates, 6, 0, 0, 6, kOrderNames},
    {kParamFrozenPosition, kVector, "Freeze Position", kGroupCoordinates, 0, kMeter},
    {kParamFrozenScale, kVector, "Freeze Scale", kGroupCoordinates, 1, kRealUnit},
    {kParamFrozenRotation, kVector, "Freeze Rotation", kGroupCoordinates, 0, kDegree},
    {kGroupObject, kGroup, "Object", 0},
};

// The field of view of the default lens: 2 atan(36 / (2 * 36)).
constexpr double kDefaultFov = 0.92729521800161219;

const Parameter kCamera[] = {
    {kCameraProjection, kWhole, "Projection", kGroupObject, 0, 0, 0, 13, kProjections},
    {kCameraFocalLength, kReal, "Focal Length", kGroupObject, 36, kRealUnit, 1, 10000},
    {kCameraAperture, kReal, "Sensor Size", kGroupObject, 36, kRealUnit, 1, 2000},
    {kCameraFov, kReal, "Field of View", kGroupObject, kDefaultFov, kDegree},
    {kCameraZoom, kReal, "Zoom", kGroupObject, 1, kRealUnit},
    {kCameraUseTarget, kBool, "Use Target Object", kGroupObject, 0},
    {kCameraFocusDistance, kReal, "Focus Distance", kGroupObject, 2000, kMeter},
    {kCameraFocusObject, kLink, "Focus Object", kGroupObject},
};

const Parameter kDocument[] = {
    {kGroupDocument, kGroup, "Project", 0},
    {kDocumentTime, kTime, "Project Time", kGroupDocument},
    {kDocumentFps, kWhole, "FPS", kGroupDocument, 30, 0, 1, 2500},
    {kDocumentMinTime, kTime, "Minimum Time", kGroupDocument},
    {kDocumentMaxTime, kTime, "Maximum Time", kGroupDocument, 3},
    {kDocumentLoopMinTime, kTime, "Preview Min Time", kGroupDocument},
    {kDocumentLoopMaxTime, kTime, "Preview Max Time", kGroupDocument, 3},
};

const Parameter kTag[] = {
    {kGroupBasic, kGroup, "Basic", 0},
    {kParamName, kString, "Name", kGroupBasic},
    {kParamLayer, kLink, "Layer", kGroupBasic},
    {kParamEnabled, kBool, "Enabled", kGroupBasic, 1},
    {kParamPriority, static_cast<DataKind>(kDataPriority), "Priority", kGroupBasic},
};

// The last three are polygons, splines and lights.
constexpr std::int32_t kObjectTypes[] = {kTypeObject, kTypeCamera, kTypeNull, 5100, 5101, 5102};

Data ValueOf(const Parameter &parameter, double number) {
    switch (parameter.kind) {
        case kVector:
        case kColor:
            return Data(Vector{number, number, number});
        case kTime:
            return Data(MakeTime(number, 1));
        case kReal:
            return Data(number);
        default:
            return Data(static_cast<std::int32_t>(number));
    }
}

bool HasDefault(DataKind kind) {
    return kind == kVector || kind == kColor || kind == kTime || kind == kReal || kind == kWhole || kind == kBool;
}

Container SettingsOf(const Parameter &parameter) {
    Container settings = DefaultSettings(parameter.kind);
    settings.Set(kDescName, Data(parameter.name));
    if (parameter.kind == kGroup) return settings;
    if (HasDefault(parameter.kind)) settings.Set(kDescDefault, ValueOf(parameter, parameter.declared_default));
    if (parameter.unit != 0) settings.Set(kDescUnit, Data(parameter.unit));
    if (parameter.least > -kNoLimit) settings.Set(kDescMin, ValueOf(parameter, parameter.least));
    if (parameter.most < kNoLimit) settings.Set(kDescMax, ValueOf(parameter, parameter.most));
    if (parameter.choices == nullptr) return settings;
    Container choices;
    for (std::int32_t i = 0; parameter.choices[i] != nullptr; ++i) choices.Set(i, Data(parameter.choices[i]));
    settings.Set(kDescCycle, Data(choices));
    settings.Set(kDescCustomGui, Data(std::int32_t{200000180}));
    return settings;
}

TableDescID IdOf(std::int32_t id, std::int32_t kind) {
    TableDescID made = MakeId(id);
    made.level[0].dtype = kind;
    return made;
}

template <std::size_t kCount>
void Add(const Parameter (&parameters)[kCount], std::int32_t owner, std::deque<Description::Entry> *entries) {
    for (const Parameter &parameter : parameters) {
        const TableDescID group = parameter.group == 0 ? MakeId(owner) : IdOf(parameter.group, kGroup);
        entries->push_back({IdOf(parameter.id, parameter.kind), group, SettingsOf(parameter)});
    }
}

}  // namespace

std::deque<Description::Entry> BuiltInEntries(std::int32_t type) {
    std::deque<Description::Entry> entries;
    if (type == kTypeDocument) Add(kDocument, type, &entries);
    for (std::int32_t known : kObjectTypes)
        if (known == type) Add(kObject, type, &entries);
    if (type == kTypeCamera) Add(kCamera, type, &entries);
    return entries;
}

std::deque<Description::Entry> TagEntries(std::int32_t type, const std::string &name) {
    std::deque<Description::Entry> entries;
    Add(kTag, type, &entries);
    const Parameter own_tab[] = {{kGroupTag, kGroup, name.c_str(), 0}};
    Add(own_tab, type, &entries);
    entries.back().settings.Set(kDescDefault, Data(1));  // the tab that opens first
    return entries;
}

}  // namespace host
