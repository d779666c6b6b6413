#include "eval/pawns/pawn_structure.h"

#include <algorithm>

#include "eval/parameters/parameters.h"
#include "eval/parameters/term_limit.h"

namespace {

// 256ths.
constexpr int64_t FULL_SCALE = 256;

// Sets of files, one bit each.
constexpr unsigned QUEEN_WING = 0x0f;
constexpr unsigned KING_WING = 0xf0;
constexpr uint8_t ROOK_FILE_A = 0x01;
constexpr uint8_t ROOK_FILE_H = 0x80;
// An outside passed pawn is so many files away from all enemy pawns that their king cannot watch
// both.
constexpr int OUTSIDE_DISTANCE = 3;

// What a file of the shield lacks when the pawn stands on the rank, as its side counts them; on the
// first there is none. The king misses the pawn on the bishop's file least, which is the first to
// be needed elsewhere.
constexpr int CornerDefects[8] = {3, 0, 1, 2, 2, 2, 2, 2};
constexpr int BishopDefects[8] = {2, 0, 1, 1, 1, 1, 1, 1};

// What the pawns of one side say.
struct SidePawns {
    int64_t middlegame = 0; // for their own side
    int64_t ending = 0;
    unsigned passed = 0; // sets of files
    unsigned files = 0;
    unsigned candidates = 0;
    unsigned weak = 0;
    int defectsK = 0;
    int defectsQ = 0;
};

// A pawn and the pawns around it.
struct PawnView {
    int sq;
    int file;
    int rank;            // as its side counts them
    Bitboard ownAhead;   // on its file
    Bitboard enemyAhead; // on its file
    Bitboard neighbours; // own, on the files beside it
    Bitboard helpers;    // those that stand beside it or further back
    Bitboard sentries;   // enemy pawns that it must pass on the files beside it

    bool Open() const {
        return (ownAhead | enemyAhead) == 0;
    }
    bool Passed() const {
        return Open() && sentries == 0;
    }
    unsigned FileBit() const {
        return 1u << file;
    }
};

} // namespace

template <Colour Us> static PawnView ViewOf(int sq) {
    constexpr Colour Them = ChangeSide(Us);
    const Bitboard own = PieceBB[PAWN][Us];
    const Bitboard enemy = PieceBB[PAWN][Them];
    const int file = FileOf(sq);
    const Bitboard ahead = PassedMask[Us][sq];
    const Bitboard neighbours = own & SquaresBeside(FileBB(file));
    return {sq,
            file,
            RelativeRank(Us, sq),
            own & ahead & FileBB(file),
            enemy & ahead & FileBB(file),
            neighbours,
            neighbours & ~ahead,
            enemy & ahead & SquaresBeside(FileBB(file))};
}

// What the shield lacks on one file. `table` tells by the rank of its pawn; a file that the enemy
// has left too lets his rooks in, and a pawn of his that has come near will open one.
template <Colour Us> static int FileDefects(int file, const int (&table)[8]) {
    constexpr Colour Them = ChangeSide(Us);
    const Bitboard own = PieceBB[PAWN][Us] & FileBB(file) & ~RelativeRankBB(Us, 0);
    const Bitboard enemy = PieceBB[PAWN][Them] & FileBB(file);
    if (own == 0)
        return table[0] + (enemy == 0 ? 1 : 0);
    const int shield = Us == WHITE ? LowestSquare(own) : HighestSquare(own);
    const Bitboard storm = enemy & (RelativeRankBB(Us, 2) | RelativeRankBB(Us, 3));
    // A pawn that runs into the shield is stopped there.
    const bool stormed = (storm & ~Ahead<Us>(SquareBit(shield))) != 0;
    return table[RelativeRank(Us, shield)] + (stormed ? 1 : 0);
}

template <Colour Us> static void CountDefects(SidePawns& side) {
    side.defectsK = FileDefects<Us>(5, BishopDefects) + FileDefects<Us>(6, CornerDefects) +
                    FileDefects<Us>(7, CornerDefects);
    side.defectsQ = FileDefects<Us>(0, CornerDefects) + FileDefects<Us>(1, CornerDefects) +
                    FileDefects<Us>(2, BishopDefects);
}

