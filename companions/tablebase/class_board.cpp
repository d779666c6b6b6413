#include "class_board.h"

#include "board/attacks.h"

namespace {

template <Direction D> Bitboard RayAttacks(int sq, Bitboard occupied) {
    constexpr bool up =
        D == EAST || D == NORTH || D == NORTH_EAST || D == NORTH_WEST; // squares grow
    const Bitboard ray = Ray[D][sq];
    const Bitboard blockers = ray & occupied;
    if (blockers == 0)
        return ray;
    return ray & ~Ray[D][up ? LowestSquare(blockers) : HighestSquare(blockers)];
}

Bitboard LineAttacks(int sq, Bitboard occupied) {
    return RayAttacks<EAST>(sq, occupied) | RayAttacks<WEST>(sq, occupied) |
           RayAttacks<NORTH>(sq, occupied) | RayAttacks<SOUTH>(sq, occupied);
}

Bitboard DiagonalAttacks(int sq, Bitboard occupied) {
    return RayAttacks<NORTH_EAST>(sq, occupied) | RayAttacks<SOUTH_WEST>(sq, occupied) |
           RayAttacks<NORTH_WEST>(sq, occupied) | RayAttacks<SOUTH_EAST>(sq, occupied);
}

bool AboveDiagonal(int sq) {
    return RankOf(sq) > FileOf(sq);
}

} // namespace

Bitboard AttacksOf(Piece piece, int side, int sq, Bitboard occupied) {
    switch (piece) {
    case KING:
        return KingAttacks[sq];
    case KNIGHT:
        return KnightAttacks[sq];
    case ROOK:
        return LineAttacks(sq, occupied);
    case BISHOP:
        return DiagonalAttacks(sq, occupied);
    case QUEEN:
        return LineAttacks(sq, occupied) | DiagonalAttacks(sq, occupied);
    default:
        return PawnAttacks[side][sq];
    }
}

ClassBoard::ClassBoard(int classNumber) {
    const TablebaseClass& c = TablebaseClasses[size_t(classNumber)];
    pawns = c.HasPawns();
    bothHavePawns = c.BothHavePawns();
    men[0] = {KING, TB_KINDS, 0};
    men[1] = {KING, TB_KINDS, 1};
    menCount = 2;
    for (int side = 0; side < 2; side++) {
        for (int k = 0; k < TB_KINDS; k++) {
            for (int i = 0; i < c.count[side][k]; i++)
                men[size_t(menCount++)] = {PieceOfKind[k], k, side};
        }
    }
    for (int sq = 0; sq < 64; sq++) {
        if (FileOf(sq) > 3 || (!pawns && AboveDiagonal(sq)) || (!pawns && RankOf(sq) > 3))
            continue;
        kingPlace[size_t(sq)] = int(kingSquares.size());
        kingSquares.push_back(sq);
    }
    places = Place(kingSquares.size()) << 6 * (menCount - 1);
}

ClassSquares ClassBoard::SquaresAt(Place place) const {
    ClassSquares s = {};
    for (int i = menCount - 1; i > 0; i--) {
        s[size_t(i)] = int(place & 63);
        place >>= 6;
    }
    s[0] = kingSquares[place];
    return s;
}

Place ClassBoard::FoldedPlaceOf(ClassSquares s) const {
    int change = FileOf(s[0]) > 3 ? 7 : 0;
    if (!pawns && RankOf(s[0]) > 3)
        change |= 56;
    for (int& sq : s)
        sq ^= change;
    return !pawns && AboveDiagonal(s[0]) ? Reflected(s) : PlaceOf(s);
}

Place ClassBoard::Reflected(ClassSquares s) const {
    for (int& sq : s)
        sq = FileOf(sq) * 8 + RankOf(sq);
    return PlaceOf(s);
}

bool ClassBoard::OnDiagonal(Place place) const {
    const int king = kingSquares[place >> 6 * (menCount - 1)];
    return !pawns && FileOf(king) == RankOf(king);
}

TablebaseMen ClassBoard::MenOf(const ClassSquares& s) const {
    TablebaseMen all = {};
    all.king[0] = s[0];
    all.king[1] = s[1];
    for (int i = 2; i < menCount; i++)
        all.men[men[size_t(i)].side][men[size_t(i)].kind] |= SquareBit(s[size_t(i)]);
    return all;
}

bool ClassBoard::Possible(const ClassSquares& s) const {
    if (CountBits(Occupied(s)) != menCount || (KingAttacks[s[0]] & SquareBit(s[1])) != 0)
        return false;
    for (int i = 2; i < menCount; i++) {
        if (men[size_t(i)].piece == PAWN && (SquareBit(s[size_t(i)]) & PROMOTION_RANKS) != 0)
            return false;
    }
    return true;
}

bool ClassBoard::Attacks(const ClassSquares& s, int side, int square) const {
    const Bitboard occupied = Occupied(s);
    for (int i = 0; i < menCount; i++) {
        const ClassMan& man = men[size_t(i)];
        if (man.side == side &&
            (AttacksOf(man.piece, side, s[size_t(i)], occupied) & SquareBit(square)) != 0)
            return true;
    }
    return false;
}

bool ClassBoard::AllowsEnPassant(const ClassSquares& s, int man, int from, int to) const {
    const bool doubleStep = men[size_t(man)].piece == PAWN && (to - from == 16 || from - to == 16);
    if (!doubleStep || !bothHavePawns)
        return false;
    const Bitboard beside = SquaresBeside(SquareBit(to));
    for (int i = 2; i < menCount; i++) {
        const ClassMan& other = men[size_t(i)];
        if (other.piece == PAWN && other.side != men[size_t(man)].side &&
            (SquareBit(s[size_t(i)]) & beside) != 0)
            return true;
    }
    return false;
}

// Where the man can go without leaving the class.
Bitboard ClassBoard::QuietTargets(const ClassSquares& s, int man, Bitboard occupied) const {
    const auto [piece, kind, side] = men[size_t(man)];
    const int sq = s[size_t(man)];
    if (piece != PAWN)
        return AttacksOf(piece, side, sq, occupied) & ~occupied;
    const int step = Forward(side);
    const Bitboard one = SquareBit(sq + step) & ~occupied & ~PROMOTION_RANKS;
    const bool home = RelativeRank(Colour(side), sq) == 1;
    return one != 0 && home ? one | (SquareBit(sq + 2 * step) & ~occupied) : one;
}

// Where the man can have come from without capturing.
Bitboard ClassBoard::Origins(const ClassSquares& s, int man, Bitboard occupied) const {
    const auto [piece, kind, side] = men[size_t(man)];
    const int sq = s[size_t(man)];
    if (piece != PAWN)
        return AttacksOf(piece, side, sq, occupied) & ~occupied;
    const int step = Forward(side);
    const Bitboard one = SquareBit(sq - step) & ~occupied & ~PROMOTION_RANKS;
    const int twoBack = sq - 2 * step;
    if (one != 0 && RelativeRank(Colour(side), sq) == 3 && !AllowsEnPassant(s, man, twoBack, sq))
        return one | (SquareBit(twoBack) & ~occupied);
    return one;
}
