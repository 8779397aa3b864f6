#include "host/description/description.h"
#include "host/value/custom.h"

namespace host {

namespace {

constexpr std::int32_t kNoUnit = 0, kUnitReal = 1718773089, kUnitWhole = 1718382183;  // 'frea', 'flng'
enum class Animation { kUnsaid, kOff, kOn };
enum class Default { kNone, kWhole, kReal, kTime };

struct TypeSettings {
    std::int32_t data_type, gadget;
    Animation animation;
    Default value;
    std::int32_t unit;
};

constexpr TypeSettings kTypes[] = {
    {19, 19, Animation::kOn, Default::kReal, kUnitReal},                    // real
    {15, 15, Animation::kOn, Default::kWhole, kUnitWhole},                  // whole number
    {400006001, 400006001, Animation::kOn, Default::kWhole, kNoUnit},       // Bool
    {22, 22, Animation::kOn, Default::kTime, kNoUnit},                      // time
    {23, 23, Animation::kOn, Default::kNone, kNoUnit},                      // vector
    {3, 1000492, Animation::kOn, Default::kNone, kNoUnit},                  // colour
    {130, 130, Animation::kUnsaid, Default::kNone, kNoUnit},                // text
    {131, 131, Animation::kUnsaid, Default::kNone, kNoUnit},                // file name
    {133, 1009415, Animation::kUnsaid, Default::kNone, kNoUnit},            // link
    {8, 8, Animation::kOff, Default::kNone, kNoUnit},                       // button
    {11, 11, Animation::kOff, Default::kNone, kNoUnit},                     // separator
    {12, 12, Animation::kOff, Default::kNone, kNoUnit},                     // static text
    {13, 13, Animation::kOff, Default::kNone, kNoUnit},                     // popup
    {kDataSpline, 1009059, Animation::kUnsaid, Default::kNone, kNoUnit},    // spline
    {kDataPriority, 1009364, Animation::kUnsaid, Default::kNone, kNoUnit},  // priority
};
constexpr std::int32_t kGroupType = 1;

void Fill(const TypeSettings &type, Container *settings) {
    settings->Set(kDescCustomGui, Data(type.gadget));
    if (type.animation != Animation::kUnsaid)
        settings->Set(kDescAnimate, Data(type.animation == Animation::kOn ? 1 : 0));
    if (type.value == Default::kReal) settings->Set(kDescDefault, Data(0.0));
    if (type.value == Default::kWhole) settings->Set(kDescDefault, Data(0));
    if (type.value == Default::kTime) settings->Set(kDescDefault, Data(Time{0, 1}));
    if (type.unit == kUnitReal) settings->Set(kDescStep, Data(1.0));
    if (type.unit == kUnitWhole) settings->Set(kDescStep, Data(1));
    if (type.unit != kNoUnit) settings->Set(kDescUnit, Data(type.unit));
}

}  // namespace

Container DefaultSettings(std::int32_t data_type) {
    Container settings(data_type);
    if (data_type == kGroupType) {
        settings.Set(kDescColumns, Data(1));
        settings.Set(kDescDefault, Data(0));
    }
    for (const TypeSettings &type : kTypes)
        if (type.data_type == data_type) Fill(type, &settings);
    return settings;
}

}  // namespace host
