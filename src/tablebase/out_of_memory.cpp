#include "tablebase/out_of_memory.h"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstdlib>

void EndForLackOfMemory(size_t bytes) {
    std::printf("*** Cannot allocate %d bytes of memory\n", int(std::min<size_t>(bytes, INT_MAX)));
    std::fflush(stdout);
    std::exit(1);
}
