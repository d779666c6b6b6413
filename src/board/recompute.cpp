#include "board/recompute.h"

#include <array>
#include <cstdio>

#include "board/keys.h"
#include "board/piece_square.h"
#include "board/position.h"

namespace {

struct Recomputed {
    Bitboard pieceBB[PIECE_CODES][2] = {};
    Bitboard orthoSliders = 0;
    Bitboard diagSliders = 0;
    int rankOcc[8] = {};
    int fileOcc[8] = {};
    int diagOcc[15] = {};
    int antiDiagOcc[15] = {};
    uint64_t posKey = 0;
    uint64_t pawnKey = 0;
    int pieceCount[PIECE_CODES][2] = {};
    int material[2] = {};
    int phaseUnits[2] = {};
    int heavyCount[2] = {};
    int minorCount[2] = {};
    int menCount = 0;
    int pstSumA = 0;
    int pstSumB = 0;
};

// Material in centipawns, phase units, heavy and minor pieces that one man counts for.
struct Worth {
    int material;
    int phase;
    int heavy;
    int minor;
};
constexpr Worth WorthOf[PIECE_CODES] = {{0, 0, 0, 0},   {0, 0, 0, 0},  {300, 3, 0, 1},
                                        {100, 0, 0, 0}, {0, 0, 0, 0},  {500, 5, 1, 0},
                                        {300, 3, 0, 1}, {900, 9, 2, 0}};

constexpr uint64_t SAMPLED_PLACEMENTS = 16;

// Collects the first difference only.
class Difference {
public:
    template <typename Value> void Compare(const char* what, int index, Value is, Value shouldBe) {
        if (is == shouldBe || !text.empty())
            return;
        char line[160];
        std::snprintf(line, sizeof line, "%s[%d] is %llx, recomputed %llx (hexadecimal)", what,
                      index, static_cast<unsigned long long>(is),
                      static_cast<unsigned long long>(shouldBe));
        text = line;
    }
    std::string text;
};

} // namespace

static void CountMan(Recomputed& r, int sq, int colour, int code) {
    const int file = sq % 8;
    const int rank = sq / 8;
    const Bitboard bit = Bitboard{1} << sq;
    r.pieceBB[code][colour] |= bit;
    if (code == ROOK || code == QUEEN)
        r.orthoSliders |= bit;
    if (code == BISHOP || code == QUEEN)
        r.diagSliders |= bit;
    r.rankOcc[rank] |= 1 << file;
    r.fileOcc[file] |= 1 << rank;
    r.diagOcc[file + rank] |= 1 << rank;
    r.antiDiagOcc[file - rank + 7] |= 1 << rank;
    r.posKey ^= PieceKeys[colour][code][sq];
    if (code == PAWN)
        r.pawnKey ^= PieceKeys[colour][code][sq];
    r.pieceCount[code][colour]++;
    r.material[colour] += WorthOf[code].material;
    r.phaseUnits[colour] += WorthOf[code].phase;
    r.heavyCount[colour] += WorthOf[code].heavy;
    r.minorCount[colour] += WorthOf[code].minor;
    r.menCount++;
    const int sign = colour == BLACK ? 1 : -1;
    r.pstSumA += sign * PstA[code][colour][sq];
    r.pstSumB += sign * PstB[code][colour][sq];
}

static int MaterialSignature(const Recomputed& r) {
    int index = 0;
    int weight = 1;
    for (const int code : {QUEEN, ROOK, BISHOP, KNIGHT}) {
        for (const int colour : {WHITE, BLACK}) {
            if (r.pieceCount[code][colour] > 2)
                return MATERIAL_INVALID;
            index += weight * r.pieceCount[code][colour];
            weight *= 3;
        }
    }
    return index + 6561 * r.pieceCount[PAWN][WHITE] + 59049 * r.pieceCount[PAWN][BLACK];
}

