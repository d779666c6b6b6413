#include "parameter_groups.h"

#include <algorithm>

static constexpr size_t NUMBER_SIZE = sizeof(int32_t);

// clang-format off

#define GROUP(name, kind, needs, step, mirrored, prior)                   \
    {#name, offsetof(EvalParameters, name) / NUMBER_SIZE,                 \
     sizeof(EvalParameters::name) / NUMBER_SIZE, ParameterKind::kind,     \
     needs, step, mirrored, prior}

// By name: kind, what must be on the board, step, both wings alike, prior.
static constexpr ParameterGroup Groups[] = {
    GROUP(PieceByOwnPawns, IMBALANCE, 0, 64, false, 60),
    GROUP(PieceByOpponentPawns, IMBALANCE, 0, 64, false, 60),
    GROUP(AttackerWeightChange, ATTACKERS, 0, 16, false, 60),
    GROUP(MinorUp, IMBALANCE, 0, 8, false, 15),
    GROUP(SecondMinorUp, IMBALANCE, 0, 8, false, 15),
    GROUP(MinorForPawns, IMBALANCE, 0, 8, false, 15),
    GROUP(MinorForPawnsWithQueens, IMBALANCE, 0, 8, false, 15),
    GROUP(MinorForPawnsPerOwnPawn, IMBALANCE, 0, 8, false, 15),
    GROUP(TwoMinorsForRook, IMBALANCE, 0, 8, false, 15),
    GROUP(TwoMinorsForRookPerPawn, IMBALANCE, 0, 8, false, 15),
    GROUP(RookForMinor, IMBALANCE, 0, 8, false, 15),
    GROUP(RookForMinorPerPawn, IMBALANCE, 0, 8, false, 15),
    GROUP(RookForMinorAgainstPair, IMBALANCE, 0, 8, false, 15),
    GROUP(BishopPairPerPawn, IMBALANCE, 0, 8, false, 15),
    GROUP(KnightPair, IMBALANCE, 0, 8, false, 15),
    GROUP(RookPair, IMBALANCE, 0, 8, false, 15),
    GROUP(RookBesideQueen, IMBALANCE, 0, 8, false, 15),
    GROUP(SecondQueen, IMBALANCE, 0, 8, false, 15),
    GROUP(QueenForRooks, IMBALANCE, 0, 8, false, 15),
    GROUP(QueenForRooksPerMinor, IMBALANCE, 0, 8, false, 15),
    GROUP(QueenForRookAndMinor, IMBALANCE, 0, 8, false, 15),
    GROUP(QueenForMinors, IMBALANCE, 0, 8, false, 15),
    GROUP(RookForPawns, IMBALANCE, 0, 8, false, 15),
    GROUP(NoMajors, IMBALANCE, 0, 8, false, 15),
    GROUP(LeaderPerPieceGone, IMBALANCE, 0, 8, false, 15),
    GROUP(ImbalanceTable, IMBALANCE_TABLE, 0, 8, false, 10),
    GROUP(EndingPieces, FIXED, 0, 8, false, 12),
    GROUP(EndingPiecesNoQueen, FIXED, 0, 8, false, 12),
    GROUP(FianchettoHole, PLAIN, 0, 1, false, 3),
    GROUP(OpenCentreShelter, PLAIN, 0, 1, false, 3),
    GROUP(OpenFileShelter, PLAIN, 0, 1, false, 3),
    GROUP(UncastledQueenPenalty, PLAIN, 0, 8, false, 12),
    GROUP(NoQueenShelterScale, PLAIN, 0, 32, false, 40),
    GROUP(CandidateMiddlegameBase, PAWNS, NEEDS_PAWN, 8, false, 12),
    GROUP(CandidateMiddlegameTop, PAWNS, NEEDS_PAWN, 8, false, 12),
    GROUP(CandidateEndingBase, PAWNS, NEEDS_PAWN, 8, false, 12),
    GROUP(CandidateEndingTop, PAWNS, NEEDS_PAWN, 8, false, 12),
    GROUP(GuardedPawnMiddlegame, PAWNS, NEEDS_PAWN, 4, false, 8),
    GROUP(GuardedPawnEnding, PAWNS, NEEDS_PAWN, 4, false, 8),
    GROUP(PawnRaceBonus, PLAIN, NEEDS_PASSER, 8, false, 40),
    GROUP(PasserGroupBonus, PLAIN, NEEDS_PAWN, 8, false, 12),
    GROUP(PasserProtectedMiddlegame, PLAIN, NEEDS_PASSER, 8, false, 12),
    GROUP(PasserProtectedEnding, PLAIN, NEEDS_PASSER, 8, false, 12),
    GROUP(PasserConnectedMiddlegame, PLAIN, NEEDS_PASSER, 8, false, 12),
    GROUP(PasserConnectedEnding, PLAIN, NEEDS_PASSER, 8, false, 12),
    GROUP(PasserBlockedMiddlegame, PLAIN, NEEDS_PASSER, 8, false, 12),
    GROUP(PasserBlockedEnding, PLAIN, NEEDS_PASSER, 8, false, 12),
    GROUP(PasserFreeStepMiddlegame, PLAIN, NEEDS_PASSER, 8, false, 12),
    GROUP(PasserFreeStepEnding, PLAIN, NEEDS_PASSER, 8, false, 12),
    GROUP(PasserFreePathMiddlegame, PLAIN, NEEDS_PASSER, 8, false, 12),
    GROUP(PasserFreePathEnding, PLAIN, NEEDS_PASSER, 8, false, 12),
    GROUP(PasserGuardedStepMiddlegame, PLAIN, NEEDS_PASSER, 8, false, 12),
    GROUP(PasserGuardedStepEnding, PLAIN, NEEDS_PASSER, 8, false, 12),
    GROUP(RookBehindPasser, PLAIN, NEEDS_PASSER | NEEDS_ROOK, 8, false, 12),
    GROUP(EnemyRookBehindPasser, PLAIN, NEEDS_PASSER | NEEDS_ROOK, 8, false, 12),
    GROUP(PasserEnemyKing, PLAIN, NEEDS_PASSER, 8, false, 12),
    GROUP(PasserOwnKing, PLAIN, NEEDS_PASSER, 8, false, 12),
    GROUP(UnstoppablePasser, PLAIN, NEEDS_PASSER, 8, false, 40),
    GROUP(UnstoppablePerMove, PLAIN, NEEDS_PASSER, 8, false, 12),
    GROUP(RookMobilityMiddlegame, PLAIN, NEEDS_ROOK, 4, false, 4),
    GROUP(RookMobilityEnding, PLAIN, NEEDS_ROOK, 4, false, 4),
    GROUP(QueenMobilityMiddlegame, PLAIN, NEEDS_QUEEN, 4, false, 4),
    GROUP(QueenMobilityEnding, PLAIN, NEEDS_QUEEN, 4, false, 4),
    GROUP(BishopMobilityMiddlegame, PLAIN, NEEDS_BISHOP, 4, false, 4),
    GROUP(BishopMobilityEnding, PLAIN, NEEDS_BISHOP, 4, false, 4),
    GROUP(KnightMobilityMiddlegame, PLAIN, NEEDS_KNIGHT, 4, false, 4),
    GROUP(KnightMobilityEnding, PLAIN, NEEDS_KNIGHT, 4, false, 4),
    GROUP(KnightOutpostMiddlegame, PLAIN, NEEDS_KNIGHT, 8, false, 12),
    GROUP(KnightOutpostEnding, PLAIN, NEEDS_KNIGHT, 8, false, 12),
    GROUP(GuardedKnightOutpostMiddlegame, PLAIN, NEEDS_KNIGHT, 8, false, 12),
    GROUP(GuardedKnightOutpostEnding, PLAIN, NEEDS_KNIGHT, 8, false, 12),
    GROUP(BishopOutpostMiddlegame, PLAIN, NEEDS_BISHOP, 8, false, 12),
    GROUP(BishopOutpostEnding, PLAIN, NEEDS_BISHOP, 8, false, 12),
    GROUP(BishopPairMiddlegame, PLAIN, NEEDS_BISHOP, 8, false, 12),
    GROUP(BishopPairEnding, PLAIN, NEEDS_BISHOP, 8, false, 12),
    GROUP(BishopOnBothWings, PLAIN, NEEDS_BISHOP, 8, false, 12),
    GROUP(BadBishopMiddlegame, PLAIN, NEEDS_BISHOP, 8, false, 12),
    GROUP(BadBishopEnding, PLAIN, NEEDS_BISHOP, 8, false, 12),
    GROUP(TrappedBishop, PLAIN, NEEDS_BISHOP, 8, false, 12),
    GROUP(MinorFromKingMiddlegame, PLAIN, 0, 4, false, 8),
    GROUP(MinorFromKingEnding, PLAIN, 0, 4, false, 8),
    GROUP(MinorBehindPawnMiddlegame, PLAIN, 0, 4, false, 8),
    GROUP(MinorBehindPawnEnding, PLAIN, 0, 4, false, 8),
    GROUP(RookOpenMiddlegame, PLAIN, NEEDS_ROOK, 8, false, 12),
    GROUP(RookOpenEnding, PLAIN, NEEDS_ROOK, 8, false, 12),
    GROUP(RookHalfOpenMiddlegame, PLAIN, NEEDS_ROOK, 8, false, 12),
    GROUP(RookHalfOpenEnding, PLAIN, NEEDS_ROOK, 8, false, 12),
    GROUP(RookSeventhMiddlegame, PLAIN, NEEDS_ROOK, 8, false, 12),
    GROUP(RookSeventhEnding, PLAIN, NEEDS_ROOK, 8, false, 12),
    GROUP(ShutInRook, PLAIN, NEEDS_ROOK, 8, false, 12),
    GROUP(QueenSeventhMiddlegame, PLAIN, NEEDS_QUEEN, 8, false, 12),
    GROUP(QueenSeventhEnding, PLAIN, NEEDS_QUEEN, 8, false, 12),
    GROUP(PawnThreatMiddlegame, PLAIN, NEEDS_PAWN, 8, false, 12),
    GROUP(PawnThreatEnding, PLAIN, NEEDS_PAWN, 8, false, 12),
    GROUP(MinorThreatMiddlegame, PLAIN, 0, 8, false, 12),
    GROUP(MinorThreatEnding, PLAIN, 0, 8, false, 12),
    GROUP(RookThreatMiddlegame, PLAIN, NEEDS_ROOK, 8, false, 12),
    GROUP(RookThreatEnding, PLAIN, NEEDS_ROOK, 8, false, 12),
    GROUP(LoosePieceMiddlegame, PLAIN, 0, 8, false, 12),
    GROUP(LoosePieceEnding, PLAIN, 0, 8, false, 12),
    GROUP(LoosePawnMiddlegame, PLAIN, NEEDS_PAWN, 8, false, 12),
    GROUP(LoosePawnEnding, PLAIN, NEEDS_PAWN, 8, false, 12),
    GROUP(MinorOnMinorMiddlegame, PLAIN, 0, 4, false, 8),
    GROUP(MinorOnMinorEnding, PLAIN, 0, 4, false, 8),
    GROUP(RookOnMinorMiddlegame, PLAIN, 0, 4, false, 8),
    GROUP(RookOnMinorEnding, PLAIN, 0, 4, false, 8),
    GROUP(MinorOnPawnMiddlegame, PLAIN, 0, 4, false, 8),
    GROUP(MinorOnPawnEnding, PLAIN, 0, 4, false, 8),
    GROUP(RookOnPawnMiddlegame, PLAIN, 0, 4, false, 8),
    GROUP(RookOnPawnEnding, PLAIN, 0, 4, false, 8),
    GROUP(PushThreatMiddlegame, PLAIN, 0, 4, false, 8),
    GROUP(PushThreatEnding, PLAIN, 0, 4, false, 8),
    GROUP(CheckSquareMiddlegame, PLAIN, 0, 4, false, 8),
    GROUP(CheckSquareEnding, PLAIN, 0, 4, false, 8),
    GROUP(PinMiddlegame, PLAIN, 0, 4, false, 8),
    GROUP(PinEnding, PLAIN, 0, 4, false, 8),
    GROUP(UnguardedPieceMiddlegame, PLAIN, 0, 4, false, 8),
    GROUP(UnguardedPieceEnding, PLAIN, 0, 4, false, 8),
    GROUP(ContestedMiddlegame, PLAIN, 0, 4, false, 8),
    GROUP(ContestedEnding, PLAIN, 0, 4, false, 8),
    GROUP(PawnAtKingMiddlegame, PLAIN, 0, 4, false, 8),
    GROUP(PawnAtKingEnding, PLAIN, 0, 4, false, 8),
    GROUP(KingFromOwnPawn, PLAIN, 0, 4, false, 8),
    GROUP(KingFromEnemyPawn, PLAIN, 0, 4, false, 8),
    GROUP(KnightDanger, PLAIN, NEEDS_KNIGHT, 2, false, 4),
    GROUP(BishopDanger, PLAIN, NEEDS_BISHOP, 2, false, 4),
    GROUP(RookDanger, PLAIN, NEEDS_ROOK, 2, false, 4),
    GROUP(QueenDanger, PLAIN, NEEDS_QUEEN, 2, false, 4),
    GROUP(DangerPerSquare, PLAIN, 0, 2, false, 4),
    GROUP(DangerPerWeakSquare, PLAIN, 0, 2, false, 4),
    GROUP(KnightCheckDanger, PLAIN, NEEDS_KNIGHT, 2, false, 4),
    GROUP(BishopCheckDanger, PLAIN, NEEDS_BISHOP, 2, false, 4),
    GROUP(RookCheckDanger, PLAIN, NEEDS_ROOK, 2, false, 4),
    GROUP(QueenCheckDanger, PLAIN, NEEDS_QUEEN, 2, false, 4),
    GROUP(StormDanger, PLAIN, NEEDS_PAWN, 2, false, 4),
    GROUP(OppositeBishopsScale, PLAIN, NEEDS_FEW_PIECES, 16, false, 40),
    GROUP(WrongRookPawnScale, PLAIN, NEEDS_FEW_PIECES, 16, false, 40),
    GROUP(RookEndingScale, PLAIN, NEEDS_FEW_PIECES, 16, false, 40),
    GROUP(NoPawnScale, PLAIN, NEEDS_FEW_PIECES, 16, false, 40),
    GROUP(QueenRookPawnScale, PLAIN, NEEDS_FEW_PIECES, 16, false, 40),
    GROUP(DoubledMiddlegame, PAWNS, NEEDS_PAWN, 8, true, 8),
    GROUP(DoubledEnding, PAWNS, NEEDS_PAWN, 8, true, 8),
    GROUP(IsolatedMiddlegame, PAWNS, NEEDS_PAWN, 8, true, 8),
    GROUP(IsolatedOpenMiddlegame, PAWNS, NEEDS_PAWN, 8, true, 8),
    GROUP(IsolatedEnding, PAWNS, NEEDS_PAWN, 8, true, 8),
    GROUP(BackwardMiddlegame, PAWNS, NEEDS_PAWN, 8, true, 8),
    GROUP(BackwardOpenMiddlegame, PAWNS, NEEDS_PAWN, 8, true, 8),
    GROUP(BackwardEnding, PAWNS, NEEDS_PAWN, 8, true, 8),
    GROUP(ConnectedMiddlegame, PAWNS, NEEDS_PAWN, 8, false, 12),
    GROUP(SupportedEnding, PAWNS, NEEDS_PAWN, 8, false, 12),
    GROUP(PasserMiddlegame, PLAIN, NEEDS_PASSER, 8, false, 12),
    GROUP(PasserEnding, PLAIN, NEEDS_PASSER, 8, false, 12),
    GROUP(AdvanceScale, PAWNS_TOO, NEEDS_PAWN, 16, false, 40),
    GROUP(PasserCountBonus, PLAIN, NEEDS_PASSER | NEEDS_ROOK, 8, false, 12),
    GROUP(PawnMiddlegame, SQUARES, 0, 8, false, 15),
    GROUP(PawnEnding, SQUARES, 0, 8, false, 15),
    GROUP(KnightMiddlegame, SQUARES, 0, 8, false, 15),
    GROUP(KnightEnding, SQUARES, 0, 8, false, 15),
    GROUP(BishopMiddlegame, SQUARES, 0, 8, false, 15),
    GROUP(BishopEnding, SQUARES, 0, 8, false, 15),
    GROUP(RookMiddlegame, SQUARES, 0, 8, false, 15),
    GROUP(RookEnding, SQUARES, 0, 8, false, 15),
    GROUP(QueenMiddlegame, SQUARES, 0, 8, false, 15),
    GROUP(QueenEnding, SQUARES, 0, 8, false, 15),
    GROUP(KingMiddlegame, SQUARES, 0, 8, false, 15),
    GROUP(KingEnding, SQUARES, 0, 8, false, 15),
};

