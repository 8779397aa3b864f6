// Memory of the host. Whatever crosses the border lives here, so that either side may release what the other made.
#pragma once

#include <cstring>
#include <new>
#include <type_traits>

#include "ge_types.h"

// Cleared to zero; NULL when out of memory, for a negative size, and before the host has handed over its table.
void *GeAlloc(VLONG bytes);
// Not cleared.
void *GeAllocNC(VLONG bytes);
// Releases without touching the caller's pointer; NULL is fine.
void GeFreeMemory(void *memory);

// Releases and sets the pointer to NULL; NULL is fine.
template <class T>
inline void GeFree(T *&memory) {
    GeFreeMemory(const_cast<typename std::remove_cv<T>::type *>(memory));
    memory = NULL;
}

template <class T>
inline T *GeAllocTyped(VLONG count) {
    const VLONG most = VLONG(VULONG(-1) / 2) / VLONG(sizeof(T));
    return count < 0 || count > most ? NULL : static_cast<T *>(GeAlloc(count * VLONG(sizeof(T))));
}
template <class T>
inline T *GeAllocTypedNC(VLONG count) {
    const VLONG most = VLONG(VULONG(-1) / 2) / VLONG(sizeof(T));
    return count < 0 || count > most ? NULL : static_cast<T *>(GeAllocNC(count * VLONG(sizeof(T))));
}
#define GeAllocType(T, count) GeAllocTyped<T>(count)
#define GeAllocTypeNC(T, count) GeAllocTypedNC<T>(count)

inline void ClearMem(void *memory, VLONG bytes, LONG value = 0) {
    if (memory && bytes > 0) std::memset(memory, static_cast<int>(value), static_cast<std::size_t>(bytes));
}
// The source stands first; the two may overlap.
inline void CopyMem(const void *source, void *destination, VLONG bytes) {
    if (source && destination && bytes > 0) std::memmove(destination, source, static_cast<std::size_t>(bytes));
}
template <class T>
inline void CopyMemType(const T *source, T *destination, VLONG count) {
    CopyMem(source, destination, count * VLONG(sizeof(T)));
}

// gNew T(args): host memory, cleared before the constructor runs. When out of memory the answer is NULL and no
// constructor runs: that is what `noexcept` makes of an operator new. Ordinary `new` stays as it is.
void *operator new(std::size_t bytes, LONG line, const CHAR *file) noexcept;
// Run only when a constructor throws.
void operator delete(void *memory, LONG line, const CHAR *file) noexcept;

#define gNew new (LONG(__LINE__), __FILE__)

// Destroys what gNew made, gives the memory back and sets the pointer to NULL; NULL is fine.
template <class T>
inline void gDelete(T *&object) {
    if (!object) return;
    void *memory;
    // A pointer to a base may lie inside the object; the host knows only its start.
    if constexpr (std::is_polymorphic<T>::value)
        memory = dynamic_cast<void *>(object);
    else
        memory = object;
    object->~T();
    GeFreeMemory(memory);
    object = NULL;
}
