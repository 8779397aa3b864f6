// Linked into the module, this makes the standard library's memory the host's too: every allocation is a call that may
// fail. Not for a std::string: part of that is compiled into the library itself, and the module uses none.
#include <new>

#include "c4d.h"

void *operator new(std::size_t bytes) {
    // As for malloc, none is a size like any other.
    if (void *memory = GeAllocNC(bytes > 0 ? (VLONG)bytes : 1)) return memory;
    throw std::bad_alloc();
}
void *operator new[](std::size_t bytes) { return operator new(bytes); }
void operator delete(void *memory) noexcept { GeFreeMemory(memory); }
void operator delete[](void *memory) noexcept { GeFreeMemory(memory); }
void operator delete(void *memory, std::size_t) noexcept { GeFreeMemory(memory); }
void operator delete[](void *memory, std::size_t) noexcept { GeFreeMemory(memory); }
