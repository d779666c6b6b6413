#include "front/commands/parameter_commands.h"

#include <cstdio>

#include "eval/derived_tables.h"
#include "eval/piece_square_tables.h"
#include "eval/values_file.h"
#include "search/hash_memory.h"

void ReloadValues(const CommandLine&) {
    LoadParameters();
    RefillPieceSquareTables();
    InitDerivedTables();
    // No score of the old parameters may come back.
    ClearAllHashTables();
}

void WriteValues(const CommandLine&) {
    if (WriteParameters())
        return;
    std::puts("Error writing values.txt");
    std::fflush(stdout);
}
