#include "presets/presetfile.h"

#include "presets/folders.h"
#include "tag/parameters.h"

namespace {

constexpr Real kFormatVersion = 1.015;  // the format's own: it stays when the module's goes on
const CHAR *const kUnfinishedStart = ".";
const CHAR *const kUnfinishedEnding = ".tremolux";

// Hidden by its first character, so that one left behind by a crash is never taken for a preset.
Filename FileBeside(const Filename &file) {
    return InFolder(file.GetDirectory(), Filename(String(kUnfinishedStart) + file.GetFileString() + kUnfinishedEnding));
}

// A checked new file takes the place of `file`. It lies beside until that is done, so that a complete one is there at
// every moment, also where the host's copying is not one step.
Bool PutInPlace(const Filename &fresh, const Filename &file, Bool is_sound) {
    const Bool done = is_sound && GeFCopyFile(fresh, file, GE_FCOPY_OVERWRITE);
    GeFKill(fresh);
    return done;
}

Bool Write(const Filename &file, const BaseContainer &preset) {
    AutoAlloc<HyperFile> stream;
    if (!stream || !stream->Open(kPresetFileCode, file, FILEOPEN_WRITE, FILEDIALOG_NONE)) return FALSE;
    const Bool written = stream->WriteContainer(preset);
    return stream->Close() && written;
}

Bool Reads(const Filename &file, BaseContainer *preset) { return ReadPresetFile(file, preset) == PresetFault::kNone; }

}  // namespace

PresetFault ReadPresetFile(const Filename &file, BaseContainer *preset) {
    preset->FlushAll();
    AutoAlloc<HyperFile> stream;
    if (!stream || !stream->Open(kPresetFileCode, file, FILEOPEN_READ, FILEDIALOG_NONE)) return PresetFault::kNotOpened;
    const Bool is_read = stream->ReadContainer(preset, TRUE);
    stream->Close();
    if (is_read) return PresetFault::kNone;
    preset->FlushAll();
    return PresetFault::kDamaged;
}

BaseContainer MakePreset(const String &name, Bool is_default, const BaseContainer &data) {
    BaseContainer preset;
    preset.SetString(kPresetName, name);
    preset.SetReal(kPresetVersion, kFormatVersion);
    preset.SetBool(kPresetIsDefault, is_default);
    for (LONG id = kFirstPresetId; id <= kLastPresetId; id++) {
        const GeData *value = IsPresetParameter(id) ? data.GetDataPointer(id) : NULL;
        if (!value) continue;
        if (!preset.SetData(id, *value) || !preset.SetData(-id, GeData((LONG)TRUE))) return BaseContainer();
    }
    return preset.GetDataPointer(kPresetName) && preset.GetDataPointer(kPresetIsDefault) ? preset : BaseContainer();
}

Bool WritePresetFile(const Filename &file, const BaseContainer &preset) {
    const Filename fresh = FileBeside(file);
    BaseContainer written;
    const Bool is_sound = fresh.Content() && Write(fresh, preset) && Reads(fresh, &written) && written == preset;
    return PutInPlace(fresh, file, is_sound);
}

Bool CopyPresetFile(const Filename &source, const Filename &destination) {
    if (source == destination) return TRUE;
    const Filename fresh = FileBeside(destination);
    BaseContainer original, copy;
    Bool is_sound = fresh.Content() && GeFCopyFile(source, fresh, GE_FCOPY_OVERWRITE);
    if (is_sound && Reads(source, &original)) is_sound = Reads(fresh, &copy) && copy == original;
    return PutInPlace(fresh, destination, is_sound);
}

Bool IsUnfinished(const Filename &name) {
    const String text = name.GetString(), start = kUnfinishedStart, ending = kUnfinishedEnding;
    return text.Left(start.GetLength()) == start && text.Right(ending.GetLength()) == ending;
}
