// What move ordering has learned, kept beside the generators that read it.
//
// The rules of learning (rewards, penalties, aging) stand in the search.
#pragma once

#include "board/types.h"

// Quiet moves: [slice * 32768 + plane * 8192 + (to * 64 + from) * 2 + side], values 0..32700.
constexpr int HISTORY_ENTRIES = 65536;
extern int32_t HistoryTable[HISTORY_ENTRIES];

// King and knight, pawn and bishop share planes by design.
constexpr int HISTORY_PLANE[PIECE_CODES] = {0, 0, 0, 1, 0, 2, 1, 3};

constexpr int HistoryIndex(Move m, int slice, Colour side) {
    return slice * 32768 + HISTORY_PLANE[MovingPiece(m)] * 8192 + (To(m) * 64 + From(m)) * 2 + side;
}

// How captures that lose by the exchange test have fared; a slot whose stamp is not the current
// `HashAge` reads as empty.
constexpr int CAPTURE_STATS_ENTRIES = 262144;
struct CaptureStatistics {
    int32_t tries[CAPTURE_STATS_ENTRIES];
    int32_t successes[CAPTURE_STATS_ENTRIES];
    int32_t stamp[CAPTURE_STATS_ENTRIES];
};
extern CaptureStatistics CaptureStats;

// The side bit lands on a bit that the from-square uses as well. Meant so: reader and writer
// agree, and moving it would change every ordering.
constexpr int CaptureStatsIndex(Move m, Colour side) {
    return (CapturedPiece(m) * 8) | MovingPiece(m) | (To(m) * 64) | (From(m) * 4096) | (side << 13);
}

// Replies to a check that were best before: [to-square of the checking move * 128 + own king
// square * 2 + side to move].
constexpr int EVASION_REPLIES = 8192;
extern Move EvasionReply[EVASION_REPLIES];

constexpr int EvasionReplyIndex(Move checkingMove, int kingSquare, Colour side) {
    return To(checkingMove) * 128 + kingSquare * 2 + side;
}

// The current generation of the transposition table and of the capture statistics; compared for
// equality only. Every search advances it by one.
extern int16_t HashAge;

void ClearHistory();
void ClearEvasionReplies();
void ClearCaptureStats();
