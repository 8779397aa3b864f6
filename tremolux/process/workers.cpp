#include "tremolux/process/workers.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <deque>
#include <fstream>
#include <iostream>
#include <memory>
#include <thread>

#include "host/services/child_process.h"
#include "host/services/platform.h"
#include "host/value/text.h"
#include "library/failure.h"
#include "library/formats/numbers.h"
#include "tremolux/process/interrupt.h"
#include "tremolux/process/output_files.h"
#include "tremolux/process/temporary_folder.h"

namespace tremolux {
namespace {

// What was added to a file since it was looked at last, whole lines.
class Listener {
  public:
    explicit Listener(const std::filesystem::path &file) : file_(file) {}
    std::vector<std::string> NewLines() {
        std::ifstream stream(file_, std::ios::binary);
        stream.seekg(read_);
        std::vector<std::string> lines;
        for (std::string line; std::getline(stream, line) && !stream.eof();) {
            read_ += static_cast<std::streamoff>(line.size() + 1);
            lines.push_back(line);
        }
        return lines;
    }

  private:
    const std::filesystem::path file_;
    std::streamoff read_ = 0;
};

class Worker {
  public:
    explicit Worker(const std::vector<std::string> &command)
        : out_(folder_.Path() / "out"), err_(folder_.Path() / "err") {
        if (!process_.Start(command, folder_.Path() / "out", folder_.Path() / "err"))
            throw Failure(kExitInternal, "this program cannot be started a second time, expected that --jobs 1 works");
    }
    void Give(std::size_t piece) { pieces_ += process_.Write(std::to_string(piece) + "\n") ? 1 : 0; }
    // The next piece lies ready while the worker is at one, so that it never waits.
    bool TakesMore() const { return pieces_ < 2; }
    // "NUMBER\tTEXT" when the piece is done.
    std::optional<std::string> Answer() {
        Pass();
        for (const std::string &line : out_.NewLines()) answers_.push_back(line);
        if (answers_.empty()) return std::nullopt;
        std::string answer = answers_.front();
        answers_.pop_front();
        --pieces_;
        return answer;
    }
    bool HasEnded() const { return process_.HasEnded(); }
    void EndInput() { process_.EndInput(); }
    void Finish() {
        process_.Finish();
        Pass();
    }

  private:
    void Pass() {
        for (const std::string &line : err_.NewLines()) std::fprintf(stderr, "%s\n", line.c_str());
    }

    const TemporaryFolder folder_;
    Listener out_, err_;
    host::ChildProcess process_;
    std::deque<std::string> answers_;
    int pieces_ = 0;  // that it was given and has not answered
};

using Workers = std::vector<std::unique_ptr<Worker>>;

void FinishAll(const Workers &workers) {
    for (const auto &worker : workers) worker->EndInput();
    for (const auto &worker : workers) worker->Finish();
}

void Drive(const Workers &workers, std::size_t pieces,
           const std::function<void(std::size_t, const std::string &)> &at_answer) {
    constexpr std::chrono::milliseconds kPause{2};
    std::size_t given = 0, done = 0;
    while (done < pieces) {
        CheckForInterrupt();
        bool any = false;
        for (const auto &worker : workers) {
            if (const std::optional<std::string> answer = worker->Answer()) {
                const std::size_t tab = std::min(answer->find('\t'), answer->size());
                const std::optional<std::int64_t> piece = ParseWhole(std::string_view(*answer).substr(0, tab));
                if (!piece || tab == answer->size()) throw Failure(kExitInternal, "a process of --jobs gave no answer");
                at_answer(static_cast<std::size_t>(*piece), answer->substr(tab + 1));
                ++done;
                any = true;
            } else if (worker->HasEnded()) {
                throw Failure(kExitInternal, "a process of --jobs ended before its work was done");
            }
            if (worker->TakesMore() && given < pieces) worker->Give(given++);
        }
        if (!any) std::this_thread::sleep_for(kPause);
    }
}

}  // namespace

int UsualJobs() { return static_cast<int>(std::clamp(std::thread::hardware_concurrency(), 1U, 256U)); }

void ShareOut(const std::vector<std::string> &arguments, int jobs, std::size_t pieces,
              const std::function<void(std::size_t, const std::string &)> &at_answer) {
    std::vector<std::string> command = {host::PathText(host::ProgramFile())};
    command.insert(command.end(), arguments.begin(), arguments.end());
    Workers workers;
    for (int i = 0; i < jobs; ++i) workers.push_back(std::make_unique<Worker>(command));
    try {
        Drive(workers, pieces, at_answer);
    } catch (...) {
        FinishAll(workers);  // after the pieces that each has
        throw;
    }
    FinishAll(workers);
}

void DoPieces(const std::function<std::string(std::size_t)> &work) {
    for (std::string line; std::getline(std::cin, line);) {
        const std::optional<std::int64_t> piece = ParseWhole(line);
        if (!piece || *piece < 0) throw Failure(kExitInternal, "found no piece of work on the standard input");
        Print(line + "\t" + work(static_cast<std::size_t>(*piece)) + "\n");
    }
}

}  // namespace tremolux
