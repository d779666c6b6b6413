// The numbers of the evaluation: one flat set that a file can replace.
//
// The order of the members is the order of the values file. Reader and writer walk the set as one
// list, so they cannot drift apart; whoever adds a member changes the format of the file.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "eval/parameters/board_table.h"
#include "eval/parameters/default_tables.h"

// By file, a to h.
using FileTable = std::array<int32_t, 8>;
// By rank as the man's own side counts them, the first rank first.
using RankTable = std::array<int32_t, 8>;

// Every member is a 32-bit integer or a table of them. Centipawns where nothing else is said.
struct EvalParameters {
    // ---- Material imbalance: zero until a file is read ------------------------------------------
    // 16ths of a centipawn for every knight, bishop, rook and queen and for each pawn beyond the
    // fifth of its own side and of the other; with fewer than five they count negatively.
    std::array<int32_t, 4> PieceByOwnPawns = {};
    std::array<int32_t, 4> PieceByOpponentPawns = {};
    // Added to the weight of an attack on the king by one to six pieces, the last to that by seven
    // to fifteen as well.
    std::array<int32_t, 6> AttackerWeightChange = {};

    // Minor pieces. Each counts for the side that its name speaks of; what is "up" and "for" is
    // the difference between the sides, all kinds not named being equal. "Per pawn" means all pawns
    // on the board beyond ten, which counts negatively below.
    int32_t MinorUp = 0; // whatever the other pieces
    int32_t SecondMinorUp = 0;
    int32_t MinorForPawns = 0; // two or more
    int32_t MinorForPawnsWithQueens = 0;
    int32_t MinorForPawnsPerOwnPawn = 0;
    int32_t TwoMinorsForRook = 0;
    int32_t TwoMinorsForRookPerPawn = 0;
    int32_t RookForMinor = 0;
    int32_t RookForMinorPerPawn = 0;
    int32_t RookForMinorAgainstPair = 0; // of bishops
    int32_t BishopPairPerPawn = 0;
    int32_t KnightPair = 0;

    // Rooks and queens, in the same way.
    int32_t RookPair = 0;
    int32_t RookBesideQueen = 0; // for each
    int32_t SecondQueen = 0;     // for each beyond the first
    int32_t QueenForRooks = 0;
    int32_t QueenForRooksPerMinor = 0; // of either side
    int32_t QueenForRookAndMinor = 0;
    int32_t QueenForMinors = 0;     // three
    int32_t RookForPawns = 0;       // three or more
    int32_t NoMajors = 0;           // while the opponent has some
    int32_t LeaderPerPieceGone = 0; // for who is ahead in pieces and in all

    // Black's view, by [White has a queen][Black has one], then from 0 to 2 of each
    // [white rooks][white bishops][white knights][black rooks][black bishops][black knights].
    std::array<int32_t, 2 * 2 * 3 * 3 * 3 * 27> ImbalanceTable = {};

    // ---- Scalars --------------------------------------------------------------------------------
    // Endings begin where the opponent has at most this many phase units, or with no queen this
    // many.
    int32_t EndingPieces = 9;
    int32_t EndingPiecesNoQueen = 14;

    // King shelter.
    int32_t FianchettoHole = 3;
    int32_t OpenCentreShelter = 8;
    int32_t OpenFileShelter = 6;
    int32_t UncastledQueenPenalty = 12;
    int32_t NoQueenShelterScale = 128; // 256ths

    // Pawns. A candidate, whose neighbours can help it to become a passed pawn, is worth the base
    // at home and up to the top as it advances.
    int32_t CandidateMiddlegameBase = 5;
    int32_t CandidateMiddlegameTop = 55;
    int32_t CandidateEndingBase = 10;
    int32_t CandidateEndingTop = 110;

    // Pawn endings.
    int32_t PawnRaceBonus = 150;   // a passed pawn that the enemy king cannot stop
    int32_t PasserGroupBonus = 48; // each further group of files, against a lone king

    // Passed pawns. All but the last two are worth so much one step before promotion and less
    // further back, by `AdvanceScale`.
    int32_t PasserProtectedMiddlegame = 10;
    int32_t PasserProtectedEnding = 10;
    int32_t PasserConnectedMiddlegame = 24; // beside another one
    int32_t PasserConnectedEnding = 20;
    int32_t PasserBlockedMiddlegame = 20; // by an enemy man
    int32_t PasserBlockedEnding = 27;
    int32_t PasserFreeStepMiddlegame = 5; // nobody stands or strikes there
    int32_t PasserFreeStepEnding = 59;
    int32_t PasserFreePathMiddlegame = 22; // all the way
    int32_t PasserFreePathEnding = 85;
    int32_t PasserGuardedStepMiddlegame = 6; // the enemy strikes there, and so do we
    int32_t PasserGuardedStepEnding = 24;
    int32_t RookBehindPasser = 34; // ending
    int32_t EnemyRookBehindPasser = 22;
    int32_t PasserEnemyKing = 22; // for each square that the king is away, ending
    int32_t PasserOwnKing = 14;
    int32_t UnstoppablePasser = 450;
    int32_t UnstoppablePerMove = 21; // that it still needs to promote

