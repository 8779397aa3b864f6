#include <algorithm>

#include "tag/parameters.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

namespace {

const CHAR *const kPlaceholder = "Numbers seperated by commas";

}  // namespace

// No jolt is in flight: the offsets stay as the last reset left them.
void TremoluxCamClass::EvaluateJolts(BaseContainer *) {}

void TremoluxCamClass::ParseTrigger(BaseContainer *data, LONG parameter, std::vector<LONG> *frames) {
    frames->clear();
    const String text = data->GetString(parameter);
    if (!text.Content()) data->SetString(parameter, kPlaceholder);
    if (!text.Content() || text == kPlaceholder) return;

    const String comma(",");
    for (LONG start = 0; start <= text.GetLength();) {
        LONG end = text.GetLength();
        text.FindFirst(comma, &end, start);
        const String piece = text.SubStr(start, end - start);
        const LONG frame = piece.ToLong();
        // 0 is also what no number reads as.
        if (frame > 0 || (frame == 0 && piece == "0")) frames->push_back(frame);
        start = end + 1;
    }
    std::sort(frames->begin(), frames->end());
}

void TremoluxCamClass::RefreshTrigger(BaseContainer *data, LONG parameter, const std::vector<LONG> &frames) {
    const Bool twin = parameter == kCustomTriggerTwin;
    const GeData *stored = data->GetDataPointer(parameter);
    const Bool placeholder = stored && stored->GetType() == DA_STRING && stored->GetString() == kPlaceholder;
    if (placeholder) {
        (twin ? twin_trigger_frames_ : trigger_frames_).clear();
    } else if (frames.empty()) {
        if (twin)
            ParseCustomTriggerTwin(data);
        else
            ParseCustomTrigger(data);
    }
}

void TremoluxCamClass::ParseCustomTrigger(BaseContainer *data) { ParseTrigger(data, kCustomTrigger, &trigger_frames_); }

void TremoluxCamClass::ParseCustomTriggerTwin(BaseContainer *data) {
    ParseTrigger(data, kCustomTriggerTwin, &twin_trigger_frames_);
}
