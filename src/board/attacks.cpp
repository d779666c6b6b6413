#include "board/attacks.h"

#include <cstdlib>

constinit uint8_t LineConfig[256 * 8] = {};
constinit Bitboard RankAttackTable[LINE_CONFIGS * 8] = {};
constinit Bitboard FileAttackTable[LINE_CONFIGS * 8] = {};
constinit Bitboard DiagAttackTable[LINE_CONFIGS * 16] = {};
constinit Bitboard AntiDiagAttackTable[LINE_CONFIGS * 16] = {};
constinit Bitboard KnightAttacks[64] = {};
constinit Bitboard KingAttacks[64] = {};
constinit Bitboard PawnAttacks[2][64] = {};
constinit Bitboard RookRays[64] = {};
constinit Bitboard BishopRays[64] = {};
constinit Direction DirectionTo[64][64] = {};
constinit Bitboard Ray[DIRECTIONS][64] = {};
constinit Bitboard Between[64][64] = {};
constinit Bitboard PassedMask[2][64] = {};

namespace {

struct Step {
    int file;
    int rank;
};

constexpr Step DirectionStep[DIRECTIONS] = {{0, 0}, {1, 0},   {-1, 0}, {0, 1}, {0, -1},
                                            {1, 1}, {-1, -1}, {-1, 1}, {1, -1}};

// What tells one configuration of a line from another: the slider's place and the nearest men.
struct LineView {
    int position;
    int below; // nearest occupied place below, 0 when there is none
    int above; // nearest occupied place above, 7 when there is none

    bool operator==(const LineView&) const = default;
};

} // namespace

static bool OnBoard(int file, int rank) {
    return file >= 0 && file < 8 && rank >= 0 && rank < 8;
}

static LineView ViewFrom(int occupancy, int position) {
    LineView view = {position, 0, 7};
    for (int p = position - 1; p > 0; p--) {
        if (occupancy >> p & 1) {
            view.below = p;
            break;
        }
    }
    for (int p = position + 1; p < 7; p++) {
        if (occupancy >> p & 1) {
            view.above = p;
            break;
        }
    }
    return view;
}

// The square at a place on a line, or -1 where the line does not reach.
using LineSquare = int (*)(int line, int place);

static int RankSquare(int line, int place) {
    return line * 8 + place;
}
static int FileSquare(int line, int place) {
    return place * 8 + line;
}
static int DiagSquare(int line, int place) {
    return OnBoard(line - place, place) ? place * 8 + line - place : -1;
}
static int AntiDiagSquare(int line, int place) {
    return OnBoard(line - 7 + place, place) ? place * 8 + line - 7 + place : -1;
}

// The squares that a slider sees on one line. A short diagonal ends before the nearest man does.
static Bitboard LineAttacks(const LineView& view, int line, LineSquare squareAt) {
    if (squareAt(line, view.position) < 0)
        return 0;
    Bitboard attacks = 0;
    for (int p = view.position - 1; p >= view.below && p >= 0; p--) {
        if (squareAt(line, p) >= 0)
            attacks |= SquareBit(squareAt(line, p));
    }
    for (int p = view.position + 1; p <= view.above && p <= 7; p++) {
        if (squareAt(line, p) >= 0)
            attacks |= SquareBit(squareAt(line, p));
    }
    return attacks;
}

static void FillLineTables(int conf, const LineView& view) {
    for (int line = 0; line < 8; line++) {
        RankAttackTable[conf * 8 + line] = LineAttacks(view, line, RankSquare);
        FileAttackTable[conf * 8 + line] = LineAttacks(view, line, FileSquare);
    }
    for (int line = 0; line < 15; line++) {
        DiagAttackTable[conf * 16 + line] = LineAttacks(view, line, DiagSquare);
        AntiDiagAttackTable[conf * 16 + line] = LineAttacks(view, line, AntiDiagSquare);
    }
}

// Numbers the configurations in the order in which they first appear.
static void InitLines() {
    LineView seen[LINE_CONFIGS] = {};
    int count = 0;
    for (int occupancy = 0; occupancy < 256; occupancy++) {
        for (int position = 0; position < 8; position++) {
            const LineView view = ViewFrom(occupancy, position);
            int conf = 0;
            while (conf < count && !(seen[conf] == view))
                conf++;
            if (conf == count) {
                seen[count++] = view;
                FillLineTables(conf, view);
            }
            LineConfig[occupancy * 8 + position] = uint8_t(conf);
        }
    }
}

static Bitboard LeaperAttacks(int sq, int shorter, int longer) {
    Bitboard attacks = 0;
    for (int file = 0; file < 8; file++) {
        for (int rank = 0; rank < 8; rank++) {
            const int df = std::abs(file - FileOf(sq));
            const int dr = std::abs(rank - RankOf(sq));
            if ((df == shorter && dr == longer) || (df == longer && dr == shorter))
                attacks |= SquareBit(rank * 8 + file);
        }
    }
    return attacks;
}

static void InitRays(int sq) {
    for (int d = EAST; d < DIRECTIONS; d++) {
        Bitboard passed = 0;
        int file = FileOf(sq) + DirectionStep[d].file;
        int rank = RankOf(sq) + DirectionStep[d].rank;
        for (; OnBoard(file, rank); file += DirectionStep[d].file, rank += DirectionStep[d].rank) {
            const int to = rank * 8 + file;
            DirectionTo[sq][to] = Direction(d);
            Between[sq][to] = passed;
            passed |= SquareBit(to);
        }
        Ray[d][sq] = passed;
    }
    RookRays[sq] = Ray[EAST][sq] | Ray[WEST][sq] | Ray[NORTH][sq] | Ray[SOUTH][sq];
    BishopRays[sq] =
        Ray[NORTH_EAST][sq] | Ray[SOUTH_WEST][sq] | Ray[NORTH_WEST][sq] | Ray[SOUTH_EAST][sq];
}

static Bitboard FilesAround(int file) {
    return FileBB(file) | SquaresBeside(FileBB(file));
}

static void InitPassedMasks(int sq) {
    for (int rank = 0; rank < 8; rank++) {
        const Bitboard squares = FilesAround(FileOf(sq)) & RankBB(rank);
        if (rank > RankOf(sq))
            PassedMask[WHITE][sq] |= squares;
        if (rank < RankOf(sq))
            PassedMask[BLACK][sq] |= squares;
    }
}

void InitAttackTables() {
    InitLines();
    for (int sq = 0; sq < 64; sq++) {
        const Bitboard b = SquareBit(sq);
        const Bitboard sides = SquaresBeside(b);
        KnightAttacks[sq] = LeaperAttacks(sq, 1, 2);
        KingAttacks[sq] = LeaperAttacks(sq, 0, 1) | LeaperAttacks(sq, 1, 1);
        PawnAttacks[WHITE][sq] = Ahead<WHITE>(sides);
        PawnAttacks[BLACK][sq] = Ahead<BLACK>(sides);
        InitRays(sq);
        InitPassedMasks(sq);
    }
}