static void CompareKings(Difference& d, const Recomputed& r, int colour, BoardKind kind) {
    const Bitboard king = PieceBB[KING][colour];
    if (kind == PLAYED_BOARD)
        d.Compare("PieceBB[KING]", colour, king, r.pieceBB[KING][colour]);
    d.Compare("PieceBB[KING] without a man under it", colour, king & ~r.pieceBB[KING][colour],
              Bitboard{0});
    d.Compare("KingSquare on the board", colour, KingSquare[colour] & 63, KingSquare[colour]);
    if (king != 0)
        d.Compare("PieceBB[KING] and KingSquare", colour, king,
                  Bitboard{1} << (KingSquare[colour] & 63));
}

static void CompareOccupancy(Difference& d, const Recomputed& r) {
    d.Compare("OrthoSliders", 0, OrthoSliders, r.orthoSliders);
    d.Compare("DiagSliders", 0, DiagSliders, r.diagSliders);
    for (int i = 0; i < 8; i++) {
        d.Compare("RankOcc", i, RankOcc[i], r.rankOcc[i]);
        d.Compare("FileOcc", i, FileOcc[i], r.fileOcc[i]);
    }
    for (int i = 0; i < 15; i++) {
        d.Compare("DiagOcc", i, DiagOcc[i], r.diagOcc[i]);
        d.Compare("AntiDiagOcc", i, AntiDiagOcc[i], r.antiDiagOcc[i]);
    }
}

static void CompareCounters(Difference& d, const Recomputed& r, BoardKind kind) {
    for (const int colour : {WHITE, BLACK}) {
        for (int code = 0; code < PIECE_CODES; code++) {
            if (code != KING)
                d.Compare("PieceBB", code * 2 + colour, PieceBB[code][colour],
                          r.pieceBB[code][colour]);
            d.Compare("PieceCount", code * 2 + colour, PieceCount[code][colour],
                      r.pieceCount[code][colour]);
        }
        CompareKings(d, r, colour, kind);
        d.Compare("Material", colour, Material[colour], r.material[colour]);
        d.Compare("PhaseUnits", colour, PhaseUnits[colour], r.phaseUnits[colour]);
        d.Compare("HeavyCount", colour, HeavyCount[colour], r.heavyCount[colour]);
        d.Compare("MinorCount", colour, MinorCount[colour], r.minorCount[colour]);
    }
    d.Compare("MenCount", 0, MenCount, r.menCount);
}

std::string FirstDifferenceFromRecomputation(BoardKind kind) {
    Difference d;
    Recomputed r;
    d.Compare("squares of both colours", 0, ColourBB[WHITE] & ColourBB[BLACK], Bitboard{0});
    for (int sq = 0; sq < 64; sq++) {
        const bool occupied = (Occupied() >> sq & 1) != 0;
        d.Compare("occupied square without a man", sq, Board[sq] != EMPTY, occupied);
        if (occupied && Board[sq] != EMPTY)
            CountMan(r, sq, int(ColourBB[BLACK] >> sq & 1), Board[sq]);
    }
    CompareOccupancy(d, r);
    CompareCounters(d, r, kind);
    d.Compare("PosKey", 0, PosKey, r.posKey);
    d.Compare("PawnKey", 0, PawnKey, r.pawnKey);
    d.Compare("PstSumA", 0, PstSumA, int16_t(r.pstSumA));
    d.Compare("PstSumB", 0, PstSumB, int16_t(r.pstSumB));
    if (kind == PLAYED_BOARD || MaterialIndex != MATERIAL_INVALID)
        d.Compare("MaterialIndex", 0, MaterialIndex, MaterialSignature(r));
    return d.text;
}

bool PositionIsConsistent() {
    const std::string difference = FirstDifferenceFromRecomputation(ANY_BOARD);
    if (difference.empty())
        return true;
    std::fprintf(stderr, "%s\n", difference.c_str());
    return false;
}

bool SampleIsConsistent() {
    return PosKey % SAMPLED_PLACEMENTS != 0 || PositionIsConsistent();
}
