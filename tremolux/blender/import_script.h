// What Blender is told to do with a file that it shall open: a script in its own language.
#pragma once

namespace tremolux {

// Called as
//     blender --background --factory-startup --disable-autoexec --python SCRIPT -- FILE RESULT CAMERA FRAMES FPS
//     FPS_BASE
// with absolute paths; CAMERA is a name, a path or empty, FRAMES is FIRST:LAST or empty, FPS is whole. It writes
// RESULT, one JSON object: what ReadImported reads, or {"refused": "found ..., expected ..."}. Lines "tremolux: 12 of
// 100" on the standard output tell how many frames are done.
extern const char *const kImportScript;

}  // namespace tremolux
