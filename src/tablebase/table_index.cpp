#include "tablebase/table_index.h"

#include <array>
#include <new>

#include "board/pawns.h"
#include "board/position.h"

// The scheme. The board is mirrored, without pawns also turned and reflected in the long diagonal,
// until the king of the side to move stands on one of a few squares. The pair of kings chooses a
// block; where blocks begin are running sums, since a block's length depends on the pair. Within
// its block a position is numbered by the squares of the men of the side to move, and then by those
// of the others. Like men are a set of squares, numbered among all sets of that size.
//
// Men of the side to move do not stand where they would give a check that nothing can block.
// Otherwise the lists of squares leave out less than they could, so that there are entries which no
// position belongs to.

namespace {

constexpr int PAIRS_WITHOUT_PAWNS = 462;
constexpr int PAIRS_WITH_PAWNS = 1806;
constexpr uint16_t NO_PAIR = UINT16_MAX;

constexpr int MIRROR = 7;     // left to right, as an exclusive or with a square
constexpr int TURN_OVER = 56; // top to bottom
constexpr Bitboard PAWN_SQUARES = 0x00ffffffffffff00;
constexpr int PAWN_SQUARE_COUNT = 48;
constexpr int SQUARES_BESIDE_KINGS = 62;
// Places of two pawns side by side on one rank, by who stands left.
constexpr uint64_t EN_PASSANT_SLOTS = 14;
constexpr int FIRST_SLOT_FROM_LEFT = 7; // of the capturing pawn's file

// Symmetries of the board are numbered by what is done, in this order.
constexpr int LEFT_TO_RIGHT = 1;
constexpr int TOP_TO_BOTTOM = 2;
constexpr int IN_DIAGONAL = 4; // a1-h8
using SymmetryTable = std::array<std::array<uint8_t, 64>, 8>;

constexpr SymmetryTable MakeImages() {
    SymmetryTable table = {};
    for (int symmetry = 0; symmetry < 8; symmetry++) {
        for (int sq = 0; sq < 64; sq++) {
            int to = sq;
            if (symmetry & LEFT_TO_RIGHT)
                to ^= MIRROR;
            if (symmetry & TOP_TO_BOTTOM)
                to ^= TURN_OVER;
            if (symmetry & IN_DIAGONAL)
                to = FileOf(to) * 8 + RankOf(to);
            table[size_t(symmetry)][size_t(sq)] = uint8_t(to);
        }
    }
    return table;
}

constexpr SymmetryTable Images = MakeImages();

constexpr int Distance(int from, int to) {
    const int files = FileOf(from) - FileOf(to);
    const int ranks = RankOf(from) - RankOf(to);
    const int f = files < 0 ? -files : files;
    const int r = ranks < 0 ? -ranks : ranks;
    return f > r ? f : r;
}

constexpr int AboveDiagonal(int sq) {
    return RankOf(sq) - FileOf(sq);
}

// The pairs of kings in their order: by the square of the own king, then by that of the other.
struct KingPairs {
    int length;
    uint8_t own[PAIRS_WITH_PAWNS];
    uint8_t other[PAIRS_WITH_PAWNS];
    uint16_t number[64][64]; // [own][other]
};

constexpr KingPairs MakeKingPairs(bool pawns) {
    KingPairs pairs = {};
    for (int own = 0; own < 64; own++) {
        const bool kept =
            FileOf(own) <= 3 && (pawns || AboveDiagonal(own) <= 0) && (pawns || RankOf(own) <= 3);
        for (int other = 0; other < 64; other++) {
            const bool reflected = !pawns && AboveDiagonal(own) == 0 && AboveDiagonal(other) > 0;
            pairs.number[own][other] = NO_PAIR;
            if (!kept || reflected || Distance(own, other) <= 1)
                continue;
            pairs.own[pairs.length] = uint8_t(own);
            pairs.other[pairs.length] = uint8_t(other);
            pairs.number[own][other] = uint16_t(pairs.length++);
        }
    }
    return pairs;
}

constexpr KingPairs Pairs[2] = {MakeKingPairs(false), MakeKingPairs(true)}; // [with pawns]
static_assert(Pairs[0].length == PAIRS_WITHOUT_PAWNS && Pairs[1].length == PAIRS_WITH_PAWNS);

// Squares from which a man of the kind, whose pawns go up the board, checks a king so that nothing
// can be put between.
constexpr Bitboard ChecksFromNearby(int kind, int king) {
    Bitboard checks = 0;
    for (int sq = 0; sq < 64; sq++) {
        const int files = FileOf(sq) - FileOf(king);
        const int ranks = RankOf(king) - RankOf(sq);
        const bool beside = Distance(sq, king) == 1;
        const bool line = files == 0 || ranks == 0;
        const bool leaps = files * files + ranks * ranks == 5;
        const bool found[TB_KINDS] = {beside, beside && line, beside && !line, leaps,
                                      beside && !line && ranks == 1};
        if (found[kind])
            checks |= SquareBit(sq);
    }
    return checks;
}

using OpenTable = std::array<std::array<Bitboard, 64>, TB_KINDS>;

// By kind and the other king: where men of the side to move may stand, kings apart.
constexpr OpenTable MakeOpenSquares() {
    OpenTable table = {};
    for (int kind = 0; kind < TB_KINDS; kind++) {
        for (int king = 0; king < 64; king++) {
            const Bitboard all = kind == TB_PAWN ? PAWN_SQUARES : ~Bitboard{0};
            table[size_t(kind)][size_t(king)] = all & ~ChecksFromNearby(kind, king);
        }
    }
    return table;
}

constexpr OpenTable OpenSquares = MakeOpenSquares();

// Sets of `size` elements out of `n`.
constexpr uint64_t Sets(int n, int size) {
    const auto m = uint64_t(n < 0 ? 0 : n);
    switch (size) {
    case 0:
        return 1;
    case 1:
        return m;
    case 2:
        return m < 2 ? 0 : m * (m - 1) / 2;
    default:
        return m < 3 ? 0 : m * (m - 1) * (m - 2) / 6;
    }
}

// Number of a set of squares, all of them in `allowed`, among the sets of its size.
uint64_t SetNumber(Bitboard set, Bitboard allowed) {
    uint64_t number = 0;
    for (int size = 1; set != 0; size++) {
        const int sq = PopLowest(set);
        number += Sets(CountBits(allowed & (SquareBit(sq) - 1)), size);
    }
    return number;
}

// How many men of each kind there are to be numbered: those of the class, or, after a double step,
// without the two pawns that stand beside each other.
struct Counts {
    int own[TB_KINDS];
    int other[TB_KINDS];
    int ownMen;
    int otherMen;
    int ownPawns; // all of the class
    bool afterDoubleStep;
};

Counts CountsOf(const TablebaseClass& c, Colour side, bool afterDoubleStep) {
    Counts counts = {};
    counts.afterDoubleStep = afterDoubleStep;
    for (int k = 0; k < TB_KINDS; k++) {
        const int beside = afterDoubleStep && k == TB_PAWN ? 1 : 0;
        counts.own[k] = c.count[side][k] - beside;
        counts.other[k] = c.count[ChangeSide(side)][k] - beside;
        counts.ownMen += counts.own[k];
        counts.otherMen += counts.other[k];
    }
    counts.ownPawns = c.count[side][TB_PAWN];
    return counts;
}

// The squares that lists of the other side leave out do not depend on where they are: here is how
// many are left, for a board on which the own king has no pawn on its square.
uint64_t OtherSets(const Counts& counts, int ownKing, int otherKing) {
    const bool bare = counts.ownMen == 0 && !counts.afterDoubleStep;
    const Bitboard kings = SquareBit(ownKing) | SquareBit(otherKing);
    const int forPawns = PAWN_SQUARE_COUNT - (bare ? CountBits(PAWN_SQUARES & kings)
                                                   : counts.ownPawns + counts.afterDoubleStep);
    uint64_t sets = Sets(forPawns, counts.other[TB_PAWN]);
    int squares =
        SQUARES_BESIDE_KINGS - counts.ownMen - counts.other[TB_PAWN] - 2 * counts.afterDoubleStep;
    for (int k = TB_QUEEN; k < TB_PAWN; k++) {
        sets *= Sets(squares, counts.other[k]);
        squares -= counts.other[k];
    }
    return sets;
}

// Both kings on the board as the side to move sees it, its pawns going up.
uint64_t OwnSets(const Counts& counts, int ownKing, int otherKing) {
    const Bitboard kings = SquareBit(ownKing) | SquareBit(otherKing);
    uint64_t sets = 1;
    for (int k = 0; k < TB_KINDS; k++) {
        const Bitboard open = OpenSquares[size_t(k)][size_t(otherKing)] & ~kings;
        sets *= Sets(CountBits(open), counts.own[k]);
    }
    return sets;
}

uint64_t BlockLength(const Counts& counts, int ownKing, int otherKing) {
    return OwnSets(counts, ownKing, otherKing) * OtherSets(counts, ownKing, otherKing);
}

// What the kings of a pair are turned by before their block is measured. Black's en-passant range
// is the only one whose pairs are those of the real board.
int TurnOfBlocks(const TablebaseClass& c, Colour side, bool enPassantRange) {
    return enPassantRange && side == BLACK && c.HasPawns() ? TURN_OVER : 0;
}

// Entries of a range; its running sums are written to `sums` unless that is null.
uint64_t SumBlocks(const TablebaseClass& c, Colour side, bool enPassantRange, uint64_t first,
                   uint64_t* sums) {
    const KingPairs& pairs = Pairs[c.HasPawns()];
    const Counts counts = CountsOf(c, side, enPassantRange);
    const int turn = TurnOfBlocks(c, side, enPassantRange);
    uint64_t sum = first;
    for (int i = 0; i < pairs.length; i++) {
        if (sums != nullptr)
            sums[i] = sum;
        const uint64_t block = BlockLength(counts, pairs.own[i] ^ turn, pairs.other[i] ^ turn);
        sum += enPassantRange ? EN_PASSANT_SLOTS * block : block;
    }
    return sum;
}

// Running sums of a class and side: the main range, after it the en-passant range where there is
// one.
constinit std::array<uint64_t*, 2> RunningSums[TABLEBASE_CLASSES + 1] = {};
constinit size_t SumsMemory = 0;

size_t PairCount(const TablebaseClass& c) {
    return c.HasPawns() ? PAIRS_WITH_PAWNS : PAIRS_WITHOUT_PAWNS;
}

size_t SumCount(const TablebaseClass& c) {
    return PairCount(c) * (c.BothHavePawns() ? 2 : 1);
}

// A position after its symmetry has been applied, from the side to move.
struct Placement {
    int ownKing; // real squares
    int otherKing;
    const Bitboard* own; // by kind, real squares
    const Bitboard* other;
    int turn; // what turns real squares into those that the side to move sees
};

Bitboard Turned(Bitboard b, int turn) {
    return turn != 0 ? __builtin_bswap64(b) : b;
}

// False when a man stands where it would give check from nearby, or on a king.
bool NumberOwnMen(const Placement& p, uint64_t& number) {
    const int otherKing = p.otherKing ^ p.turn;
    const Bitboard kings = SquareBit(p.ownKing ^ p.turn) | SquareBit(otherKing);
    for (int k = 0; k < TB_KINDS; k++) {
        if (p.own[k] == 0)
            continue;
        const Bitboard men = Turned(p.own[k], p.turn);
        const Bitboard open = OpenSquares[size_t(k)][size_t(otherKing)] & ~kings;
        if ((men & ~open) != 0)
            return false;
        number = number * Sets(CountBits(open), CountBits(men)) + SetNumber(men, open);
    }
    return true;
}

Bitboard UnionOf(const Bitboard* men) {
    return men[TB_QUEEN] | men[TB_ROOK] | men[TB_BISHOP] | men[TB_KNIGHT] | men[TB_PAWN];
}

// `besides` are men that have been numbered in another way and stand on squares of their own.
// False when two men share a square, or a pawn stands on the first or last rank.
bool NumberOtherMen(const Placement& p, Bitboard besides, uint64_t& number) {
    const Bitboard kings = SquareBit(p.ownKing) | SquareBit(p.otherKing);
    const Bitboard own = UnionOf(p.own);
    const Bitboard pawns = p.other[TB_PAWN];
    if (pawns != 0) {
        // Against a bare king the pawns are numbered as the side to move sees them.
        const bool bare = (own | besides) == 0;
        const Bitboard taken = bare ? kings : p.own[TB_PAWN] | besides;
        const Bitboard open = PAWN_SQUARES & ~taken;
        if ((pawns & ~open) != 0)
            return false;
        const int turn = bare ? p.turn : 0;
        number = number * Sets(CountBits(open), CountBits(pawns)) +
                 SetNumber(Turned(pawns, turn), Turned(open, turn));
    }
    Bitboard open = ~(kings | own | pawns | besides);
    for (int k = TB_QUEEN; k < TB_PAWN; k++) {
        const Bitboard men = p.other[k];
        if (men == 0)
            continue;
        if ((men & ~open) != 0)
            return false;
        number = number * Sets(CountBits(open), CountBits(men)) + SetNumber(men, open);
        open &= ~men;
    }
    return true;
}

// The pawn of the side to move that may take en passant: of two the left one. -1 for none.
int CapturingPawn(Bitboard ownPawns, int epSquare) {
    const Bitboard beside = ownPawns & SquaresBeside(SquareBit(epSquare));
    return beside != 0 ? LowestSquare(beside) : -1;
}

// The range for positions with a pawn that may be taken en passant: by the kings' pair on the real
// board, the two pawns, and then the other men as in the main range. Beyond king and pawn against
// king and pawn, where there are no other men, that is a guess.
uint64_t EnPassantIndex(const uint64_t* sums, const Placement& p, int epSquare, int capturing) {
    const uint16_t pair = Pairs[1].number[p.ownKing][p.otherKing];
    const bool fromRight = capturing > epSquare;
    const int slot = fromRight ? FileOf(epSquare) : FIRST_SLOT_FROM_LEFT + FileOf(capturing);
    Bitboard own[TB_KINDS];
    Bitboard other[TB_KINDS];
    for (int k = 0; k < TB_KINDS; k++) {
        own[k] = p.own[k];
        other[k] = p.other[k];
    }
    own[TB_PAWN] &= ~SquareBit(capturing);
    other[TB_PAWN] &= ~SquareBit(epSquare);
    const Placement rest = {p.ownKing, p.otherKing, own, other, p.turn};
    auto number = uint64_t(slot);
    if (!NumberOwnMen(rest, number) ||
        !NumberOtherMen(rest, SquareBit(capturing) | SquareBit(epSquare), number))
        return NO_ENTRY;
    return sums[PAIRS_WITH_PAWNS + pair] + number;
}

// The symmetry that brings the king of the side to move to where it is numbered.
int SymmetryOf(bool pawns, int ownKing, int otherKing) {
    int symmetry = FileOf(ownKing) > 3 ? LEFT_TO_RIGHT : 0;
    if (pawns)
        return symmetry;
    if (RankOf(ownKing) > 3)
        symmetry |= TOP_TO_BOTTOM;
    const auto& images = Images[size_t(symmetry)];
    const int own = AboveDiagonal(images[size_t(ownKing)]);
    const int other = AboveDiagonal(images[size_t(otherKing)]);
    return own > 0 || (own == 0 && other > 0) ? symmetry | IN_DIAGONAL : symmetry;
}

void ApplySymmetry(const Bitboard* men, int symmetry, Bitboard* images) {
    for (int k = 0; k < TB_KINDS; k++) {
        images[k] = 0;
        for (Bitboard rest = men[k]; rest != 0;)
            images[k] |= SquareBit(Images[size_t(symmetry)][size_t(PopLowest(rest))]);
    }
}

} // namespace

