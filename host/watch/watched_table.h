// The function table with a judge in front of every entry.
#pragma once

#include "platform/table.h"

namespace host {

// Each entry checks its caller: nodes that were freed, that are of another kind or of another document, pointers that
// are null where something must be there, edits of the scene and dialogs while a frame is evaluated, dialogs and undo
// steps on another thread than the main one. The first such call is remembered (judge.h) and none of them happens.
// Calls that may fail can be made to (call_faults.h). To be asked for before the first node is made: one from before
// counts as freed.
const HostTable *WatchedTable();

}  // namespace host
