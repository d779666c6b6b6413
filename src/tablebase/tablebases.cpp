#include "tablebase/tablebases.h"

#include <cstdio>

#include "board/pawns.h"
#include "board/position.h"
#include "tablebase/block_cache.h"
#include "tablebase/classes.h"
#include "tablebase/registry.h"
#include "tablebase/table_index.h"

constinit TablebaseSettings Tablebases = {};

namespace {

constinit int MostMen = 0; // of an open table; 0 while none may be asked

constexpr int KILOBYTE = 1024;
constexpr int TURN_OVER = 56; // top to bottom, as an exclusive or with a square

// They place mates just below those that the search finds on the board.
constexpr int32_t WIN_OFFSET = -32834;
constexpr int32_t LOSS_OFFSET = 32832;
// Mates in up to 149 moves are counted from the root like those of the search; longer ones, which
// no search could find, keep their score.
constexpr int32_t LEAST_MATE = 32401;

} // namespace

void SetEgtbPath(const char* path) {
    std::snprintf(Tablebases.EgtbPath, sizeof Tablebases.EgtbPath, "%s", path);
}

void OpenTablebases() {
    MostMen = RegisterTablebases(Tablebases.EgtbPath);
}

void AllocateTablebaseCache() {
    if (AllocateBlockCache(Tablebases.EgtbCacheBytes))
        return;
    std::puts("An error occured while memory allocation!");
    std::fflush(stdout);
    MostMen = 0;
}

void CloseTablebases() {
    MostMen = 0;
    ForgetTablebases();
    FreeBlockCache();
}

int LargestTablebase() {
    return MostMen;
}

void PrintTablebaseCount() {
    if (MostMen != 0)
        std::printf("%d piece EGTB files found\n", MostMen);
    else
        std::puts("EGTB files not found");
    if (const int64_t bytes = TablebaseMemory(); bytes != 0)
        std::printf("%dkb of RAM used for TB indices and decompression tables\n",
                    int((bytes + KILOBYTE - 1) / KILOBYTE));
    std::fflush(stdout);
}

// The square of a pawn that has just made a double step past a pawn of the side to move, else
// NO_EN_PASSANT.
static int EnPassantSquare(Colour side) {
    return EnPassantTakers(side) != 0 ? To(LastMove()) : NO_EN_PASSANT;
}

static int32_t ScoreOf(int32_t value) {
    return value > 0 ? 2 * value + WIN_OFFSET : value < 0 ? 2 * value + LOSS_OFFSET : 0;
}

int ProbeTablebase(Colour side, int32_t& score) {
    bool swapped = false;
    const int number = FindTablebaseClass(PieceCount, swapped);
    // Boards set up by hand may have too many kings, or none.
    if (number == 0 || TablebaseClasses[size_t(number)].men != MenCount)
        return 0;
    Colour mover = swapped ? ChangeSide(side) : side;
    TableFile* table = RegisteredTable(number, mover);
    if (table == nullptr && TablebaseClasses[size_t(number)].symmetric) {
        // The same men with colours exchanged stand in the other file.
        swapped = true;
        mover = ChangeSide(mover);
        table = RegisteredTable(number, mover);
    }
    if (table == nullptr)
        return 0;
    int ep = EnPassantSquare(side);
    if (ep != NO_EN_PASSANT && swapped)
        ep ^= TURN_OVER;
    const uint64_t index = TableIndex(number, mover, CollectTablebaseMen(swapped), ep);
    int32_t value = 0;
    if (index == NO_ENTRY || !ReadTableEntry(*table, index, value) || value == BROKEN_WORD)
        return 0;
    score = ScoreOf(value);
    return 1;
}

int32_t TablebaseScoreAt(int ply, int32_t score) {
    if (score >= LEAST_MATE)
        return score + 1 - ply;
    return score <= -LEAST_MATE ? score + ply : score;
}