TablebaseMen CollectTablebaseMen(bool swapped) {
    TablebaseMen men;
    const int turn = swapped ? TURN_OVER : 0;
    for (int side = 0; side < 2; side++) {
        const int colour = side ^ int(swapped);
        men.king[side] = KingSquare[colour] ^ turn;
        for (int k = 0; k < TB_KINDS; k++)
            men.men[side][k] = Turned(PieceBB[PieceOfKind[k]][colour], turn);
    }
    return men;
}

bool PrepareIndex(int classNumber, Colour side) {
    uint64_t*& sums = RunningSums[classNumber][size_t(side)];
    if (sums != nullptr)
        return true;
    const TablebaseClass& c = TablebaseClasses[size_t(classNumber)];
    sums = new (std::nothrow) uint64_t[SumCount(c)];
    if (sums == nullptr)
        return false;
    SumsMemory += IndexMemory(classNumber);
    const uint64_t end = SumBlocks(c, side, false, 0, sums);
    if (c.BothHavePawns())
        SumBlocks(c, side, true, end, sums + PairCount(c));
    return true;
}

void ReleaseIndexes() {
    for (auto& sides : RunningSums) {
        for (uint64_t*& sums : sides) {
            delete[] sums;
            sums = nullptr;
        }
    }
    SumsMemory = 0;
}

