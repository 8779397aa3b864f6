#include "library/formats/usd/samples.h"

#include <algorithm>
#include <cmath>

namespace tremolux {
namespace {

constexpr std::string_view kHeldTypes[] = {"bool", "uchar", "int", "uint", "int64", "uint64", "token", "string", "asset"};
constexpr double kNextToNothing = 1e-12;
constexpr double kNearlyOne = 1 - 1e-10;  // cosine of an angle whose sine is not to be divided by

bool IsHeld(const std::string &type) {
    return std::find(std::begin(kHeldTypes), std::end(kHeldTypes), type) != std::end(kHeldTypes);
}

bool IsQuaternion(const std::string &type) { return type.compare(0, 4, "quat") == 0; }

// Of length 1; no turn for one without length.
void Normalise(UsdNumbers *quaternion) {
    UsdNumbers &q = *quaternion;
    const double length = std::sqrt(q[0] * q[0] + q[1] * q[1] + q[2] * q[2] + q[3] * q[3]);
    if (length < kNextToNothing) {
        q = {1, 0, 0, 0};
        return;
    }
    for (std::size_t i = 0; i < 4; ++i) q[i] /= length;
}

// The short way.
UsdNumbers OnTheSphere(UsdNumbers from, UsdNumbers to, double share) {
    Normalise(&from);
    Normalise(&to);
    double cosine = from[0] * to[0] + from[1] * to[1] + from[2] * to[2] + from[3] * to[3];
    const double sign = cosine < 0 ? -1 : 1;
    cosine *= sign;
    double of_from = 1 - share, of_to = share;
    if (cosine < kNearlyOne) {
        const double angle = std::acos(cosine);
        of_from = std::sin((1 - share) * angle) / std::sin(angle);
        of_to = std::sin(share * angle) / std::sin(angle);
    }
    UsdNumbers mixed{};
    for (std::size_t i = 0; i < 4; ++i) mixed[i] = of_from * from[i] + sign * of_to * to[i];
    return mixed;
}

UsdNumbers Straight(const UsdNumbers &from, const UsdNumbers &to, double share) {
    UsdNumbers mixed{};
    for (std::size_t i = 0; i < kMaxUsdNumbers; ++i) mixed[i] = from[i] + (to[i] - from[i]) * share;
    return mixed;
}

// The last sample that is not after the time, or the first.
std::vector<UsdSample>::const_iterator SampleAt(const UsdAttribute &attribute, double time_code) {
    const auto after =
        std::upper_bound(attribute.samples.begin(), attribute.samples.end(), time_code,
                         [](double time, const UsdSample &sample) { return time < sample.time_code; });
    return after == attribute.samples.begin() ? after : after - 1;
}

UsdNumbers Checked(const SourceText &source, const UsdValue &value, const std::string &name, std::size_t count) {
    if (value.numbers.size() != count) {
        source.RefuseAt(value.place, value.numbers.empty() ? "no number" : std::to_string(value.numbers.size()) + " numbers",
                        std::to_string(count) + (count == 1 ? " number for " : " numbers for ") + name);
    }
    UsdNumbers numbers{};
    std::copy(value.numbers.begin(), value.numbers.end(), numbers.begin());
    return numbers;
}

}  // namespace

std::optional<UsdNumbers> NumbersAt(const SourceText &source, const UsdPrim &prim, const std::string &name,
                                    double time_code, std::size_t count) {
    const auto found = prim.attributes.find(name);
    if (found == prim.attributes.end()) return std::nullopt;
    const UsdAttribute &attribute = found->second;
    if (attribute.samples.empty()) {
        if (attribute.value.empty() || attribute.value[0].is_none) return std::nullopt;
        return Checked(source, attribute.value[0], name, count);
    }
    const auto sample = SampleAt(attribute, time_code);
    if (sample->value.is_none) return std::nullopt;
    const UsdNumbers numbers = Checked(source, sample->value, name, count);
    const auto next = sample + 1;
    const bool holds = time_code <= sample->time_code || next == attribute.samples.end() || next->value.is_none ||
                       IsHeld(attribute.type);
    if (holds) return numbers;
    const UsdNumbers goal = Checked(source, next->value, name, count);
    const double share = (time_code - sample->time_code) / (next->time_code - sample->time_code);
    return IsQuaternion(attribute.type) ? OnTheSphere(numbers, goal, share) : Straight(numbers, goal, share);
}

std::optional<std::string> TextAt(const UsdPrim &prim, const std::string &name, double time_code) {
    const auto found = prim.attributes.find(name);
    if (found == prim.attributes.end() || !found->second.SaysSomething()) return std::nullopt;
    const UsdAttribute &attribute = found->second;
    const UsdValue &value = attribute.samples.empty() ? attribute.value[0] : SampleAt(attribute, time_code)->value;
    if (value.texts.empty()) return std::nullopt;
    return value.texts[0];
}

}  // namespace tremolux
