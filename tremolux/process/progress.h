// How far the work is, for somebody who watches: one line that is written over and at last wiped out.
#pragma once

#include <cstdint>

namespace tremolux {

class Progress {
  public:
    // Silent unless the standard error output is a terminal.
    Progress(std::int64_t frames, bool quiet);
    ~Progress();
    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;
    void Done(std::int64_t frames);

  private:
    std::int64_t frames_;
    bool shown_;
    int percent_ = -1;
};

}  // namespace tremolux
