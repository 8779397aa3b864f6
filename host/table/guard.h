// No exception crosses the border to a module: it was written without them.
#pragma once

#include <utility>

namespace host {

// What `body` answers, or `otherwise` when it throws.
template <typename Answer, typename Body>
Answer Guarded(Answer otherwise, Body &&body) noexcept {
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        return otherwise;
    }
}

template <typename Body>
void Guarded(Body &&body) noexcept {
    try {
        std::forward<Body>(body)();
    } catch (...) {
        // Nothing to answer: what could not be done is left undone.
    }
}

}  // namespace host
