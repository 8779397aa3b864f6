// Tracked recordings of hand-held cameras: metres and radians in the camera's own right-handed frame (x right, y up,
// z backwards), rotations about x, then y, then z, 24 frames a second.
#pragma once

#include "library/formats/csv_header.h"
#include "library/formats/source_text.h"
#include "library/moves/camera_move.h"

namespace tremolux {

extern const CsvColumns kRecordingColumns;  // the frame is the first one
constexpr int kRecordingFramesPerSecond = 24;

bool IsRecordingHeader(const SourceText &source);
CameraSample ReadRecordingRow(const CsvRow &row);

}  // namespace tremolux
