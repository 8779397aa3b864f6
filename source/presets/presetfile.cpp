#include "presets/presetfile.h"

#include <cmath>

#include "presets/folders.h"
#include "tag/parameters.h"

namespace {

constexpr Real kFormatVersion = 1.015;  // the format's own: it stays when the module's goes on
constexpr LONG kLongestText = 65536;

// Hidden by its first character, so that one left behind by a crash is never taken for a preset.
Filename FileBeside(const Filename &file) {
    return InFolder(file.GetDirectory(), Filename(String(".") + file.GetFileString() + String(".tremolux")));
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

Bool IsNumber(LONG type) { return type == DA_LONG || type == DA_REAL || type == DA_LLONG; }

Real HoldToLimits(const ParameterInfo &parameter, Real value) {
    if (parameter.minimum.given && value < parameter.minimum.value) return parameter.minimum.value;
    if (parameter.maximum.given && value > parameter.maximum.value) return parameter.maximum.value;
    return value;
}

Bool CopyNumber(const ParameterInfo &parameter, const GeData &value, BaseContainer *data) {
    if (!IsNumber(value.GetType()) || !std::isfinite(value.GetReal())) return FALSE;
    data->SetReal(parameter.id, HoldToLimits(parameter, value.GetReal()));
    return TRUE;
}

Bool CopySwitch(LONG id, const GeData &value, BaseContainer *data) {
    if (!IsNumber(value.GetType()) || !std::isfinite(value.GetReal())) return FALSE;
    data->SetBool(id, value.GetReal() != 0.0);
    return TRUE;
}

Bool CopyTime(const ParameterInfo &parameter, const GeData &value, BaseContainer *data) {
    if (value.GetType() != DA_TIME) return FALSE;
    const BaseTime time = value.GetTime();
    const Real seconds = time.GetDenominator() == 0.0 ? HUGE_VAL : time.GetNumerator() / time.GetDenominator();
    if (!std::isfinite(seconds)) return FALSE;
    const Real held = HoldToLimits(parameter, seconds);
    data->SetTime(parameter.id, held == seconds ? time : BaseTime(held));
    return TRUE;
}

Bool CopyText(LONG id, const GeData &value, BaseContainer *data) {
    if (value.GetType() != DA_STRING || value.GetString().GetLength() > kLongestText) return FALSE;
    data->SetString(id, value.GetString());
    return TRUE;
}

}  // namespace

Bool ReadPresetFile(const Filename &file, BaseContainer *preset) {
    preset->FlushAll();
    AutoAlloc<HyperFile> stream;
    if (!stream || !stream->Open(kPresetFileCode, file, FILEOPEN_READ, FILEDIALOG_NONE)) return FALSE;
    const Bool is_read = stream->ReadContainer(preset, TRUE);
    stream->Close();
    if (!is_read) preset->FlushAll();
    return is_read;
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
    const Bool is_sound =
        fresh.Content() && Write(fresh, preset) && ReadPresetFile(fresh, &written) && written == preset;
    return PutInPlace(fresh, file, is_sound);
}

Bool CopyPresetFile(const Filename &source, const Filename &destination) {
    if (source == destination) return TRUE;
    const Filename fresh = FileBeside(destination);
    BaseContainer original, copy;
    Bool is_sound = fresh.Content() && GeFCopyFile(source, fresh, GE_FCOPY_OVERWRITE);
    if (is_sound && ReadPresetFile(source, &original)) is_sound = ReadPresetFile(fresh, &copy) && copy == original;
    return PutInPlace(fresh, destination, is_sound);
}

Bool CopyPresetValue(const BaseContainer &preset, LONG id, BaseContainer *data) {
    const ParameterInfo *parameter = FindParameter(id);
    const GeData *value = preset.GetDataPointer(id);
    if (!parameter || !value || !preset.GetBool(-id)) return FALSE;
    switch (parameter->type) {
        case ParameterType::kReal:
            return CopyNumber(*parameter, *value, data);
        case ParameterType::kBool:
            return CopySwitch(id, *value, data);
        case ParameterType::kTime:
            return CopyTime(*parameter, *value, data);
        case ParameterType::kString:
            return CopyText(id, *value, data);
        case ParameterType::kLink:
        case ParameterType::kCycle:
        case ParameterType::kButton:
            break;
    }
    return FALSE;
}
