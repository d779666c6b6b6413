// The material classes that endgame tablebases exist for: their numbers, names and men.
#pragma once

#include <array>
#include <string_view>

#include "board/types.h"

// Kinds of men beside the king, in the order in which class names and table indexes take them.
enum TablebaseKind : int32_t { TB_QUEEN, TB_ROOK, TB_BISHOP, TB_KNIGHT, TB_PAWN, TB_KINDS };
constexpr Piece PieceOfKind[TB_KINDS] = {QUEEN, ROOK, BISHOP, KNIGHT, PAWN};

// Classes are numbered from 1 in order of their men; these are the last ones with so many men.
constexpr int LAST_THREE_MEN_CLASS = 5;
constexpr int LAST_FOUR_MEN_CLASS = 35;
constexpr int LAST_FIVE_MEN_CLASS = 145;
constexpr int TABLEBASE_CLASSES = 440;
constexpr int MAX_TABLEBASE_MEN = 6; // kings included

// What is known of the bytes that an entry of a class takes, the same for both sides to move.
enum EntryWidth : uint8_t { WIDTH_UNKNOWN, WIDTH_ONE_BYTE, WIDTH_TWO_BYTES };

// The first-named side (0) is the stronger one: it has more men or, man by man, better ones.
struct TablebaseClass {
    char name[MAX_TABLEBASE_MEN + 1]; // "kqkr"; file names begin with it
    uint8_t men;                      // kings included
    uint8_t count[2][TB_KINDS];       // by side and kind
    bool symmetric;                   // both sides have the same men
    EntryWidth width;

    constexpr bool HasPawns() const {
        return count[0][TB_PAWN] + count[1][TB_PAWN] != 0;
    }
    // Only then can a pawn be taken en passant.
    constexpr bool BothHavePawns() const {
        return count[0][TB_PAWN] != 0 && count[1][TB_PAWN] != 0;
    }
};

// By number, 1 to TABLEBASE_CLASSES; row 0 stays empty.
extern const std::array<TablebaseClass, TABLEBASE_CLASSES + 1> TablebaseClasses;

// Number of the class of the men on a board, given as `PieceCount` is: by piece code and colour. 0
// when there is none, for bare kings too. `swapped` tells whether Black has the men of the
// first-named side; it is false for symmetric classes.
int FindTablebaseClass(const int32_t (&pieceCount)[PIECE_CODES][2], bool& swapped);

// Number of the class with this name, in lower case; 0 when there is none.
int FindTablebaseClass(std::string_view name);
