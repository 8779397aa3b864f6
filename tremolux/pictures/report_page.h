// A played motion as one page that needs nothing else.
#pragma once

#include <string>
#include <vector>

#include "library/measures/motion.h"
#include "library/moves/played_motion.h"
#include "library/parameters/shown_values.h"
#include "tremolux/words/judgement.h"

namespace tremolux {

struct ReportContents {
    std::string title;   // the input file's name
    std::string preset;  // empty: none
    struct Setting {
        std::string label, value, usual;
    };
    std::vector<Setting> settings;  // that differ from their defaults
    PlayedMotion motion;
    AddedMotion added;
    Judgement judgement;
    int picture_width;  // pixels
    struct Drawing {
        std::string light, dark;  // .svg
    } plots, spectra;
    std::string made_by;  // the command line and the version
    std::string film;     // .mp4
};

// HTML.
std::string ReportPage(const ReportContents &contents);

}  // namespace tremolux
