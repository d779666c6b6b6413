#include "eval/king_safety.h"

#include <algorithm>
#include <array>

#include "board/position.h"
#include "eval/figures.h"
#include "eval/parameters/attacker_weight.h"
#include "eval/parameters/parameters.h"
#include "eval/parameters/personality.h"
#include "eval/parameters/term_limit.h"
#include "eval/pawns/pawn_hash.h"

namespace {

// clang-format off

// Shelter penalty by the king's square, as its own side sees the board: the further out, the worse.
constexpr SquareTable KingZoneBase = BoardTable(
    //  a  b  c  d  e  f  g  h
    Row(6, 6, 6, 6, 6, 6, 6, 6),  // 8
    Row(6, 6, 6, 6, 6, 6, 6, 6),  // 7
    Row(6, 6, 6, 6, 6, 6, 6, 6),  // 6
    Row(5, 5, 5, 5, 5, 5, 5, 5),  // 5
    Row(4, 4, 4, 4, 4, 4, 4, 4),  // 4
    Row(3, 3, 3, 3, 3, 3, 3, 3),  // 3
    Row(1, 1, 2, 3, 3, 2, 1, 1),  // 2
    Row(1, 0, 2, 3, 3, 2, 0, 1)); // 1

// clang-format on

// Centipawns by shelter penalty; the last for all larger ones.
constexpr std::array<int32_t, 25> ShelterScore = {0,   4,   15,  24,  36,  42,  54,  72,  81,
                                                  90,  99,  108, 117, 126, 135, 144, 148, 152,
                                                  156, 160, 164, 168, 172, 175, 180};

// By weighted attacks; from the last on one more for each, up to MAX_DANGER.
constexpr std::array<int32_t, 66> DangerScale = {
    0,   1,   2,   3,   4,   5,   6,   7,   8,   9,   10,  11,  12,  13,  14,  15,  17,
    19,  21,  23,  26,  29,  32,  35,  39,  43,  47,  51,  56,  61,  66,  71,  77,  83,
    89,  95,  102, 109, 117, 125, 134, 144, 155, 167, 179, 191, 203, 215, 225, 235, 245,
    255, 265, 275, 285, 295, 305, 315, 325, 335, 345, 350, 354, 357, 359, 360};
constexpr int32_t MAX_DANGER = 380;

// An attack weighs more the weaker the shelter: 16ths.
constexpr int SHELTER_SCALE_BITS = 4;
constexpr int32_t SHELTER_SCALE_BASE = 8;
constexpr int32_t MAX_SHELTER_SCALE = 32;

// An attack with a queen counts 1.26 times, one without 1.33 times: 8192ths. A queen has already
// its share in the danger.
constexpr int QUEEN_SCALE_BITS = 13;
constexpr int64_t WITH_QUEEN = 10347;
constexpr int64_t WITHOUT_QUEEN = 10922;

// The danger table is read so much further on for the print.
constexpr int32_t PRINTED_DANGER_OFFSET = 8;

} // namespace

static int32_t ShelterPoints(int32_t penalty) {
    return ShelterScore[size_t(std::clamp<int32_t>(penalty, 0, int32_t(ShelterScore.size()) - 1))];
}

static int32_t ShelterScale(int32_t penalty) {
    return std::clamp(SHELTER_SCALE_BASE + penalty, SHELTER_SCALE_BASE, MAX_SHELTER_SCALE);
}

static int32_t DangerPoints(int32_t danger) {
    constexpr int32_t last = int32_t(DangerScale.size()) - 1;
    if (danger <= last)
        return DangerScale[size_t(std::max(danger, 0))];
    return std::min(DangerScale[last] + (std::min(danger, MAX_DANGER) - last), MAX_DANGER);
}

// How far a file is open before the king, given what a file without pawns counts: half of that when
// only the enemy has pawns there, little when the own pawn has gone forward.
template <Colour Us> static int32_t FileOpenness(int file, int32_t open) {
    constexpr Colour Them = ChangeSide(Us);
    const Bitboard own = PieceBB[PAWN][Us] & FileBB(file);
    if (own == 0)
        return PieceBB[PAWN][Them] & FileBB(file) ? open / 2 : open;
    if (own & RelativeRankBB(Us, 1))
        return 0;
    return own & RelativeRankBB(Us, 2) ? 1 : 2;
}

// Openness of the three files around one, which counts as the centre.
template <Colour Us> static int32_t Openness(int centre) {
    return FileOpenness<Us>(centre - 1, Params.OpenFileShelter) +
           FileOpenness<Us>(centre, Params.OpenCentreShelter) +
           FileOpenness<Us>(centre + 1, Params.OpenFileShelter);
}