    // Pieces. Mobility for each square beyond the usual number.
    int32_t RookMobilityMiddlegame = 2;
    int32_t RookMobilityEnding = 4;
    int32_t QueenMobilityMiddlegame = 1;
    int32_t QueenMobilityEnding = 2;
    int32_t BishopMobilityMiddlegame = 3;
    int32_t BishopMobilityEnding = 3;
    int32_t KnightMobilityMiddlegame = 4;
    int32_t KnightMobilityEnding = 2;
    int32_t KnightOutpostMiddlegame = 4;
    int32_t KnightOutpostEnding = 4;
    int32_t GuardedKnightOutpostMiddlegame = 34;
    int32_t GuardedKnightOutpostEnding = 6;
    int32_t BishopOutpostMiddlegame = 16;
    int32_t BishopOutpostEnding = 2;
    int32_t BishopPairMiddlegame = 49;
    int32_t BishopPairEnding = 44;
    int32_t BishopOnBothWings = 10;  // the less its side has else
    int32_t BadBishopMiddlegame = 6; // for each own pawn on its colour
    int32_t BadBishopEnding = 8;
    int32_t TrappedBishop = 110;
    int32_t RookOpenMiddlegame = 28;
    int32_t RookOpenEnding = 9;
    int32_t RookHalfOpenMiddlegame = 14;
    int32_t RookHalfOpenEnding = 9;
    int32_t RookSeventhMiddlegame = 4;
    int32_t RookSeventhEnding = 16;
    int32_t ShutInRook = 70;
    int32_t QueenSeventhMiddlegame = 1;
    int32_t QueenSeventhEnding = 11;

    // Threats: enemy pieces attacked by a pawn, rooks and queens by a minor piece, queens by a
    // rook, and what nobody guards.
    int32_t PawnThreatMiddlegame = 44;
    int32_t PawnThreatEnding = 36;
    int32_t MinorThreatMiddlegame = 37;
    int32_t MinorThreatEnding = 23;
    int32_t RookThreatMiddlegame = 35;
    int32_t RookThreatEnding = 23;
    int32_t LoosePieceMiddlegame = 17;
    int32_t LoosePieceEnding = 18;
    int32_t LoosePawnMiddlegame = 7;
    int32_t LoosePawnEnding = 16;

    // Attacks on a king, in units of danger.
    int32_t KnightDanger = 6;
    int32_t BishopDanger = 10;
    int32_t RookDanger = 9;
    int32_t QueenDanger = 13;
    int32_t DangerPerSquare = 4; // of the king's surroundings that a piece attacks
    int32_t DangerPerWeakSquare = 4;
    int32_t KnightCheckDanger = 16;
    int32_t BishopCheckDanger = 9;
    int32_t RookCheckDanger = 12;
    int32_t QueenCheckDanger = 23;
    int32_t StormDanger = 2; // a pawn on the fifth rank; twice that on the sixth

    // Endings: 256ths that a drawish one leaves of the score.
    int32_t OppositeBishopsScale = 128;
    int32_t WrongRookPawnScale = 128;
    int32_t RookEndingScale = 128;
    int32_t NoPawnScale = 128;
    int32_t QueenRookPawnScale = 128;

    // ---- Tables ---------------------------------------------------------------------------------
    // Pawns. What a weakness costs, by file; "open" is a pawn with no other one before it.
    FileTable DoubledMiddlegame = {10, 10, 10, 12, 12, 10, 10, 10};
    FileTable DoubledEnding = {18, 18, 18, 20, 20, 18, 18, 18};
    FileTable IsolatedMiddlegame = {8, 9, 10, 12, 12, 10, 9, 8};
    FileTable IsolatedOpenMiddlegame = {18, 19, 20, 22, 22, 20, 19, 18};
    FileTable IsolatedEnding = {18, 19, 20, 22, 22, 20, 19, 18};
    FileTable BackwardMiddlegame = {6, 7, 8, 10, 10, 8, 7, 6};
    FileTable BackwardOpenMiddlegame = {12, 14, 16, 18, 18, 16, 14, 12};
    FileTable BackwardEnding = {8, 9, 10, 12, 12, 10, 9, 8};
    // Beside or guarded by another pawn.
    RankTable ConnectedMiddlegame = {0, 1, 4, 5, 9, 16, 24, 0};
    RankTable SupportedEnding = {0, 0, 0, 0, 0, 16, 24, 0};

    // Passed pawns.
    RankTable PasserMiddlegame = {0, 4, 6, 8, 22, 40, 105, 0};
    RankTable PasserEnding = {0, 14, 16, 18, 33, 57, 120, 0};
    RankTable AdvanceScale = {0, 0, 10, 54, 74, 246, 320, 0}; // 256ths
    // For a rook's side against two minor pieces, by the number of files with a passed pawn.
    std::array<int32_t, 9> PasserCountBonus = {0, 5, 10, 15, 20, 20, 20, 20, 20};

    // Where men stand well, on top of their plain values.
    SquareTable PawnMiddlegame = DefaultPawnMiddlegame;
    SquareTable PawnEnding = DefaultPawnEnding;
    SquareTable KnightMiddlegame = DefaultKnightMiddlegame;
    SquareTable KnightEnding = DefaultKnightEnding;
    SquareTable BishopMiddlegame = DefaultBishopMiddlegame;
    SquareTable BishopEnding = DefaultBishopEnding;
    SquareTable RookMiddlegame = DefaultRookMiddlegame;
    SquareTable RookEnding = DefaultRookEnding;
    SquareTable QueenMiddlegame = DefaultQueenMiddlegame;
    SquareTable QueenEnding = DefaultQueenEnding;
    SquareTable KingMiddlegame = DefaultKingMiddlegame;
    SquareTable KingEnding = DefaultKingEnding;
};

// No parameter lies further from 0: their sums over all men then stay far within 32 bits.
constexpr int32_t PARAMETER_LIMIT = 100000;

constexpr size_t EVAL_PARAMETER_COUNT = sizeof(EvalParameters) / sizeof(int32_t);
// The imbalance, with the change of the attackers' weight among it, comes first.
constexpr size_t IMBALANCE_PARAMETER_COUNT =
    (offsetof(EvalParameters, ImbalanceTable) + sizeof(EvalParameters::ImbalanceTable)) /
    sizeof(int32_t);

extern EvalParameters Params;
