#include "library/interface/handles.h"

namespace tremolux {
namespace {

struct Handles {
    std::mutex lock;
    std::unordered_map<std::uintptr_t, std::shared_ptr<HandleTarget>> targets;
    std::uintptr_t last = 0;
};

// Never taken down: a program may end with handles that it did not free, and threads that use them.
Handles &All() {
    static Handles &handles = *new Handles;
    return handles;
}

std::uintptr_t NumberOf(const void *handle) { return reinterpret_cast<std::uintptr_t>(handle); }

}  // namespace

std::shared_ptr<HandleTarget> FindHandle(const void *handle) {
    Handles &handles = All();
    const std::lock_guard<std::mutex> hold(handles.lock);
    const auto place = handles.targets.find(NumberOf(handle));
    return place == handles.targets.end() ? nullptr : place->second;
}

void *NewHandle(std::shared_ptr<HandleTarget> target) {
    Handles &handles = All();
    const std::lock_guard<std::mutex> hold(handles.lock);
    handles.targets.emplace(handles.last + 1, std::move(target));
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the pointer is a number that keeps its type.
    return reinterpret_cast<void *>(++handles.last);
}

void ForgetHandle(const void *handle) {
    std::shared_ptr<HandleTarget> last_use;  // goes after the lock
    Handles &handles = All();
    const std::lock_guard<std::mutex> hold(handles.lock);
    const auto place = handles.targets.find(NumberOf(handle));
    if (place == handles.targets.end()) return;
    last_use = std::move(place->second);
    handles.targets.erase(place);
}

}  // namespace tremolux
