#include "presets/leftout.h"

#include <set>

#include "tag/ids.h"

namespace {

// What was found, and what was expected.
String ReasonOf(PresetFault fault) {
    switch (fault) {
        case PresetFault::kNone:
            break;
        case PresetFault::kTooLarge:
            return String("found more than ") + LongToString((LONG)kLargestPresetFile) + " bytes, expected a preset";
        case PresetFault::kNotOpened:
            return "found a file that does not open as a preset, expected one that was saved as such and may be read";
        case PresetFault::kDamaged:
            return "found it damaged, expected a preset as it was saved";
        case PresetFault::kHidden:
            return "found it hidden, expected a file that is shown";
        case PresetFault::kBehindFolder:
            return "found it behind a folder, which ends a category for I'm Feeling Lucky, expected it before";
        case PresetFault::kBehindLongestList:
            return String("found ") + LongToString(kLongestList) + " presets before it, which is the longest list, " +
                   "expected it and those behind it elsewhere";
    }
    return String();
}

// Used by the main thread alone.
std::set<String> *told = NULL;

}  // namespace

void TellLeftOut(const Filename &file, PresetFault fault) {
    if (!GeIsMainThread()) return;
    const String line = String(kLeftOutWords) + file.GetString() + ": " + ReasonOf(fault);
    if (!told) told = new std::set<String>;
    if (told->insert(line).second) GePrint(line);
}

void ForgetLeftOut() {
    delete told;
    told = NULL;
}
