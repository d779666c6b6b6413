#include "search/root.h"

#include <algorithm>

#include "board/attackers.h"
#include "board/legal_moves.h"
#include "search/host.h"
#include "search/limits.h"

constinit int32_t RootMoveCount = 0;
constinit int32_t RootScores[MAX_ROOT_MOVES] = {};
constinit bool RootGivesCheck[MAX_ROOT_MOVES] = {};
constinit int64_t RootNodes[MAX_ROOT_MOVES] = {};
constinit int32_t RootIndex = 0;
constinit int32_t RootGamePly = 0;

int LineCount() {
    return std::max(1, std::min(MultiPV, RootMoveCount));
}

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

void SetOnlyRootMove(Move move) {
    MoveStack[0] = {move, 0};
    MoveStackTop = RootMoveCount = 1;
    RootGamePly = Ply;
    RootIndex = 0;
    RootScores[0] = 0;
    RootNodes[0] = 0;
    RootGivesCheck[0] = GivesCheck(move);
}

// Turns the entries [first, last) round so that `middle` comes first, in all parallel lists.
static void RotateEntries(int first, int middle, int last) {
    std::rotate(MoveStack + first, MoveStack + middle, MoveStack + last);
    std::rotate(RootScores + first, RootScores + middle, RootScores + last);
    std::rotate(RootGivesCheck + first, RootGivesCheck + middle, RootGivesCheck + last);
    std::rotate(RootNodes + first, RootNodes + middle, RootNodes + last);
}

void MoveEntry(int i, int place) {
    if (place <= i)
        RotateEntries(place, i, i + 1);
    else
        RotateEntries(i, i + 1, place + 1);
}

void SortRootMoves() {
    for (int i = 1; i < RootMoveCount; i++) {
        int place = i;
        while (place > 0 && MoveStack[place - 1].score < MoveStack[i].score)
            place--;
        MoveEntry(i, place);
    }
}

int RaiseByScore(int i) {
    int place = i;
    while (place > 0 && RootScores[place - 1] < RootScores[i])
        place--;
    MoveEntry(i, place);
    return place;
}

int LowerByScore(int i, int last) {
    int place = i;
    while (place < last && RootScores[place + 1] > RootScores[i])
        place++;
    MoveEntry(i, place);
    return place;
}

void ReorderByNodes(int first) {
    for (int i = first + 1; i < RootMoveCount; i++) {
        int place = i;
        while (place > first && RootNodes[place - 1] < RootNodes[i])
            place--;
        MoveEntry(i, place);
    }
}
