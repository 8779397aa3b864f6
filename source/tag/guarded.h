// Where an exception ends. Nothing in the module throws but the standard library, when memory is out; one that left a
// callback would end the application, and the user's unsaved work with it.
#pragma once

// What `body` answers; `otherwise` when memory was out on the way.
template <class Answer, class Body>
Answer Guarded(Answer otherwise, Body body) {
    try {
        return body();
    } catch (...) {
        return otherwise;
    }
}
