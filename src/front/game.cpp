#include "front/game.h"

#include "board/fen.h"
#include "board/make_move.h"
#include "board/order_tables.h"
#include "book/book_learning.h"
#include "book/position_learning.h"
#include "search/driver_state.h"
#include "search/limits.h"
#include "search/state.h"

constinit bool ForceMode = false;
constinit Colour EngineSide = BLACK;
constinit bool UciMode = false;
constinit bool PartnerMode = false;
constinit bool PonderingSetting = true;
constinit bool PonderNow = true;
constinit bool DebugMode = false;
constinit bool PostThinking = false;

void NewGame() {
    if (!PartnerMode && !UciMode) {
        ForgetLastScore();
        ClearHistory();
        ClearKillers();
    }
    SetStartPosition();
    EngineSide = BLACK;
    GoPonder = false;
    ResetGameLimits();
}

void BeginLearningAnew() {
    BookLearned = false;
    ForgetNotedPositions();
}

void SetUpFen(const char* fen) {
    ForgetLastScore();
    GoPonder = false;
    LoadFen(fen);
}

void ResetGameLimits() {
    DepthLimit = UNLIMITED_DEPTH;
    FixedTime = 0;
    ForceMode = false;
}

void PlayMove(Move move) {
    ForgetOldHistory();
    MakeMove(move, true);
}

void TakeBack(int plies) {
    for (; plies > 0 && Ply > SetupPly; plies--)
        UnmakeMove();
}