// A fianchetto on the knight's file without its pawn, and an enemy on the bishop's file, where that
// pawn's step would have hit him.
template <Colour Us> static int32_t FianchettoHole(int file) {
    constexpr Colour Them = ChangeSide(Us);
    const Bitboard home = RelativeRankBB(Us, 1) & FileBB(file);
    const int bishopsFile = file == 1 ? 2 : 5;
    const Bitboard hole = RelativeRankBB(Us, 2) & FileBB(bishopsFile);
    const Bitboard intruders = PieceBB[PAWN][Them] | PieceBB[BISHOP][Them];
    if ((PieceBB[PAWN][Us] & home) || !(intruders & hole) || PieceCount[QUEEN][Them] == 0)
        return 0;
    return Params.FianchettoHole;
}

template <Colour Us> static int32_t KingSideDefects() {
    return Us == WHITE ? Pawns.white_defects_k : Pawns.black_defects_k;
}

template <Colour Us> static int32_t QueenSideDefects() {
    return Us == WHITE ? Pawns.white_defects_q : Pawns.black_defects_q;
}

// A king that may still castle: half for the centre where it stands, half for the best place that
// it may go to.
template <Colour Us> static int32_t UncastledPenalty() {
    const int32_t centre = Openness<Us>(FileOf(KingHome(Us)));
    int32_t refuge = centre;
    if (CastleRights & LongRight(Us))
        refuge = std::min(refuge, QueenSideDefects<Us>());
    if (CastleRights & ShortRight(Us))
        refuge = std::min(refuge, KingSideDefects<Us>());
    return centre / 2 + std::max(refuge, 0) / 2;
}

// A king that has gone where it stands, or can go nowhere else.
template <Colour Us> static int32_t SettledPenalty(int file) {
    const bool queenSide = file <= 3;
    int32_t penalty = queenSide ? QueenSideDefects<Us>() : KingSideDefects<Us>();
    penalty += FianchettoHole<Us>(queenSide ? 1 : 6);
    if (file == 3 || file == 4)
        penalty += Openness<Us>(file) + 1;
    return penalty;
}

template <Colour Us> static int32_t Shelter() {
    constexpr Colour Them = ChangeSide(Us);
    constexpr int rights = ShortRight(Us) | LongRight(Us);
    constexpr int queenHome = KingHome(Us) - 1;
    const int king = KingSquare[Us];
    int32_t penalty = KingZoneBase[size_t(Us == WHITE ? king : 63 - king)];
    int32_t bonus = 0;
    if (CastleRights & rights) {
        if (!(PieceBB[QUEEN][Us] & SquareBit(queenHome)))
            bonus = -Params.UncastledQueenPenalty;
        penalty += UncastledPenalty<Us>();
    } else {
        penalty += SettledPenalty<Us>(FileOf(king));
    }
    if (PieceCount[QUEEN][Them] == 0)
        penalty = int32_t(int64_t{penalty} * Params.NoQueenShelterScale >> 8);
    Figures.shelter_penalty[Us] = penalty;
    const int64_t weight =
        Us == RootSide ? Personality.CowardiceWeight : Personality.AggressivityWeight;
    return LimitTerm(bonus - weight * ShelterPoints(penalty) / 100);
}

int32_t KingShelter(Colour side) {
    return side == WHITE ? Shelter<WHITE>() : Shelter<BLACK>();
}

int32_t KingAttack(Colour side) {
    const int pieces = std::min(Figures.KingAttackers[side], ATTACKER_COUNTS - 1);
    const int64_t attack = int64_t{DangerPoints(Figures.Danger[side])} * AttackerWeight[pieces] *
                               ShelterScale(Figures.shelter_penalty[ChangeSide(side)]) >>
                           (ATTACKER_WEIGHT_BITS + SHELTER_SCALE_BITS);
    const int64_t scale = PieceCount[QUEEN][side] > 0 ? WITH_QUEEN : WITHOUT_QUEEN;
    return LimitTerm(attack * scale >> QUEEN_SCALE_BITS);
}

int32_t PrintedAttack(Colour king) {
    const int32_t danger = Figures.Danger[ChangeSide(king)] + PRINTED_DANGER_OFFSET;
    return DangerPoints(danger) * ShelterScale(Figures.shelter_penalty[king]) >> SHELTER_SCALE_BITS;
}

int32_t PrintedShelter(Colour king) {
    return ShelterPoints(Figures.shelter_penalty[king]);
}
