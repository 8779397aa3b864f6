// What went wrong last, as one line.
#pragma once

#include <cstddef>

namespace tremolux {

// Needs no memory and no destructor: it holds where memory has run out, and until a thread's very end.
class ErrorLine {
  public:
    const char *Text() const { return text_; }
    void Clear() { text_[0] = 0; }
    // As much of a UTF-8 line as there is room for, in whole characters.
    void Set(const char *line);

  private:
    static constexpr std::size_t kRoom = 2048;  // with the zero byte
    char text_[kRoom] = {};
};

}  // namespace tremolux
