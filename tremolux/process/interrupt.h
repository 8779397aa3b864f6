// Ctrl-C: noticed between frames, so that no half file stays behind.
#pragma once

namespace tremolux {

void WatchForInterrupt();
// Throws a Failure when Ctrl-C was pressed.
void CheckForInterrupt();

}  // namespace tremolux
