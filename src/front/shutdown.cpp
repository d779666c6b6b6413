#include "front/shutdown.h"

#include <cstdio>
#include <cstdlib>

#include "search/hash_memory.h"

void EndProgram() {
    std::fflush(stdout);
    FreeHashTables();
    std::exit(0);
}
