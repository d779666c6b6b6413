#include "derivatives.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdlib>

#include "board/position.h"
#include "companions/shared/engine_start.h"
#include "eval/derived_tables.h"
#include "eval/evaluate.h"
#include "eval/material/imbalance.h"
#include "eval/material/material.h"
#include "eval/parameters/attacker_weight.h"
#include "eval/pawns/pawn_structure.h"

namespace {

using ParameterList = std::array<int32_t, EVAL_PARAMETER_COUNT>;

// By which the sums of the evaluation are changed: far above what is lost by rounding.
constexpr int PART_STEP = 32;
// A part has its full weight at most. Where it seems to have more, the score jumped for another
// reason: a drawn ending begins, say.
constexpr double LARGEST_PART = 1.1;
// So does one that changes by more than this, in centipawns, with one step of a parameter.
constexpr double LARGEST_CHANGE = 400;
// Changes below this are rounding.
constexpr double SMALLEST_SLOPE = 1e-3;

// One record of the pawn table, so that what is at hand is found again and no more.
constexpr int PAWN_RECORDS = 1;
constinit uint8_t PawnMemory[(PAWN_RECORDS + PAWN_SPARE_ENTRIES) * PAWN_ENTRY_BYTES] = {};

} // namespace

void StartEvaluation() {
    StartTables();
    SetPawnHashMemory(PawnMemory, PAWN_RECORDS);
    ClearPawnHash();
}

void SetParameters(const std::vector<int32_t>& members) {
    ParameterList list;
    std::ranges::copy(members, list.begin());
    Params = std::bit_cast<EvalParameters>(list);
    InitDerivedTables();
    ClearPawnHash();
}

int32_t EvaluateForWhite() {
    const int32_t score = Evaluate();
    return SideToMove == WHITE ? score : -score;
}

// The number of the set that a group or an unknown points at.
static int32_t& Member(size_t i) {
    return reinterpret_cast<int32_t*>(&Params)[i];
}

Derivatives::Derivatives(const Unknowns& allUnknowns)
    : unknowns(allUnknowns), sums(allUnknowns.all.size()) {}

void Derivatives::Add(size_t member, double slope) {
    const MemberUnknown& known = unknowns.ofMember[member];
    if (known.unknown < 0 || std::abs(slope) < SMALLEST_SLOPE)
        return;
    double& sum = sums[size_t(known.unknown)];
    if (sum == 0)
        touched.push_back(known.unknown);
    sum += known.sign * slope;
}

template <typename Number> static double SlopeOfPart(Number& part) {
    const Number before = part;
    part = Number(before + PART_STEP);
    const int32_t up = EvaluateForWhite();
    part = Number(before - PART_STEP);
    const int32_t down = EvaluateForWhite();
    part = before;
    return std::clamp(double(up - down) / (2 * PART_STEP), -LARGEST_PART, LARGEST_PART);
}

Derivatives::Parts Derivatives::SlopesOfParts() {
    // The sums count from Black's view.
    Parts parts = {-SlopeOfPart(PstSumA), -SlopeOfPart(PstSumB), 0};
    if (MaterialIndex < MATERIAL_INVALID)
        parts.balance = SlopeOfPart(MaterialTable[MaterialIndex].adjustment);
    return parts;
}

void Derivatives::AddSquares(const Parts& parts) {
    constexpr size_t tableSize = std::tuple_size<SquareTable>::value;
    constexpr size_t first = offsetof(EvalParameters, PawnMiddlegame) / sizeof(int32_t);
    constexpr Piece order[] = {PAWN, KNIGHT, BISHOP, ROOK, QUEEN, KING};
    for (size_t i = 0; i < std::size(order); i++) {
        const size_t middlegame = first + 2 * i * tableSize;
        for (const Colour side : {WHITE, BLACK}) {
            const int view = side == WHITE ? 1 : -1;
            for (Bitboard men = PieceBB[order[i]][side]; men;) {
                const int sq = PopLowest(men);
                const size_t square = size_t(side == WHITE ? sq : sq ^ 56);
                Add(middlegame + square, view * parts.middlegame);
                Add(middlegame + tableSize + square, view * parts.ending);
            }
        }
    }
}

