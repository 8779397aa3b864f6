// Sound as numbers.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tremolux {

struct Sound {
    double rate = 48000;         // samples a second
    std::vector<float> samples;  // all channels' mean, -1 to 1
};

// A RIFF/WAVE file: whole numbers of 8, 16, 24 or 32 bits, or floating point of 32 or 64, 1 to 64 channels. Throws a Failure.
Sound ReadWave(const std::string &file, std::string_view bytes);

}  // namespace tremolux
