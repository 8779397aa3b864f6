// Lists of frames as users type them for jolts: those that hit are those that a second, plain reading of the text
// names.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <set>
#include <string>

#include "bench/scene.h"
#include "fuzz/require.h"
#include "host/value/time.h"

namespace {

constexpr std::int32_t kTriggerText = 6181, kIntensity = 6037, kInterval = 6038, kFalloff = 6140, kSmooth = 6170,
                       kJoltTarget = 10045;
constexpr std::int64_t kLastFrame = 14, kMostFrame = 9999999;
// So steep that a target is below 0 after the frame that fired it.
constexpr double kStrength = 0.5, kSteepFalloff = 100, kStep = 10;

// Texts of the letters that matter, and one that does not.
std::string TextOf(const std::uint8_t *data, std::size_t size) {
    constexpr char kLetters[] = "0123456789,+- \tx";
    std::string text;
    for (std::size_t i = 0; i < size; ++i) text += kLetters[data[i] % 16];
    return text;
}

// Blanks, a sign, digits, blanks; a zero only as "0"; none below 0 or beyond what anybody animates.
bool NamesFrame(const std::string &entry, std::int64_t *frame) {
    if (entry == "0") {
        *frame = 0;
        return true;
    }
    const std::size_t first = entry.find_first_not_of(" \t"), last = entry.find_last_not_of(" \t");
    if (first == std::string::npos) return false;
    std::string digits = entry.substr(first, last - first + 1);
    if (digits[0] == '-') return false;
    if (digits[0] == '+') digits.erase(0, 1);
    if (digits.empty() || digits.find_first_not_of("0123456789") != std::string::npos) return false;
    digits.erase(0, digits.find_first_not_of('0'));
    if (digits.empty() || digits.size() > 7) return false;
    *frame = std::stoll(digits);
    return *frame <= kMostFrame;
}

std::set<std::int64_t> FramesOf(const std::string &text) {
    std::set<std::int64_t> frames;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t comma = std::min(text.find(',', start), text.size());
        std::int64_t frame = 0;
        if (NamesFrame(text.substr(start, comma - start), &frame)) frames.insert(frame);
        start = comma + 1;
    }
    return frames;
}

// A shot without an interval, whose jolts are those of the list alone.
bench::Scene &Shot() {
    static bench::Scene scene;
    static const bool prepared = [] {
        host::Container &settings = scene.Tag().Data();
        settings.SetReal(kIntensity, kStrength);
        settings.SetReal(kFalloff, kSteepFalloff);
        settings.SetReal(kSmooth, 0);
        settings.Set(kInterval, host::Data(host::MakeTime(0, 30)));
        return true;
    }();
    static_cast<void>(prepared);
    return scene;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    bench::Scene &scene = Shot();
    const std::string text = TextOf(data, size);
    // The placeholder empties the list; what a file or a script stores next is read on the frame after.
    for (const std::string &stored : {std::string("Numbers seperated by commas"), text}) {
        scene.Evaluate(0);
        scene.Tag().Data().Set(kTriggerText, host::Data(stored));
    }
    const std::set<std::int64_t> frames = FramesOf(text);
    for (std::int64_t frame = 0; frame <= kLastFrame; ++frame) {
        scene.Evaluate(frame);
        const bool hit = std::fabs(scene.Tag().Data().Real(kJoltTarget) - (kStrength - kStep)) < 1e-9;
        fuzz::Require(hit == (frames.count(frame) > 0));
    }
    return 0;
}
