// What a user would see and answer: recorded, and answered from a script.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

namespace host {

// Every dialog that was shown, with the answer it got. Answers are taken from a queue; when it is empty a dialog is
// answered as if it was cancelled (No, unchanged, no file).
class Dialogs {
  public:
    enum class Kind { kMessage, kQuestion, kRename, kFile };
    struct Shown {
        Kind kind;
        std::string text;
        std::string answer;
    };
    struct Answer {
        bool yes = false;
        std::string text;
    };

    void AnswerYes() { answers_.push_back({true, {}}); }
    void AnswerNo() { answers_.push_back({false, {}}); }
    void AnswerText(std::string text) { answers_.push_back({true, std::move(text)}); }
    const std::vector<Shown> &All() const { return shown_; }
    void Clear() {
        shown_.clear();
        answers_.clear();
    }

    std::int32_t Box(const std::string &text, std::int32_t flags);  // GEMB_ in, GEMB_R_ out
    bool Question(const std::string &text);
    bool Rename(std::string *text);  // true: the text was changed
    bool SelectFile(const std::string &title, std::string *path);
    std::function<void()> on_show;  // told of each dialog but a message before it is answered

  private:
    Answer Next();
    std::deque<Answer> answers_;
    std::vector<Shown> shown_;
};

class Console {
  public:
    // From any thread; whoever reads the lines has the others at rest.
    void Print(const std::string &line) {
        const std::lock_guard<std::mutex> hold(lock_);
        lines.push_back(line);
        if (on_line) on_line(line);
    }
    void Clear() {
        const std::lock_guard<std::mutex> hold(lock_);
        lines.clear();
    }
    std::vector<std::string> lines;
    std::function<void(const std::string &)> on_line;  // also told, e.g. to show it at once

  private:
    std::mutex lock_;
};

class StatusBar {
  public:
    void SetPercent(std::int32_t percent);  // cut to 0..100
    void Clear();
    std::int32_t percent = -1;  // -1: no bar
    std::vector<std::string> history;
    std::function<void()> on_change;
};

// Keyboard qualifiers and the mouse, as a test or a command sets them.
struct InputState {
    bool shift = false, control = false, alt = false;
    bool left_button = false, right_button = false;
    std::int32_t mouse_x = 0, mouse_y = 0;
};

// Pages and folders that the module asked the system to show, commands it called, events it queued.
struct Requests {
    std::vector<std::string> opened_pages, shown_folders;
    std::vector<std::int32_t> called_commands;
    int events = 0, stop_all_threads = 0;
};

}  // namespace host
