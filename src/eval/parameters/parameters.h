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
    int32_t GuardedPawnMiddlegame = 6; // by another pawn
    int32_t GuardedPawnEnding = -3;

    // Pawn endings.
    int32_t PawnRaceBonus = 150;   // a passed pawn that the enemy king cannot stop
    int32_t PasserGroupBonus = 48; // each further group of files, against a lone king

    // Passed pawns. All but the last two are worth so much one step before promotion and less
    // further back, by `AdvanceScale`.
    int32_t PasserProtectedMiddlegame = 34;
    int32_t PasserProtectedEnding = -4;
    int32_t PasserConnectedMiddlegame = 1; // beside another one
    int32_t PasserConnectedEnding = 56;
    int32_t PasserBlockedMiddlegame = 37; // by an enemy man
    int32_t PasserBlockedEnding = 27;
    int32_t PasserFreeStepMiddlegame = 19; // nobody stands or strikes there
    int32_t PasserFreeStepEnding = 93;
    int32_t PasserFreePathMiddlegame = 15; // all the way
    int32_t PasserFreePathEnding = 236;
    int32_t PasserGuardedStepMiddlegame = 68; // the enemy strikes there, and so do we
    int32_t PasserGuardedStepEnding = 78;
    int32_t RookBehindPasser = 122; // ending
    int32_t EnemyRookBehindPasser = 31;
    int32_t PasserEnemyKing = 71; // for each square that the king is away, ending
    int32_t PasserOwnKing = 49;
    int32_t UnstoppablePasser = 450;
    int32_t UnstoppablePerMove = 21; // that it still needs to promote

    // Pieces. Mobility for each square beyond the usual number.
    int32_t RookMobilityMiddlegame = 2;
    int32_t RookMobilityEnding = 4;
    int32_t QueenMobilityMiddlegame = 1;
    int32_t QueenMobilityEnding = 2;
    int32_t BishopMobilityMiddlegame = 3;
    int32_t BishopMobilityEnding = 3;
    int32_t KnightMobilityMiddlegame = 5;
    int32_t KnightMobilityEnding = 1;
    int32_t KnightOutpostMiddlegame = 17;
    int32_t KnightOutpostEnding = -7;
    int32_t GuardedKnightOutpostMiddlegame = 43;
    int32_t GuardedKnightOutpostEnding = -6;
    int32_t BishopOutpostMiddlegame = 25;
    int32_t BishopOutpostEnding = 9;
    int32_t BishopPairMiddlegame = 38;
    int32_t BishopPairEnding = 68;
    int32_t BishopOnBothWings = 0;   // the less its side has else
    int32_t BadBishopMiddlegame = 3; // for each own pawn on its colour
    int32_t BadBishopEnding = 5;
    int32_t TrappedBishop = 101;
    int32_t MinorFromKingMiddlegame = 2; // for each square between it and its king
    int32_t MinorFromKingEnding = 2;
    int32_t MinorBehindPawnMiddlegame = 9;
    int32_t MinorBehindPawnEnding = 17;
    int32_t RookOpenMiddlegame = 39;
    int32_t RookOpenEnding = 5;
    int32_t RookHalfOpenMiddlegame = 22;
    int32_t RookHalfOpenEnding = 13;
    int32_t RookSeventhMiddlegame = -38;
    int32_t RookSeventhEnding = 17;
    int32_t ShutInRook = 41;
    int32_t QueenSeventhMiddlegame = -26;
    int32_t QueenSeventhEnding = 50;

    // Threats: enemy pieces attacked by a pawn, rooks and queens by a minor piece, queens by a
    // rook, and what nobody guards.
    int32_t PawnThreatMiddlegame = 40;
    int32_t PawnThreatEnding = 34;
    int32_t MinorThreatMiddlegame = 32;
    int32_t MinorThreatEnding = 29;
    int32_t RookThreatMiddlegame = 59;
    int32_t RookThreatEnding = -5;
    int32_t LoosePieceMiddlegame = -11;
    int32_t LoosePieceEnding = -16;
    int32_t LoosePawnMiddlegame = -2;
    int32_t LoosePawnEnding = 26;
    // Men that no pawn guards, attacked by pieces.
    int32_t MinorOnMinorMiddlegame = 30;
    int32_t MinorOnMinorEnding = 35;
    int32_t RookOnMinorMiddlegame = 24;
    int32_t RookOnMinorEnding = 29;
    int32_t MinorOnPawnMiddlegame = 4;
    int32_t MinorOnPawnEnding = 13;
    int32_t RookOnPawnMiddlegame = 1;
    int32_t RookOnPawnEnding = 10;
    int32_t PushThreatMiddlegame = 20; // a piece that a pawn's step would attack
    int32_t PushThreatEnding = 12;
    int32_t CheckSquareMiddlegame = 14; // from which a piece could give check
    int32_t CheckSquareEnding = 16;
    int32_t PinMiddlegame = 11; // to the king
    int32_t PinEnding = 8;
    int32_t UnguardedPieceMiddlegame = 5; // of one's own
    int32_t UnguardedPieceEnding = 7;

    // The board as a whole.
    int32_t ContestedMiddlegame = 5; // for each square that both attack
    int32_t ContestedEnding = -2;
    int32_t PawnAtKingMiddlegame = 15; // for each own pawn next to the king
    int32_t PawnAtKingEnding = -1;
    int32_t KingFromOwnPawn = 5; // for each step to the nearest, ending
    int32_t KingFromEnemyPawn = 5;

    // Attacks on a king, in units of danger.
    int32_t KnightDanger = 12;
    int32_t BishopDanger = 20;
    int32_t RookDanger = 17;
    int32_t QueenDanger = 8;
    int32_t DangerPerSquare = 0; // of the king's surroundings that a piece attacks
    int32_t DangerPerWeakSquare = 11;
    int32_t KnightCheckDanger = 31;
    int32_t BishopCheckDanger = 15;
    int32_t RookCheckDanger = 33;
    int32_t QueenCheckDanger = 43;
    int32_t StormDanger = 19; // a pawn on the fifth rank; twice that on the sixth

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
    RankTable ConnectedMiddlegame = {0, 2, 10, 9, 17, 41, 50, 0};
    RankTable SupportedEnding = {0, 0, 0, 0, 0, 16, 24, 0};

    // Passed pawns.
    RankTable PasserMiddlegame = {0, 8, -1, -7, 24, 28, 48, 0};
    RankTable PasserEnding = {0, 22, 21, 39, 56, 82, 73, 0};
    RankTable AdvanceScale = {0, -10, 4, 24, 48, 111, 178, 0}; // 256ths
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