// clang-format on

#undef GROUP

// The table follows the set member by member.
static consteval bool GroupsAreComplete() {
    size_t next = 0;
    for (const ParameterGroup& group : Groups) {
        if (group.first != next)
            return false;
        next += group.count;
    }
    return next == EVAL_PARAMETER_COUNT;
}
static_assert(GroupsAreComplete());

std::span<const ParameterGroup> ParameterGroups() {
    return Groups;
}

// The cell of the imbalance table with the sides exchanged. Its index counts [White has a queen]
// [Black has one] in twos and three kinds of pieces of each side in threes.
static size_t ExchangedCell(size_t cell) {
    constexpr size_t side = 27;
    const size_t black = cell % side;
    const size_t white = cell / side % side;
    const size_t queens = cell / side / side;
    const size_t exchangedQueens = (queens & 1) << 1 | queens >> 1;
    return (exchangedQueens * side + black) * side + white;
}

// The first member of its group that is the same number, or the opposite.
static size_t FirstAlike(const ParameterGroup& group, size_t i) {
    if (group.kind == ParameterKind::IMBALANCE_TABLE)
        return std::min(i, ExchangedCell(i));
    return group.mirrored ? std::min(i, group.count - 1 - i) : i;
}

Unknowns FindUnknowns() {
    Unknowns unknowns;
    unknowns.ofMember.resize(EVAL_PARAMETER_COUNT);
    for (const ParameterGroup& group : Groups) {
        for (size_t i = 0; i < group.count && group.kind != ParameterKind::FIXED; i++) {
            MemberUnknown& member = unknowns.ofMember[group.first + i];
            const size_t alike = FirstAlike(group, i);
            const bool table = group.kind == ParameterKind::IMBALANCE_TABLE;
            // With the same pieces on both sides there is no imbalance.
            if (table && ExchangedCell(i) == i)
                continue;
            if (alike < i) {
                member = {unknowns.ofMember[group.first + alike].unknown, table ? -1 : 1};
                continue;
            }
            member.unknown = int(unknowns.all.size());
            unknowns.all.push_back({&group, group.first + i});
        }
    }
    return unknowns;
}

static std::string SquareName(size_t square) {
    return {char('a' + square % 8), char('1' + square / 8)};
}

std::string NameOf(const Unknown& unknown) {
    const ParameterGroup& group = *unknown.group;
    const size_t i = unknown.member - group.first;
    std::string name = group.name;
    if (group.kind == ParameterKind::SQUARES)
        name += "[" + SquareName(i) + "]";
    else if (group.mirrored)
        name += std::string("[") + char('a' + i) + char('h' - i) + "]";
    else if (group.count > 1)
        name += "[" + std::to_string(i) + "]";
    return name;
}
