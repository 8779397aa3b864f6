#include "presets/filenames.h"

#include "presets/browsing.h"
#include "presets/folders.h"

namespace {

// Bytes; leaves room for what is put before and behind it while the file is written.
constexpr LONG kLongestName = 150;

const CHAR *const kReservedCharacters = "<>:\"/\\|?*";
const CHAR *const kDevices[] = {"CON",  "PRN",  "AUX",  "NUL",  "COM1", "COM2", "COM3", "COM4", "COM5", "COM6", "COM7",
                                "COM8", "COM9", "LPT1", "LPT2", "LPT3", "LPT4", "LPT5", "LPT6", "LPT7", "LPT8", "LPT9"};

Bool IsReserved(UWORD unit) {
    for (const CHAR *c = kReservedCharacters; *c; c++)
        if (unit == (UWORD)*c) return TRUE;
    return unit < 32 || (unit >= 127 && unit < 160);
}

Bool IsBlankOrDot(UWORD unit) { return unit == ' ' || unit == '.' || unit == 0xA0; }

// A device keeps its meaning with an ending behind it.
LONG DeviceLength(const String &name) {
    LONG dot;
    const String stem = (name.FindFirst('.', &dot) ? name.Left(dot) : name).ToUpper();
    for (const CHAR *device : kDevices)
        if (stem == device) return stem.GetLength();
    return 0;
}

}  // namespace

String FileNameOf(const String &typed) {
    String name = typed;
    const LONG length = name.GetLength();
    Bool is_empty = TRUE;
    for (LONG i = 0; i < length; i++) {
        is_empty = is_empty && IsBlankOrDot(name[i]);
        if (IsReserved(name[i])) name[i] = '-';
    }
    if (is_empty || name.GetCStringLen(STRINGENCODING_UTF8) > kLongestName) return String();
    for (LONG i = 0; i < length && IsBlankOrDot(name[i]); i++) name[i] = '-';
    for (LONG i = length - 1; i >= 0 && IsBlankOrDot(name[i]); i--) name[i] = '-';
    const LONG device = DeviceLength(name);
    return device ? String("-") + name.Right(length - device) : name;
}

Filename NewFileIn(const Filename &folder, const String &name) {
    for (LONG number = (LONG)FilesIn(folder).size();; number++) {
        Filename file = InFolder(folder, Filename(String("0") + LongToString(number) + String("_") + name));
        if (!GeFExist(file) && !GeFExist(file, TRUE)) return file;
    }
}
