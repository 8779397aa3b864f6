// Handles of the C interface: numbers that are never given out twice, behind pointer types that keep them apart.
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <unordered_map>

#include "library/interface/error_line.h"

namespace tremolux {

// What a handle stands for.
struct HandleTarget {
    std::recursive_mutex lock;
    bool is_in_use = false;  // by a call, which may have called back
    ErrorLine error;  // of the last call with it
    virtual ~HandleTarget() = default;
};

// Null for what is no handle, or no longer. From any thread.
std::shared_ptr<HandleTarget> FindHandle(const void *handle);
void *NewHandle(std::shared_ptr<HandleTarget> target);
// The target goes when nobody uses it any more.
void ForgetHandle(const void *handle);

template <typename Target>
std::shared_ptr<Target> FindTarget(const void *handle) {
    return std::dynamic_pointer_cast<Target>(FindHandle(handle));
}

}  // namespace tremolux
