#include "front/commands/parameter_commands.h"

#include <cstdio>

#include "eval/derived_tables.h"
#include "eval/parameters/piece_square_tables.h"
#include "eval/parameters/values_file.h"
#include "search/driver_state.h"
#include "search/hash_memory.h"
#include "search/tree/driver.h"
#include "search/tree/pruning_margins.h"

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

void CleanTables(const CommandLine&) {
    ClearSearchMemory();
    ForgetLastScore();
}

template <int Band> void SetPruneMargin(const CommandLine& line) {
    PruneBands[Band].margin = line.Number(1, PruneBands[Band].margin);
}
template <int Band> void SetPruneCoefficient(const CommandLine& line) {
    PruneBands[Band].coefficient = line.Number(1, PruneBands[Band].coefficient);
}
template void SetPruneMargin<0>(const CommandLine&);
template void SetPruneMargin<1>(const CommandLine&);
template void SetPruneMargin<2>(const CommandLine&);
template void SetPruneCoefficient<0>(const CommandLine&);
template void SetPruneCoefficient<1>(const CommandLine&);
template void SetPruneCoefficient<2>(const CommandLine&);
