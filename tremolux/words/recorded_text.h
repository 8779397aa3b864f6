// What is in a recording of a rate sensor, for a person or for a program to read.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "library/gyro/gyro_move.h"

namespace tremolux {

// Titles and texts, a line each.
std::vector<std::pair<std::string, std::string>> RecordedFacts(const GyroRecording &recording);
nlohmann::ordered_json RecordedJson(const GyroRecording &recording);

// "gyro, accelerometer, gravity or orientations".
std::string KnownSamples();
bool AreKnownSamples(const std::string &kind);
// A table of a known kind on the picture's axes, every number in full: t,x,y,z or t,w,x,y,z.
std::string SamplesText(const GyroRecording &recording, const std::string &kind);

}  // namespace tremolux
