// Where sounds begin.
#pragma once

#include <vector>

#include "library/events/wave.h"

namespace tremolux {

enum class SoundBand { kAll, kLow, kMid, kHigh };  // all, up to 200 Hz, 200 to 2000 Hz, above

struct OnsetSettings {
    double sensitivity = 50;  // 0 to 100: the more, the fainter onsets are found
    SoundBand band = SoundBand::kAll;
};

// How much of new there is in the sound, over time.
struct OnsetCurve {
    double step = 0;             // seconds from one number to the next; the first is at 0
    std::vector<float> novelty;  // as a multiple of the threshold: onsets are peaks above 1
};

struct Onset {
    double seconds;
    double strength;  // 0 to 1, of the strongest
};

// By spectral flux: the rise of the logarithms of magnitudes from one short spectrum to the next, summed over the band (Dixon,
// Onset Detection Revisited, DAFx 2006), of windows of 6 and of 46 milliseconds, so that clicks and soft tones are both seen. A
// peak counts that stands above the median around it by a multiple of the curve's usual spread and by a share of the strong
// peaks, both of which the sensitivity says; within 60 milliseconds the strongest alone.
std::vector<Onset> FindOnsets(const Sound &sound, const OnsetSettings &settings, OnsetCurve *curve);

}  // namespace tremolux
