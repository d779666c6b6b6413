#include "board/draw_rules.h"

#include "board/position.h"

namespace {

constexpr int FIFTY_MOVE_PLIES = 100;
// A side cannot be back where it was before it has made two moves.
constexpr int SHORTEST_REPETITION = 4; // plies

} // namespace

bool FiftyMovesPassed() {
    return FiftyCount >= FIFTY_MOVE_PLIES;
}

// Counts the plies at which the position has stood, up to `wanted` of them, two plies at a time, as
// the same side must have been to move. `MayBePassed` tells whether a move does not end the search.
template <bool (*MayBePassed)(const UndoRecord&)> static bool HasRepeated(int wanted) {
    const auto pairMayBePassed = [](int ply) {
        return MayBePassed(UndoStack[ply]) && MayBePassed(UndoStack[ply + 1]);
    };
    if (Ply < SHORTEST_REPETITION || !pairMayBePassed(Ply - 2))
        return false;
    for (int ply = Ply - SHORTEST_REPETITION; ply >= 0 && pairMayBePassed(ply); ply -= 2) {
        if (UndoStack[ply].posKey == PosKey && --wanted == 0)
            return true;
    }
    return false;
}

static bool WasReversible(const UndoRecord& record) {
    return IsReversible(record.move);
}

static bool WasReversibleWithSameRights(const UndoRecord& record) {
    return IsReversible(record.move) && record.castleRights == CastleRights;
}

bool HasRepeatedOnce() {
    return FiftyCount >= SHORTEST_REPETITION && HasRepeated<WasReversible>(1);
}

bool HasRepeatedTwice() {
    return HasRepeated<WasReversibleWithSameRights>(2);
}

bool NoMateIsPossible() {
    const Bitboard knights = PieceBB[KNIGHT][WHITE] | PieceBB[KNIGHT][BLACK];
    const Bitboard bishops = PieceBB[BISHOP][WHITE] | PieceBB[BISHOP][BLACK];
    const Bitboard kings = PieceBB[KING][WHITE] | PieceBB[KING][BLACK];
    if ((knights | bishops | kings) != Occupied())
        return false;
    return CountBits(knights | bishops) <= 1 ||
           (knights == 0 && ((bishops & LIGHT_SQUARES) == 0 || (bishops & ~LIGHT_SQUARES) == 0));
}
