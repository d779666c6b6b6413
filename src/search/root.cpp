#include "search/root.h"

#include <algorithm>
#include <cassert>

#include "board/attackers.h"
#include "board/moves/legal_moves.h"
#include "board/position.h"
#include "search/host.h"
#include "search/limits.h"

constinit RootList Root;

int LineCount() {
    return std::max(1, std::min(SearchOptions.MultiPV, Root.count));
}

static void AddRootMove(const ScoredMove& generated) {
    Root.moves[Root.count++] = {generated.move, generated.score, 0, GivesCheck(generated.move), 0};
}

static bool IsSearchMove(const RootEntry& entry) {
    return std::count(Limits.SearchMoves, Limits.SearchMoves + Limits.SearchMoveCount, entry.move) >
           0;
}

// Keeps the moves that the search was restricted to, if any of them is legal.
static void RestrictToSearchMoves() {
    int kept = 0;
    for (int i = 0; i < Root.count; i++) {
        if (IsSearchMove(Root.moves[i]))
            std::swap(Root.moves[kept++], Root.moves[i]);
    }
    if (kept > 0)
        Root.count = kept;
}

static void EmptyRootList() {
    MoveStackTop = 0;
    Root.count = 0;
    Root.index = 0;
    Root.gamePly = Ply;
}

bool PrepareRoot() {
    EmptyRootList();
    Host.announceDraw();
    const int legal = GenerateLegalMoves();
    for (int i = 0; i < legal; i++)
        AddRootMove(MoveStack[i]);
    MoveStackTop = 0;
    if (Root.count == 0) {
        Host.announceGameOver();
        return false;
    }
    RestrictToSearchMoves();
    return true;
}

void SetOnlyRootMove(Move move) {
    EmptyRootList();
    AddRootMove({move, 0});
}

void SetRootScores(int32_t score) {
    for (int i = 0; i < Root.count; i++)
        Root.moves[i].score = score;
}

void MoveEntry(int i, int place) {
    assert(0 <= i && i < Root.count && 0 <= place && place < Root.count);
    if (place <= i)
        std::rotate(Root.moves + place, Root.moves + i, Root.moves + i + 1);
    else
        std::rotate(Root.moves + i, Root.moves + i + 1, Root.moves + place + 1);
}

// Sorts entries `first` and up by a figure, highest first; equal ones keep their order.
template <typename Figure> static void SortFrom(int first, Figure figure) {
    std::stable_sort(
        Root.moves + first, Root.moves + Root.count,
        [figure](const RootEntry& a, const RootEntry& b) { return a.*figure > b.*figure; });
}

void SortRootMoves() {
    SortFrom(0, &RootEntry::orderScore);
}

void ReorderByNodes(int first) {
    SortFrom(first, &RootEntry::nodes);
}

int RaiseByScore(int i) {
    int place = i;
    while (place > 0 && Root.moves[place - 1].score < Root.moves[i].score)
        place--;
    MoveEntry(i, place);
    return place;
}

int LowerByScore(int i, int last) {
    int place = i;
    while (place < last && Root.moves[place + 1].score > Root.moves[i].score)
        place++;
    MoveEntry(i, place);
    return place;
}
