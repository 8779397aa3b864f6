// The shots of a batch.
#pragma once

#include <string>
#include <vector>

namespace tremolux {

struct Shot {
    std::string input, output, name;     // files; the name is the input's without folder and extension
    std::string preset, seed, settings;  // as the sheet says; empty: as for all
};

struct ShotPlaces {
    std::string shots;   // the folder that a sheet's shots lie in; empty: the sheet's
    std::string folder;  // of the outputs
    std::string kind;    // their extension, where a sheet names none
};

// Of a sheet (a table with the column shot), of a folder (every camera file that lies in it, by name), or of several
// camera files. Throws a Failure.
std::vector<Shot> ReadShots(const std::vector<std::string> &inputs, const ShotPlaces &places);

// "LABEL=VALUE; LABEL=VALUE", and presets of a mix likewise.
std::vector<std::string> SplitList(const std::string &text);

}  // namespace tremolux
