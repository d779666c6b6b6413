#include "board/moves/order_tables.h"

#include <algorithm>
#include <iterator>

constinit int32_t HistoryTable[HISTORY_ENTRIES] = {};
constinit CaptureStatistics CaptureStats = {};
constinit Move EvasionReply[EVASION_REPLIES] = {};
constinit int16_t HashAge = 0;

void ClearHistory() {
    std::fill(std::begin(HistoryTable), std::end(HistoryTable), 0);
}

void ClearEvasionReplies() {
    std::fill(std::begin(EvasionReply), std::end(EvasionReply), NO_MOVE);
}

void ClearCaptureStats() {
    std::fill(std::begin(CaptureStats.tries), std::end(CaptureStats.tries), 0);
    std::fill(std::begin(CaptureStats.successes), std::end(CaptureStats.successes), 0);
    std::fill(std::begin(CaptureStats.stamp), std::end(CaptureStats.stamp), 0);
}
