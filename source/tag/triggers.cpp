// The frames on which the user asks for a jolt.
#include <algorithm>

#include "tag/parameters.h"
#include "tag/tremoluxcam.h"

namespace {

const CHAR *const kPlaceholder = "Numbers seperated by commas";
constexpr LONG kLastTriggerFrame = 9999999;

Bool IsBlank(UWORD unit) { return unit == ' ' || unit == '\t'; }
Bool IsDigit(UWORD unit) { return unit >= '0' && unit <= '9'; }

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
    LONG number = 0;
    for (LONG i = start; i < end; i++) {
        if (!IsDigit(text[i])) return FALSE;
        number = number * 10 + (text[i] - '0');
        if (number > kLastTriggerFrame) return FALSE;
    }
    *frame = number;
    return number == 0 ? zero : !negative;
}

// Whether the list is that of the parameter's present text. Asked on every frame, so no text is made for it.
Bool IsTextOf(const Trigger &trigger, const BaseContainer &data, LONG parameter) {
    const GeData *stored = data.GetDataPointer(parameter);
    return stored && stored->GetType() == DA_STRING && stored->GetString().Content() &&
           stored->GetString() == trigger.text;
}

}  // namespace

void TremoluxCamClass::ParseTrigger(BaseContainer *data, LONG parameter, Trigger *trigger) {
    trigger->frames.clear();
    if (!data->GetString(parameter).Content()) data->SetString(parameter, kPlaceholder);
    const String text = data->GetString(parameter);
    trigger->text = text;
    if (IsPlaceholder(text)) return;

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
    trigger->frames.swap(found);
}

void TremoluxCamClass::RefreshTriggers(BaseContainer *data) {
    if (trigger_reading_ == ReadMotion(data).Readings()) return;
    trigger_reading_ = motion_.Readings();
    if (!IsTextOf(trigger_, *data, kCustomTrigger)) ParseCustomTrigger(data);
    if (!IsTextOf(twin_trigger_, *data, kCustomTriggerTwin)) ParseCustomTriggerTwin(data);
}

void TremoluxCamClass::ParseCustomTrigger(BaseContainer *data) { ParseTrigger(data, kCustomTrigger, &trigger_); }

void TremoluxCamClass::ParseCustomTriggerTwin(BaseContainer *data) {
    ParseTrigger(data, kCustomTriggerTwin, &twin_trigger_);
}