void Derivatives::AddImbalance(const Parts& parts) {
    const MenOfSide white = MenOnBoard(WHITE);
    const MenOfSide black = MenOnBoard(BLACK);
    const int before = MaterialImbalance(white, black);
    for (const ParameterGroup& group : ParameterGroups()) {
        if (group.kind != ParameterKind::IMBALANCE)
            continue;
        for (size_t i = group.first; i < group.first + group.count; i++) {
            Member(i) += group.step;
            const int change = MaterialImbalance(white, black) - before;
            Member(i) -= group.step;
            Add(i, parts.balance * change / group.step);
        }
    }
    constexpr size_t table = offsetof(EvalParameters, ImbalanceTable) / sizeof(int32_t);
    Add(table + ImbalanceCell(white, black), parts.balance);
}

// What enters the pawn table shows there, without an evaluation of the whole.
void Derivatives::AddPawnTerms(const Parts& parts) {
    const Bitboard pawns = PieceBB[PAWN][WHITE] | PieceBB[PAWN][BLACK];
    const PawnEntry before = Pawns;
    for (const ParameterGroup& group : ParameterGroups()) {
        if (group.kind != ParameterKind::PAWNS)
            continue;
        for (size_t i = group.first; i < group.first + group.count; i++) {
            const bool noPawns = group.mirrored && !(pawns & FileBB(int(i - group.first)));
            if (unknowns.ofMember[i].unknown < 0 || noPawns)
                continue;
            Member(i) += group.step;
            PawnCompute();
            Member(i) -= group.step;
            const double change = parts.middlegame * (before.middlegame - Pawns.middlegame) +
                                  parts.ending * (before.ending - Pawns.ending);
            Add(i, change / group.step);
        }
    }
    Pawns = before;
}

double Derivatives::ChangeBy(const Unknown& unknown, int32_t step) {
    const ParameterKind kind = unknown.group->kind;
    const auto change = [&](int32_t by) {
        Member(unknown.member) += by;
        if (kind == ParameterKind::ATTACKERS)
            InitAttackerWeight();
        if (kind == ParameterKind::PAWNS_TOO)
            ClearPawnHash();
    };
    change(step);
    const int32_t score = EvaluateForWhite();
    change(-step);
    return double(score - base);
}

static bool HasWhatItNeeds(unsigned needs) {
    const auto has = [](Piece piece) {
        return (PieceBB[piece][WHITE] | PieceBB[piece][BLACK]) != 0;
    };
    constexpr int fewUnits = 24;
    return (!(needs & NEEDS_QUEEN) || has(QUEEN)) && (!(needs & NEEDS_ROOK) || has(ROOK)) &&
           (!(needs & NEEDS_BISHOP) || has(BISHOP)) && (!(needs & NEEDS_KNIGHT) || has(KNIGHT)) &&
           (!(needs & NEEDS_PAWN) || has(PAWN)) &&
           (!(needs & NEEDS_PASSER) || (Figures.passed[WHITE] | Figures.passed[BLACK]) != 0) &&
           (!(needs & NEEDS_FEW_PIECES) || PhaseUnits[WHITE] + PhaseUnits[BLACK] <= fewUnits);
}

// Up and down, so that a bend of the evaluation counts by its middle.
void Derivatives::AddPlain(const Unknown& unknown) {
    const int32_t step = unknown.group->step;
    if (!HasWhatItNeeds(unknown.group->needs))
        return;
    const double up = ChangeBy(unknown, step);
    const double down = ChangeBy(unknown, -step);
    if (std::abs(up) < LARGEST_CHANGE && std::abs(down) < LARGEST_CHANGE)
        Add(unknown.member, (up - down) / (2 * step));
}

int32_t Derivatives::Take(std::vector<Slope>& slopes) {
    base = EvaluateForWhite();
    const Parts parts = SlopesOfParts();
    // Where no part matters the outcome is known.
    if (parts.middlegame == 0 && parts.ending == 0)
        return base;
    AddSquares(parts);
    AddImbalance(parts);
    AddPawnTerms(parts);
    for (const Unknown& unknown : unknowns.all) {
        const ParameterKind kind = unknown.group->kind;
        if (kind == ParameterKind::PLAIN || kind == ParameterKind::ATTACKERS ||
            kind == ParameterKind::PAWNS_TOO)
            AddPlain(unknown);
    }
    std::ranges::sort(touched);
    for (const int unknown : touched) {
        double& sum = sums[size_t(unknown)];
        if (sum != 0)
            slopes.push_back({uint16_t(unknown), float(sum)});
        sum = 0;
    }
    touched.clear();
    return base;
}
