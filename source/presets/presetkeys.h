// What a preset file is made of, in plain numbers: every room has them from here.
#pragma once

#include <cstdint>

constexpr std::int32_t kPresetFileCode = 0x74656D70;  // "temp": what the host knows the file by

// Keys of a preset; a parameter stands under its id, and TRUE under the negated id says that it is there.
constexpr std::int32_t kPresetName = 1002, kPresetVersion = 1040651, kPresetIsDefault = 100;
// Container: a second camera's preset, whose input is the first one; other programs read it.
constexpr std::int32_t kPresetSecond = 3004;
// Text, only in memory: the file that a preset with shake in it came from.
constexpr std::int32_t kPresetShakeFile = 3003;

// How a line on the console begins that tells of a preset in no list; its file and the reason follow.
constexpr char kLeftOutWords[] = "TremoluxCam left out the preset ";
