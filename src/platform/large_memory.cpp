#include "platform/large_memory.h"

#include <cstdlib>

#ifdef _WIN32

void* AllocateLargeMemory(size_t bytes) {
    return std::calloc(bytes, 1);
}

#else

#include <cstdint>
#include <cstring>
#include <sys/mman.h>

static constexpr size_t LARGE_PAGE = size_t{1} << 21;

void* AllocateLargeMemory(size_t bytes) {
    if (bytes < LARGE_PAGE)
        return std::calloc(bytes, 1);
    if (bytes > SIZE_MAX - LARGE_PAGE)
        return nullptr;
    const size_t size = (bytes + LARGE_PAGE - 1) / LARGE_PAGE * LARGE_PAGE;
    void* const memory = std::aligned_alloc(LARGE_PAGE, size);
    if (memory == nullptr)
        return nullptr;
#ifdef MADV_HUGEPAGE
    // Only advice: without large pages the memory serves as well, more slowly.
    madvise(memory, size, MADV_HUGEPAGE);
#endif
    std::memset(memory, 0, size);
    return memory;
}

#endif

void FreeLargeMemory(void* memory) {
    std::free(memory);
}
