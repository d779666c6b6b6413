#include "front/game/resign.h"

#include "board/position.h"
#include "front/game/play_settings.h"
#include "search/driver_state.h"

// Whether the record was made at that ply of the game as it now stands: moves taken back, and games
// since begun, break the row.
static bool BelongsToGame(const SearchRecord& record, int ply) {
    if (ply < 0 || ply > Ply)
        return false;
    return record.posKey == (ply == Ply ? PosKey : UndoStack[ply].posKey);
}

bool ShouldResign() {
    int64_t lost = 0;
    int ply = Ply;
    for (int i = Past.RecentSearchCount - 1; i >= 0 && lost < PlayOptions.ResignTimes;
         i--, ply -= 2) {
        const SearchRecord& record = Past.RecentSearches[i];
        if (!BelongsToGame(record, ply) || record.score >= -int64_t{PlayOptions.ResignValue})
            break;
        lost++;
    }
    return lost >= PlayOptions.ResignTimes;
}
