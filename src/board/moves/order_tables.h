// What move ordering has learned, kept beside the generators that read it.
//
// The rules of learning (rewards, penalties, aging) stand in the search.
#pragma once

#include "board/types.h"

// By piece code, in centipawns. The king counts as the most valuable captor, so that it captures
// last.
constexpr int OrderingValue[PIECE_CODES] = {0, 950, 300, 100, 0, 500, 300, 900};

// Captures and promotions that lose nothing by exchange have this order score and more, others
// less.
constexpr int32_t SAFE_CAPTURE = 100000;

// Quiet moves: two slices of four planes of (to * 64 + from) * 2 + side, values 0..32700.
constexpr int HISTORY_PLANE_ENTRIES = 64 * 64 * 2;
constexpr int HISTORY_SLICE = 4 * HISTORY_PLANE_ENTRIES;
constexpr int HISTORY_ENTRIES = 2 * HISTORY_SLICE;
extern int32_t HistoryTable[HISTORY_ENTRIES];

// King and knight, pawn and bishop share planes by design.
constexpr int HISTORY_PLANE[PIECE_CODES] = {0, 0, 0, 1, 0, 2, 1, 3};

constexpr int HistoryIndex(Move m, int slice, Colour side) {
    return slice * HISTORY_SLICE + HISTORY_PLANE[MovingPiece(m)] * HISTORY_PLANE_ENTRIES +
           (To(m) * 64 + From(m)) * 2 + side;
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

// Each forgets what one table has learned.
void ClearHistory();
void ClearEvasionReplies();
void ClearCaptureStats();
