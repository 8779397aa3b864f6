// The edge of the C interface: what is thrown behind it becomes a status and a line.
#pragma once

#include <cstddef>
#include <cstring>
#include <functional>
#include <mutex>
#include <stdexcept>
#include <string>

#include "library/interface/handles.h"
#include "tremolux/tremolux.h"

namespace tremolux {

// A call that cannot be served.
class Refusal : public std::runtime_error {
  public:
    Refusal(tremolux_status status, const std::string &line) : std::runtime_error(line), status_(status) {}
    tremolux_status Status() const { return status_; }

  private:
    tremolux_status status_;
};

// Of the calling thread, for calls without a valid handle.
ErrorLine &ThreadError();

// TREMOLUX_OK, or the status of what `work` throws with its line in `error`.
tremolux_status Guarded(ErrorLine *error, const std::function<void()> &work);

// Throws a Refusal: where something was found, what it was, and what was expected.
[[noreturn]] void RefuseInput(const std::string &place, const std::string &found, const std::string &expected);
// Throws a Refusal for a null pointer; `what` is the argument's name.
void RequirePointer(const void *pointer, const char *what);
// How large a struct was when it was first published: callers that were built then know no more of it.
template <typename Struct>
constexpr std::size_t kFirstSize = sizeof(Struct);
template <>
inline constexpr std::size_t kFirstSize<tremolux_parameter> = offsetof(tremolux_parameter, group);
template <>
inline constexpr std::size_t kFirstSize<tremolux_preset> = offsetof(tremolux_preset, made_for);

// The same, and for a struct whose first field is no size that it has had.
template <typename Struct>
void RequireStruct(const Struct *pointer, const char *what) {
    RequirePointer(pointer, what);
    if (pointer->size >= kFirstSize<Struct> && pointer->size <= sizeof(Struct)) return;
    const bool has_grown = kFirstSize<Struct> < sizeof(Struct);
    RefuseInput(what, "the size " + std::to_string(pointer->size),
                (has_grown ? std::to_string(kFirstSize<Struct>) + " to " : "") + std::to_string(sizeof(Struct)));
}
// As much of it as the caller has room for, who keeps the size.
template <typename Struct>
void WriteStruct(Struct *pointer, Struct whole) {
    whole.size = pointer->size;
    std::memcpy(pointer, &whole, pointer->size);
}

// Throws a Refusal for what is no handle of this kind.
template <typename Target>
std::shared_ptr<Target> RequireTarget(const void *handle) {
    std::shared_ptr<Target> target = FindTarget<Target>(handle);
    if (!target) throw Refusal(TREMOLUX_HANDLE, std::string("found no valid handle, expected one of a ") + Target::kName);
    return target;
}

// For the whole of a call. A second one on the same handle waits, or is refused where it could wait for itself.
template <typename Target>
class Use {
  public:
    explicit Use(Target *target) : target_(target), hold_(target->lock, std::defer_lock) {
        if (Target::kIsWaitedFor)
            hold_.lock();
        else if (!hold_.try_lock() || target->is_in_use)
            throw Refusal(TREMOLUX_BUSY, std::string("the ") + Target::kName + " is in use by another call");
        target->is_in_use = true;
    }
    ~Use() { target_->is_in_use = false; }
    Use(const Use &) = delete;
    Use &operator=(const Use &) = delete;

  private:
    Target *target_;
    std::unique_lock<std::recursive_mutex> hold_;
};

// Runs `work` with what the handle stands for.
template <typename Target, typename Work>
tremolux_status WithHandle(const void *handle, Work work) {
    tremolux_status status = TREMOLUX_OK;
    const tremolux_status found = Guarded(&ThreadError(), [&] {
        const std::shared_ptr<Target> target = RequireTarget<Target>(handle);
        const Use<Target> use(target.get());
        status = Guarded(&target->error, [&] { work(*target); });
    });
    return found == TREMOLUX_OK ? status : found;
}

// NULL is left alone.
template <typename Target>
tremolux_status FreeHandle(const void *handle) {
    if (handle == nullptr) return TREMOLUX_OK;
    return Guarded(&ThreadError(), [&] {
        RequireTarget<Target>(handle);
        ForgetHandle(handle);
    });
}

}  // namespace tremolux
