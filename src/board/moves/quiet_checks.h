// Generating quiet moves that give check.
#pragma once

// Appends the quiet moves of the side to move that check the enemy king, directly or by
// discovery, and lose nothing by exchange: queens, rooks, bishops, knights, pawns; scored by
// history slice 0 or 1. Neither castling nor king moves are among them, and some may be illegal.
void GenerateQuietChecks(int slice);
