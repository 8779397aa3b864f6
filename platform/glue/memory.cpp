#include "c4d_memory.h"
#include "platform/glue/host.h"

void *GeAlloc(VLONG bytes) { return host_table ? host_table->general->allocate(bytes) : NULL; }

void *GeAllocNC(VLONG bytes) { return host_table ? host_table->general->allocate_uncleared(bytes) : NULL; }

void GeFreeMemory(void *memory) {
    if (memory && host_table) host_table->general->release(memory);
}

void *operator new(std::size_t bytes, LONG, const CHAR *) noexcept { return GeAlloc(static_cast<VLONG>(bytes)); }

void operator delete(void *memory, LONG, const CHAR *) noexcept { GeFreeMemory(memory); }
