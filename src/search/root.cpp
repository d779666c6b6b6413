#include "search/root.h"

#include <algorithm>

#include "board/attack_tests.h"
#include "board/legal_moves.h"
#include "search/host.h"
#include "search/limits.h"

constinit int32_t RootMoveCount = 0;
constinit int32_t RootScores[MAX_ROOT_MOVES] = {};
constinit bool RootGivesCheck[MAX_ROOT_MOVES] = {};
constinit int64_t RootNodes[MAX_ROOT_MOVES] = {};
constinit int32_t RootIndex = 0;
constinit int32_t RootGamePly = 0;

// Keeps the moves that the search was restricted to, if any of them is legal.
static void RestrictToSearchMoves() {
    int kept = 0;
    for (int i = 0; i < MoveStackTop; i++) {
        if (std::count(SearchMoves, SearchMoves + SearchMoveCount, MoveStack[i].move) > 0)
            std::swap(MoveStack[kept++], MoveStack[i]);
    }
    if (kept > 0)
        MoveStackTop = kept;
}

bool PrepareRoot() {
    MoveStackTop = 0;
    RootGamePly = Ply;
    RootIndex = 0;
    Host.announceDraw();
    RootMoveCount = GenerateLegalMoves();
    if (RootMoveCount == 0) {
        Host.announceGameOver();
        return false;
    }
    if (SearchMoveCount > 0)
        RestrictToSearchMoves();
    RootMoveCount = MoveStackTop;
    for (int i = 0; i < RootMoveCount; i++) {
        RootScores[i] = 0;
        RootNodes[i] = 0;
        RootGivesCheck[i] = GivesCheck(RootMove(i));
    }
    return true;
}

// Turns the entries [first, last) round so that `middle` comes first, in all parallel lists.
static void RotateEntries(int first, int middle, int last) {
    std::rotate(MoveStack + first, MoveStack + middle, MoveStack + last);
    std::rotate(RootScores + first, RootScores + middle, RootScores + last);
    std::rotate(RootGivesCheck + first, RootGivesCheck + middle, RootGivesCheck + last);
    std::rotate(RootNodes + first, RootNodes + middle, RootNodes + last);
}

// Moves entry `i` up to `place`; those between shift down one place.
static void MoveEntry(int i, int place) {
    RotateEntries(place, i, i + 1);
}

void SortRootMoves() {
    for (int i = 1; i < RootMoveCount; i++) {
        int place = i;
        while (place > 0 && MoveStack[place - 1].score < MoveStack[i].score)
            place--;
        MoveEntry(i, place);
    }
}

void MoveToFront(int i) {
    MoveEntry(i, 0);
}

void MoveFromFront(int i) {
    RotateEntries(0, 1, i + 1);
}

void ReorderByNodes() {
    for (int i = 2; i < RootMoveCount; i++) {
        int place = i;
        while (place > 1 && RootNodes[place - 1] < RootNodes[i])
            place--;
        MoveEntry(i, place);
    }
}