// Two pawns on a file do the work of one: the one behind is to blame.
static void AddDoubled(const PawnView& pawn, SidePawns& side) {
    if (pawn.ownAhead == 0)
        return;
    side.middlegame -= Params.DoubledMiddlegame[pawn.file];
    side.ending -= Params.DoubledEnding[pawn.file];
}

// No pawn will ever guard it. Rooks of the other side can attack it only on an open file, so while
// there are many that makes the difference.
static void AddIsolated(const PawnView& pawn, SidePawns& side) {
    const FileTable& middlegame =
        pawn.Open() ? Params.IsolatedOpenMiddlegame : Params.IsolatedMiddlegame;
    side.middlegame -= middlegame[pawn.file];
    side.ending -= Params.IsolatedEnding[pawn.file];
}

static void AddBackward(const PawnView& pawn, SidePawns& side) {
    const FileTable& middlegame =
        pawn.Open() ? Params.BackwardOpenMiddlegame : Params.BackwardMiddlegame;
    side.middlegame -= middlegame[pawn.file];
    side.ending -= Params.BackwardEnding[pawn.file];
}

// Its neighbours have gone ahead and an enemy pawn keeps it from following them.
template <Colour Us> static bool Backward(const PawnView& pawn) {
    const int step = pawn.sq + AheadStep<Us>;
    return pawn.helpers == 0 && (PawnAttacks[Us][step] & PieceBB[PAWN][ChangeSide(Us)]) != 0;
}

template <Colour Us> static void AddWeakness(const PawnView& pawn, SidePawns& side) {
    if (pawn.neighbours == 0)
        AddIsolated(pawn, side);
    else if (Backward<Us>(pawn))
        AddBackward(pawn, side);
    else
        return;
    if (pawn.Open())
        side.weak |= pawn.FileBit();
}

template <Colour Us> static void AddConnected(const PawnView& pawn, SidePawns& side) {
    const Bitboard beside = pawn.neighbours & RankBB(RankOf(pawn.sq));
    const Bitboard guards = pawn.neighbours & PawnAttacks[ChangeSide(Us)][pawn.sq];
    if ((beside | guards) == 0)
        return;
    side.middlegame += Params.ConnectedMiddlegame[pawn.rank];
    side.ending += Params.SupportedEnding[pawn.rank];
    if (guards != 0) {
        side.middlegame += Params.GuardedPawnMiddlegame;
        side.ending += Params.GuardedPawnEnding;
    }
}

// With its helpers it outnumbers those that guard its way, and where it stands it holds.
template <Colour Us> static bool Candidate(const PawnView& pawn) {
    if (!pawn.Open() || pawn.Passed())
        return false;
    const Bitboard guards = pawn.neighbours & PawnAttacks[ChangeSide(Us)][pawn.sq];
    const Bitboard attackers = PieceBB[PAWN][ChangeSide(Us)] & PawnAttacks[Us][pawn.sq];
    return CountBits(pawn.helpers) >= CountBits(pawn.sentries) &&
           CountBits(guards) >= CountBits(attackers);
}

static int64_t ByAdvance(int64_t base, int64_t top, int rank) {
    return base + (top - base) * Params.AdvanceScale[rank] / FULL_SCALE;
}

static void AddCandidate(const PawnView& pawn, SidePawns& side) {
    side.candidates |= pawn.FileBit();
    side.middlegame +=
        ByAdvance(Params.CandidateMiddlegameBase, Params.CandidateMiddlegameTop, pawn.rank);
    side.ending += ByAdvance(Params.CandidateEndingBase, Params.CandidateEndingTop, pawn.rank);
}

