// The frames on which the user asks for a jolt.
#include <algorithm>

#include "tag/parameters.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

namespace {

const CHAR *const kPlaceholder = "Numbers seperated by commas";
constexpr LONG kLastTriggerFrame = 9999999;

Bool IsBlank(UWORD unit) { return unit == ' ' || unit == '\t'; }
Bool IsDigit(UWORD unit) { return unit >= '0' && unit <= '9'; }

// Asked for on every frame, so no text is made for it.
Bool IsPlaceholder(const String &text) {
    LONG i = 0;
    while (i < text.GetLength() && kPlaceholder[i] && text[i] == (UWORD)kPlaceholder[i]) i++;
    return i == text.GetLength() && !kPlaceholder[i];
}

// The frame between `start` and `end` of the text: blanks, an optional sign, decimal digits, blanks. FALSE for anything
// else, for frames below 0, for frames that nobody animates, and for a zero in any form but "0".
Bool ReadFrame(const String &text, LONG start, LONG end, LONG *frame) {
    const Bool zero = end - start == 1 && text[start] == '0';
    while (start < end && IsBlank(text[start])) start++;
    while (end > start && IsBlank(text[end - 1])) end--;
    const Bool negative = start < end && text[start] == '-';
    if (start < end && (negative || text[start] == '+')) start++;
    if (start == end) return FALSE;
    LONG number = 0;
    for (LONG i = start; i < end; i++) {
        if (!IsDigit(text[i])) return FALSE;
        number = number * 10 + (text[i] - '0');
        if (number > kLastTriggerFrame) return FALSE;
    }
    *frame = number;
    return number == 0 ? zero : !negative;
}

}  // namespace

void TremoluxCamClass::ParseTrigger(BaseContainer *data, LONG parameter, std::vector<LONG> *frames) {
    frames->clear();
    const String text = data->GetString(parameter);
    if (!text.Content()) data->SetString(parameter, kPlaceholder);
    if (!text.Content() || IsPlaceholder(text)) return;

    std::vector<LONG> found;
    for (LONG start = 0; start <= text.GetLength();) {
        LONG end = start;
        while (end < text.GetLength() && text[end] != ',') end++;
        LONG frame;
        if (ReadFrame(text, start, end, &frame)) found.push_back(frame);
        start = end + 1;
    }
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    frames->swap(found);
}

void TremoluxCamClass::RefreshTrigger(BaseContainer *data, LONG parameter, std::vector<LONG> *frames) {
    const GeData *stored = data->GetDataPointer(parameter);
    if (stored && stored->GetType() == DA_STRING && IsPlaceholder(stored->GetString()))
        frames->clear();
    else if (frames->empty())
        ParseTrigger(data, parameter, frames);
}

void TremoluxCamClass::ParseCustomTrigger(BaseContainer *data) { ParseTrigger(data, kCustomTrigger, &trigger_frames_); }

void TremoluxCamClass::ParseCustomTriggerTwin(BaseContainer *data) {
    ParseTrigger(data, kCustomTriggerTwin, &twin_trigger_frames_);
}