size_t IndexMemory() {
    return SumsMemory;
}

size_t IndexMemory(int classNumber) {
    return SumCount(TablebaseClasses[size_t(classNumber)]) * sizeof(uint64_t);
}

uint64_t MainTableEntries(int classNumber, Colour side) {
    return SumBlocks(TablebaseClasses[size_t(classNumber)], side, false, 0, nullptr);
}

uint64_t TableEntries(int classNumber, Colour side) {
    const TablebaseClass& c = TablebaseClasses[size_t(classNumber)];
    const uint64_t main = MainTableEntries(classNumber, side);
    return c.BothHavePawns() ? SumBlocks(c, side, true, main, nullptr) : main;
}

uint64_t TableIndex(int classNumber, Colour side, const TablebaseMen& men, int epSquare) {
    const TablebaseClass& c = TablebaseClasses[size_t(classNumber)];
    const uint64_t* const sums = RunningSums[classNumber][size_t(side)];
    const Colour them = ChangeSide(side);
    const bool pawns = c.HasPawns();
    const int symmetry = SymmetryOf(pawns, men.king[side], men.king[them]);
    const auto& images = Images[size_t(symmetry)];
    Bitboard own[TB_KINDS];
    Bitboard other[TB_KINDS];
    ApplySymmetry(men.men[side], symmetry, own);
    ApplySymmetry(men.men[them], symmetry, other);
    const Placement p = {images[size_t(men.king[side])], images[size_t(men.king[them])], own, other,
                         pawns && side == BLACK ? TURN_OVER : 0};
    const uint16_t pair = Pairs[pawns].number[p.ownKing ^ p.turn][p.otherKing ^ p.turn];
    if (pair == NO_PAIR)
        return NO_ENTRY;
    if (epSquare != NO_EN_PASSANT && c.BothHavePawns()) {
        const int ep = images[size_t(epSquare)];
        const int capturing = CapturingPawn(own[TB_PAWN], ep);
        if (capturing >= 0)
            return EnPassantIndex(sums, p, ep, capturing);
    }
    uint64_t number = 0;
    if (!NumberOwnMen(p, number) || !NumberOtherMen(p, 0, number))
        return NO_ENTRY;
    return sums[pair] + number;
}