template <Colour Us> static SidePawns AssessPawns() {
    SidePawns side;
    CountDefects<Us>(side);
    // Only a board that was set up has pawns on the last rank; they have no square ahead.
    for (Bitboard pawns = PieceBB[PAWN][Us] & ~RelativeRankBB(Us, 7); pawns;) {
        const PawnView pawn = ViewOf<Us>(PopLowest(pawns));
        side.files |= pawn.FileBit();
        AddDoubled(pawn, side);
        AddWeakness<Us>(pawn, side);
        AddConnected<Us>(pawn, side);
        if (pawn.Passed())
            side.passed |= pawn.FileBit();
        else if (Candidate<Us>(pawn))
            AddCandidate(pawn, side);
    }
    return side;
}

// A passed pawn far from all enemy pawns draws their king away from them.
static bool OutsidePasser(const SidePawns& own, const SidePawns& enemy) {
    if (enemy.files == 0)
        return false;
    const int first = LowestSquare(enemy.files);
    const int last = HighestSquare(enemy.files);
    for (unsigned files = own.passed; files != 0; files &= files - 1) {
        const int file = LowestSquare(files);
        if (file <= first - OUTSIDE_DISTANCE || file >= last + OUTSIDE_DISTANCE)
            return true;
    }
    return false;
}

static int PawnsOn(Colour side, unsigned wing) {
    return CountBits(PieceBB[PAWN][side] & SquaresOfFiles(wing));
}

// 0, or the flag of a majority that can make a passed pawn away from where most pawns, and so the
// kings, are: 2 when it is healthy, else 1. One that has its passed pawn already counts as that.
static int OutsideMajority(Colour side, const SidePawns& own) {
    const int all = CountBits(PieceBB[PAWN][WHITE] | PieceBB[PAWN][BLACK]);
    int flag = 0;
    for (const unsigned wing : {QUEEN_WING, KING_WING}) {
        const int ours = PawnsOn(side, wing);
        const int theirs = PawnsOn(ChangeSide(side), wing);
        if (ours <= theirs || 2 * (ours + theirs) > all || (own.passed & wing) != 0)
            continue;
        flag = std::max(flag, (own.candidates & wing) != 0 ? 2 : 1);
    }
    return flag;
}

static int FlagsOf(const SidePawns& white, const SidePawns& black) {
    int flags = OutsideMajority(WHITE, white) * PAWNS_WHITE_MAJORITY +
                OutsideMajority(BLACK, black) * PAWNS_BLACK_MAJORITY;
    const bool whiteOutside = OutsidePasser(white, black);
    const bool blackOutside = OutsidePasser(black, white);
    if (whiteOutside && !blackOutside)
        flags |= PAWNS_WHITE_OUTSIDE_PASSER;
    if (blackOutside && !whiteOutside)
        flags |= PAWNS_BLACK_OUTSIDE_PASSER;
    return flags;
}

static bool OneRookFile(const SidePawns& side) {
    return side.files == ROOK_FILE_A || side.files == ROOK_FILE_H;
}

void PawnCompute() {
    const SidePawns black = AssessPawns<BLACK>();
    const SidePawns white = AssessPawns<WHITE>();
    Pawns = {.key = PawnKey,
             .middlegame = int16_t(LimitTerm(black.middlegame - white.middlegame)),
             .ending = int16_t(LimitTerm(black.ending - white.ending)),
             .white_defects_k = uint8_t(white.defectsK),
             .white_defects_q = uint8_t(white.defectsQ),
             .black_defects_k = uint8_t(black.defectsK),
             .black_defects_q = uint8_t(black.defectsQ),
             .blackPassed = uint8_t(black.passed),
             .whitePassed = uint8_t(white.passed),
             .whiteFiles = uint8_t(white.files),
             .blackFiles = uint8_t(black.files),
             .whiteCandidates = uint8_t(white.candidates),
             .blackCandidates = uint8_t(black.candidates),
             .flags = uint8_t(FlagsOf(white, black)),
             .endingFlags = uint8_t((OneRookFile(white) ? 1 : 0) | (OneRookFile(black) ? 2 : 0)),
             .blackWeak = uint8_t(black.weak),
             .whiteWeak = uint8_t(white.weak)};
}

void PawnProbe() {
    if (!FindPawns()) {
        PawnCompute();
        StorePawns();
    }
}
