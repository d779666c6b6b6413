#include "move_counter.h"

#include "board/moves/generate.h"
#include "board/moves/legal_moves.h"
#include "board/moves/make_move.h"
#include "coordinates.h"

namespace {

// What a move is worth that leads to a position nobody has searched.
int16_t ScoreAfter(Move move, const SearchedPositions& searched) {
    MakeMove(move, true);
    const std::optional<int> score = searched.Score(KeysOfPosition());
    UnmakeMove();
    return score ? int16_t(-*score) : NO_SCORE;
}

} // namespace

MoveCount& MoveCounter::Entry(Move move) {
    bool isNew = false;
    MoveCount& entry = table.Entry(KeysOfPosition(), From(move), To(move), isNew);
    if (isNew && !searched.All().empty())
        entry.score = ScoreAfter(move, searched);
    return entry;
}

static void AddMovesBetween(MoveCounter& counter) {
    const int start = MoveStackTop;
    const int end = start + GenerateLegalMoves();
    for (int i = start; i < end; i++) {
        const Move move = MoveStack[i].move;
        if (FitsBook(move) && ScoreAfter(move, counter.searched) != NO_SCORE)
            counter.Entry(move);
    }
    MoveStackTop = start;
}

void MoveCounter::AddSearchedMoves() {
    for (const SearchedPosition& position : searched.All()) {
        position.SetUp();
        AddMovesBetween(*this);
        // A capture en passant is not found: the columns do not tell whether it is possible.
        const Move best = LegalMoveFromCoordinates(position.best);
        if (best == NO_MOVE)
            continue;
        MoveCount& entry = Entry(best);
        if (entry.score == NO_SCORE)
            entry.score = int16_t(position.score);
    }
}
