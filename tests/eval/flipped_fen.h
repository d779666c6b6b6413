// The position as its opponent sees it, for terms that must not prefer a colour.
#pragma once

#include <string>

#include "board/position.h"

// FEN of the current position with colours exchanged and the board upside down, without the
// en-passant field.
inline std::string FlippedFen() {
    std::string men, rights;
    for (int rank = 0; rank < 8; rank++) {
        for (int file = 0; file < 8; file++) {
            const int sq = rank * 8 + file;
            if (Board[sq] == EMPTY)
                men += '1';
            else
                men += (ColourOn(sq) == WHITE ? ".knp?rbq" : ".KNP?RBQ")[Board[sq]];
        }
        men += rank < 7 ? "/" : "";
    }
    for (int right = 0; right < 4; right++) {
        if (CastleRights >> right & 1)
            rights += "kqKQ"[right];
    }
    return men + (SideToMove == WHITE ? " b " : " w ") + (rights.empty() ? "-" : rights) + " -";
}

// FEN of the current position with the files exchanged, a with h and so on, for terms that must not
// prefer a wing; without castling rights.
inline std::string MirroredFen() {
    std::string men;
    for (int rank = 7; rank >= 0; rank--) {
        for (int file = 7; file >= 0; file--) {
            const int sq = rank * 8 + file;
            if (Board[sq] == EMPTY)
                men += '1';
            else
                men += (ColourOn(sq) == WHITE ? ".KNP?RBQ" : ".knp?rbq")[Board[sq]];
        }
        men += rank > 0 ? "/" : "";
    }
    return men + (SideToMove == WHITE ? " w - -" : " b - -");
}
