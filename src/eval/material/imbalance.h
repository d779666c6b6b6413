// What the men of both sides are worth beyond the sum of their values.
#pragma once

#include <cstddef>

#include "board/types.h"

// The men that one side has, without its king.
struct MenOfSide {
    int pawns;
    int knights;
    int bishops;
    int rooks;
    int queens;

    int Minors() const {
        return knights + bishops;
    }
    int Pieces() const {
        return Minors() + rooks + queens;
    }
    // Phase units.
    int Units() const {
        return PiecePhaseUnits[KNIGHT] * Minors() + PiecePhaseUnits[ROOK] * rooks +
               PiecePhaseUnits[QUEEN] * queens;
    }
};

// Centipawns, positive when Black gains. Takes any number of men.
int16_t MaterialImbalance(const MenOfSide& white, const MenOfSide& black);

// The cell of the imbalance table that these men have.
size_t ImbalanceCell(const MenOfSide& white, const MenOfSide& black);
