// Features of the evaluation at selected positions of a PGN file's games, as lines for a
// spreadsheet.
//
// A line has 28 fields with ";" between them; s is the side to move, o its opponent:
//    1 plies left to the end of the game, by the PlyCount tag (without it: minus the plies played)
//    2 evaluation for s        3 its material part        4 the rest of it        5 AuxScore
//    6 result for s: 0 draw, 1 won, 2 lost; what is unfinished counts as won by Black
//    7 pawns, 8 light-squared bishops, 9 dark-squared bishops, 10 knights, 11 rooks, 12 queens of s
//   13 to 18 the same of o
//   19 the position as FEN    20 current_phase
//   21 KingAttackScore, 22 Danger, 23 KingAttackers, 24 shelter_penalty of s
//   25 to 28 the same of o
// All scores are centipawns.
#pragma once

// Goes through the games of the file, tells the running count of them, and appends a line to
// "c:\work\my_eval.csv" for each position after a capture or promotion and before a move that is
// neither, from ply 10 on, unless its outcome is known. A game ends with the first move that cannot
// be read. The last position stays on the board.
void PgnEvaluate(const char* path);
