#include "host/ui/scripted_user.h"

#include <algorithm>

namespace host {

namespace {

// Buttons of a message box, and what they answer.
constexpr std::int32_t kBoxButtons = 0xF;
enum BoxButtons : std::int32_t {
    kBoxOk = 0,
    kBoxOkCancel = 1,
    kBoxAbortRetryIgnore = 2,
    kBoxYesNoCancel = 3,
    kBoxYesNo = 4,
    kBoxRetryCancel = 5
};
enum BoxAnswer : std::int32_t {
    kAnswerUndefined = 0,
    kAnswerOk = 1,
    kAnswerCancel = 2,
    kAnswerAbort = 3,
    kAnswerRetry = 4,
    kAnswerYes = 6,
    kAnswerNo = 7
};

BoxAnswer BoxAnswerFor(std::int32_t buttons, bool yes) {
    switch (buttons) {
        case kBoxOk:
            return kAnswerOk;
        case kBoxOkCancel:
            return yes ? kAnswerOk : kAnswerCancel;
        case kBoxAbortRetryIgnore:
            return yes ? kAnswerRetry : kAnswerAbort;
        case kBoxYesNoCancel:
        case kBoxYesNo:
            return yes ? kAnswerYes : kAnswerNo;
        case kBoxRetryCancel:
            return yes ? kAnswerRetry : kAnswerCancel;
        default:
            return kAnswerUndefined;
    }
}

}  // namespace

Dialogs::Answer Dialogs::Next() {
    if (on_show) on_show();
    if (answers_.empty()) return {};
    Answer answer = std::move(answers_.front());
    answers_.pop_front();
    return answer;
}

std::int32_t Dialogs::Box(const std::string &text, std::int32_t flags) {
    const std::int32_t buttons = flags & kBoxButtons;
    if (buttons == kBoxOk) {  // nothing is asked, so no answer is used up
        shown_.push_back({Kind::kMessage, text, "ok"});
        return kAnswerOk;
    }
    const bool yes = Next().yes;
    shown_.push_back({Kind::kQuestion, text, yes ? "yes" : "no"});
    return BoxAnswerFor(buttons, yes);
}

bool Dialogs::Question(const std::string &text) {
    const bool yes = Next().yes;
    shown_.push_back({Kind::kQuestion, text, yes ? "yes" : "no"});
    return yes;
}

bool Dialogs::Rename(std::string *text) {
    const Answer answer = Next();
    const bool changed = answer.yes && answer.text != *text;
    shown_.push_back({Kind::kRename, *text, changed ? answer.text : ""});
    if (changed) *text = answer.text;
    return changed;
}

bool Dialogs::SelectFile(const std::string &title, std::string *path) {
    const Answer answer = Next();
    const bool chosen = answer.yes && !answer.text.empty();
    shown_.push_back({Kind::kFile, title, chosen ? answer.text : ""});
    if (chosen) *path = answer.text;
    return chosen;
}

void StatusBar::SetPercent(std::int32_t new_percent) {
    percent = std::clamp(new_percent, 0, 100);
    history.push_back(std::to_string(percent) + " %");
    if (on_change) on_change();
}

void StatusBar::Clear() {
    percent = -1;
    if (on_change) on_change();
}

}  // namespace host
