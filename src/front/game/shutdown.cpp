#include "front/game/shutdown.h"

#include <cstdio>
#include <cstdlib>

#include "book/learning_file.h"
#include "search/hash_memory.h"

void EndProgram() {
    std::fflush(stdout);
    CloseLearningFile();
    FreeHashTables();
    std::exit(0);
}
