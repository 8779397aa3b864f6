// Owners for the classes that are made with Alloc and released with Free.
#pragma once

#include "c4d_memory.h"

// Makes a T and frees it at the end of the block. Test with `if (!p)`: making may have failed.
template <class T>
class AutoAlloc {
  public:
    AutoAlloc() : object_(T::Alloc()) {}
    explicit AutoAlloc(LONG a) : object_(T::Alloc(a)) {}
    AutoAlloc(LONG a, LONG b) : object_(T::Alloc(a, b)) {}
    ~AutoAlloc() { T::Free(object_); }
    AutoAlloc(const AutoAlloc &) = delete;
    AutoAlloc &operator=(const AutoAlloc &) = delete;

    operator T *() const { return object_; }
    operator T &() const { return *object_; }
    T *operator->() const { return object_; }
    // The caller owns the object from now on.
    T *Release() {
        T *object = object_;
        object_ = NULL;
        return object;
    }

  private:
    T *object_;
};

// Takes an existing object over and frees it with T::Free.
template <class T>
class AutoFree {
  public:
    AutoFree() : object_(NULL) {}
    AutoFree(T *object) : object_(object) {}
    ~AutoFree() { T::Free(object_); }
    AutoFree(const AutoFree &) = delete;
    AutoFree &operator=(const AutoFree &) = delete;

    operator T *() const { return object_; }
    T *operator->() const { return object_; }
    T *Release() {
        T *object = object_;
        object_ = NULL;
        return object;
    }

  private:
    T *object_;
};

// Takes over memory made with GeAlloc.
template <class T>
class AutoGeFree {
  public:
    AutoGeFree() : memory_(NULL) {}
    AutoGeFree(T *memory) : memory_(memory) {}
    ~AutoGeFree() { GeFree(memory_); }
    AutoGeFree(const AutoGeFree &) = delete;
    AutoGeFree &operator=(const AutoGeFree &) = delete;

    operator T *() const { return memory_; }
    T *operator->() const { return memory_; }
    T *Release() {
        T *memory = memory_;
        memory_ = NULL;
        return memory;
    }

  private:
    T *memory_;
};
