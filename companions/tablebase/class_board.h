// The positions of a class on an array's places, with the moves that stay within the class.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "tablebase/classes.h"
#include "tablebase/table_index.h"

// A man of the class.
struct ClassMan {
    Piece piece;
    int kind; // TB_KINDS for a king
    int side;
};

constexpr int MAX_CLASS_MEN = 4;
constexpr int NO_MAN = -1;
constexpr Bitboard PROMOTION_RANKS = 0xff000000000000ff;

// The king of side 0, the king of side 1, then the other men, those of side 0 first.
using ClassSquares = std::array<int, MAX_CLASS_MEN>;
// Place of a position in an array.
using Place = uint32_t;

// Squares that a man of the piece attacks. The engine's own sliding attacks read the one board that
// it has; here several threads have positions of their own.
Bitboard AttacksOf(Piece piece, int side, int sq, Bitboard occupied);

// A step ahead of a pawn as a difference of squares.
inline int Forward(int side) {
    return side == WHITE ? 8 : -8;
}

// Positions are folded by the symmetries of the board, so that the king of side 0 stands on files a
// to d or, without pawns, in the triangle a1-d1-d4. On the triangle's diagonal a position and its
// reflection both have a place.
class ClassBoard {
public:
    // For a class of up to MAX_CLASS_MEN men.
    explicit ClassBoard(int classNumber);

    int MenCount() const {
        return menCount;
    }
    const ClassMan& Man(int man) const {
        return men[size_t(man)];
    }
    Place Places() const {
        return places;
    }
    // For squares with the king of side 0 where it is kept.
    Place PlaceOf(const ClassSquares& s) const {
        auto place = Place(kingPlace[size_t(s[0])]);
        for (int i = 1; i < menCount; i++)
            place = place << 6 | Place(s[size_t(i)]);
        return place;
    }
    // For any squares.
    Place FoldedPlaceOf(ClassSquares s) const;
    ClassSquares SquaresAt(Place place) const;
    TablebaseMen MenOf(const ClassSquares& s) const;

    Bitboard Occupied(const ClassSquares& s) const {
        Bitboard occupied = 0;
        for (int i = 0; i < menCount; i++)
            occupied |= SquareBit(s[size_t(i)]);
        return occupied;
    }
    // Whether no square is taken twice, the kings are apart and pawns stand where they can.
    bool Possible(const ClassSquares& s) const;
    bool Attacks(const ClassSquares& s, int side, int square) const;
    // Whether a move of the man is a double step to beside an enemy pawn.
    bool AllowsEnPassant(const ClassSquares& s, int man, int from, int to) const;

    // Calls `visit` for every move of the side that stays within the class, legal or not, until it
    // returns true; whether it did. Arguments: the squares and the place after the move, the man,
    // the square that it comes from.
    template <typename Visit> bool AnyQuietMove(const ClassSquares& s, int side, Visit visit) const;

    // Calls `visit` with every place from which the side that is not to move can have come within
    // the class; with illegal positions among them, and without double steps that allow en passant.
    template <typename Visit> void ForEachPredecessor(Place place, int side, Visit visit) const;

private:
    Place Reflected(ClassSquares s) const;
    bool OnDiagonal(Place place) const;
    Bitboard QuietTargets(const ClassSquares& s, int man, Bitboard occupied) const;
    Bitboard Origins(const ClassSquares& s, int man, Bitboard occupied) const;

    bool pawns;
    bool bothHavePawns;
    int menCount = 0;
    std::array<ClassMan, MAX_CLASS_MEN> men = {};
    std::vector<int> kingSquares; // squares of the king of side 0 in order
    std::array<int, 64> kingPlace = {};
    Place places = 0;
};

template <typename Visit>
bool ClassBoard::AnyQuietMove(const ClassSquares& s, int side, Visit visit) const {
    const Bitboard occupied = Occupied(s);
    for (int i = 0; i < menCount; i++) {
        if (men[size_t(i)].side != side)
            continue;
        ClassSquares next = s;
        for (Bitboard to = QuietTargets(s, i, occupied); to != 0;) {
            next[size_t(i)] = PopLowest(to);
            if (visit(next, i == 0 ? FoldedPlaceOf(next) : PlaceOf(next), i, s[size_t(i)]))
                return true;
        }
    }
    return false;
}

template <typename Visit>
void ClassBoard::ForEachPredecessor(Place place, int side, Visit visit) const {
    const ClassSquares s = SquaresAt(place);
    const Bitboard occupied = Occupied(s);
    for (int i = 0; i < menCount; i++) {
        if (men[size_t(i)].side == side)
            continue;
        ClassSquares previous = s;
        for (Bitboard from = Origins(s, i, occupied); from != 0;) {
            previous[size_t(i)] = PopLowest(from);
            if (i != 0) {
                visit(PlaceOf(previous));
                continue;
            }
            const Place folded = FoldedPlaceOf(previous);
            visit(folded);
            // After the king's move the reflected position is folded to this same one.
            if (OnDiagonal(folded))
                visit(Reflected(SquaresAt(folded)));
        }
    }
}
