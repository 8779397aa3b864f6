#include "presets/cache.h"

#include <map>
#include <mutex>

namespace {

constexpr std::size_t kMostFiles = 50000;

struct CachedPreset {
    FileStamp stamp;
    BaseContainer preset;
};

typedef std::map<String, CachedPreset> CachedPresets;

// Held for moments, and over every use of `presets`: what is in it is copied in and out, and files are read outside of
// it.
std::mutex lock;
CachedPresets *presets = NULL;

Bool FindCached(const String &path, const FileStamp &stamp, BaseContainer *preset) {
    const std::lock_guard<std::mutex> hold(lock);
    if (!presets) return FALSE;
    const CachedPresets::const_iterator place = presets->find(path);
    if (place == presets->end() || !(place->second.stamp == stamp)) return FALSE;
    *preset = place->second.preset;
    return TRUE;
}

void KeepCached(const String &path, const CachedPreset &preset) {
    const std::lock_guard<std::mutex> hold(lock);
    if (!presets) presets = new CachedPresets;
    if (presets->size() >= kMostFiles) presets->clear();
    (*presets)[path] = preset;
}

}  // namespace

PresetFault ReadPresetFileOnce(const Filename &file, const FileStamp &stamp, BaseContainer *preset) {
    if (FindCached(file.GetString(), stamp, preset)) return PresetFault::kNone;
    const Bool is_long_past = IsLongPast(stamp.changed);
    const PresetFault fault = stamp.size > kLargestPresetFile ? PresetFault::kTooLarge : ReadPresetFile(file, preset);
    // What may change unseen is read again each time, and what could not be read: perhaps it was in use.
    if (fault == PresetFault::kNone && is_long_past) KeepCached(file.GetString(), CachedPreset{stamp, *preset});
    return fault;
}

void ForgetPresets() {
    const std::lock_guard<std::mutex> hold(lock);
    delete presets;
    presets = NULL;
}
