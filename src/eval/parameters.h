// The numbers of the evaluation: one flat set that a file can replace.
//
// The order of the members is the order of the values file. Reader and writer walk the set as one
// list, so they cannot drift apart; whoever adds a member changes the format of the file.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "eval/board_table.h"
#include "eval/default_tables.h"

// By file, a to h.
using FileTable = std::array<int32_t, 8>;
// By rank as the man's own side counts them, the first rank first.
using RankTable = std::array<int32_t, 8>;

// Every member is a 32-bit integer or a table of them. Centipawns where nothing else is said.
struct EvalParameters {
    // ---- Material imbalance: zero until a file is read ------------------------------------------
    std::array<int32_t, 8> ImbalanceByPawns = {};
    std::array<int32_t, 6> AttackerWeightChange = {};
    std::array<int32_t, 12> ImbalanceOfMinors = {};
    std::array<int32_t, 10> ImbalanceOfMajors = {};
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

    // Pawns.

    // Pawn endings.
    int32_t PawnRaceBonus = 150;

    // Passed pawns.

    // Pieces.

    // Endings: 256ths that a drawish one leaves of the score.

    // ---- Tables ---------------------------------------------------------------------------------
    // Pawns.

    // Passed pawns.

    // Pieces.

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

constexpr size_t EVAL_PARAMETER_COUNT = sizeof(EvalParameters) / sizeof(int32_t);

extern EvalParameters Params;
