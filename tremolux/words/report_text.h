// What a shake did, for a person to read.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "library/moves/camera_move.h"
#include "tremolux/words/judgement.h"

namespace tremolux {

struct ShakeReport {
    std::string input_file;
    std::vector<std::filesystem::path> output_files;
    std::string preset;                 // that the settings come on top of; empty: none
    double preset_rate;                 // frames a second that its settings were carried from; 0: they are as they are
    std::vector<std::string> settings;  // as given
    FrameRate rate;
    double microseconds_per_frame;  // of evaluation
    Judgement judgement = {};
};

// Several lines; both moves have the same frames.
std::string ReportText(const ShakeReport &report, const CameraMove &input, const CameraMove &output);
// The same in a sentence: what was shaken, and how far it strayed.
std::string ReportSentence(const ShakeReport &report, const CameraMove &input, const CameraMove &output);
// The same as one JSON object.
std::string ReportJson(const ShakeReport &report, const CameraMove &input, const CameraMove &output);

}  // namespace tremolux
