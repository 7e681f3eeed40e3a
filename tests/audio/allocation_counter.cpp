// Replaces the global operators of the test program it is linked into.
#include "audio/allocation_counter.h"

#include <cstdlib>
#include <new>

namespace {
thread_local long allocations = 0;
}

long tamlo::AllocationsOfThisThread() {
    return allocations;
}

void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size)) return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    ++allocations;
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    ++allocations;
    std::free(memory);
}
