#include "board/board_view.h"

#include <cstdio>

#include "board/notation.h"
#include "board/position.h"

void PrintBoard() {
    for (int rank = 7; rank >= 0; rank--) {
        for (int sq = rank * 8; sq < rank * 8 + 8; sq++) {
            const bool black = (ColourBB[BLACK] & SquareBit(sq)) != 0;
            std::printf("%c%c", black ? '*' : ' ', PieceLetters[Board[sq]]);
        }
        std::printf("\n");
    }
    std::fflush(stdout);
}
