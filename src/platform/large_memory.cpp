#include "platform/large_memory.h"

#ifdef _WIN32

#include <windows.h>

LargeBlock AllocateLargeBlock(size_t bytes) {
    void* const memory = VirtualAlloc(nullptr, bytes, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
    return memory == nullptr ? LargeBlock{} : LargeBlock{memory, bytes};
}

static void GiveBack(const LargeBlock& block) {
    VirtualFree(block.memory, 0, MEM_RELEASE);
}

#else

#include <cstdint>
#include <sys/mman.h>

static constexpr size_t LARGE_PAGE = size_t{1} << 21;

// The mapping takes a large page more than is asked for, and what lies before and behind the block
// goes back at once: only so does the block begin at a large page.
static LargeBlock MapAligned(size_t size) {
    void* const mapped = mmap(nullptr, size + LARGE_PAGE, PROT_READ | PROT_WRITE,
                              MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapped == MAP_FAILED)
        return {};
    char* const begin = static_cast<char*>(mapped);
    const size_t before = -reinterpret_cast<uintptr_t>(begin) % LARGE_PAGE;
    if (before != 0)
        munmap(begin, before);
    munmap(begin + before + size, LARGE_PAGE - before);
    return {begin + before, size};
}

LargeBlock AllocateLargeBlock(size_t bytes) {
    if (bytes > SIZE_MAX - 2 * LARGE_PAGE)
        return {};
    const LargeBlock block = MapAligned((bytes + LARGE_PAGE - 1) / LARGE_PAGE * LARGE_PAGE);
#ifdef MADV_HUGEPAGE
    // Only advice: without large pages the memory serves as well, more slowly.
    if (block.memory != nullptr)
        madvise(block.memory, block.bytes, MADV_HUGEPAGE);
#endif
    return block;
}

static void GiveBack(const LargeBlock& block) {
    munmap(block.memory, block.bytes);
}

#endif

void FreeLargeBlock(LargeBlock& block) {
    if (block.memory != nullptr)
        GiveBack(block);
    block = {};
}
