// Corrections of the balance that follow from pawns and few pieces: what exchanges would leave.
//
// All results are centipawns from Black's view. All need `Pawns` of the position.
#pragma once

#include <cstdint>

// Outside passed pawns and majorities: the more the opponent's pieces go, the more they count.
int32_t PawnTradeCorrection();

// A rook with passed pawns against two minor pieces, passed pawns far apart against a lone king,
// and pawns that no king can stop.
int32_t PawnEndingCorrection();
