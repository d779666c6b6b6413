#include "front/game/game.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "board/fen.h"
#include "board/moves/make_move.h"
#include "board/moves/order_tables.h"
#include "book/book_learning.h"
#include "book/position_learning.h"
#include "front/game/dialect.h"
#include "front/game/interface.h"
#include "front/game/manners.h"
#include "front/input/keyword.h"
#include "search/driver_state.h"
#include "search/limits.h"
#include "search/state.h"

constinit GameState Game;

namespace {

constexpr int32_t MOST_MOVES = 9999; // that a position may claim to have behind it

// The position whose turn was last changed by hand, and how far the game could be taken back
// before.
struct {
    int32_t ply = -1;
    uint64_t posKey = 0;
    int32_t setupPly = 0;
} constinit Turned;

} // namespace

void ForgetEarlierSearches() {
    ForgetLastScore();
    ClearHistory();
    ClearKillers();
}

void NewGame() {
    if (!Interface.PartnerMode && !Speaking->keepsLastScore)
        ForgetEarlierSearches();
    SetStartPosition();
    Game = {};
    Limits = {.NodeLimit = Limits.NodeLimit};
}

void BeginNewGame() {
    if (Manner->newGameTeachesAnew)
        BeginLearningAnew();
    NewGame();
}

void BeginLearningAnew() {
    BookLearned = false;
    ForgetNotedPositions();
}

void GiveTurn(Colour side) {
    if (SideToMove == side)
        return;
    SideToMove = side;
    if (SetupPly == Ply && Turned.ply == Ply && Turned.posKey == PosKey) {
        SetupPly = Turned.setupPly;
        Turned.ply = -1;
    } else {
        Turned = {Ply, PosKey, SetupPly};
        SetupPly = Ply;
    }
}

// The last field of a FEN, the sixth; 1 where it is missing.
static int32_t ReadMoveNumber(const char* fen) {
    const std::vector<Token> fields = Tokenize(fen, " ");
    return fields.size() < 6 ? 1 : std::clamp(ReadNumber(fields[5].text), 1, MOST_MOVES);
}

void SetUpFen(const char* fen) {
    if (fen[std::strspn(fen, " ")] == '\0')
        return;
    if (!Speaking->keepsLastScore)
        ForgetLastScore();
    Limits.GoPonder = false;
    Game.FirstMoveNumber = ReadMoveNumber(fen);
    LoadFen(fen, Manner->standardFen ? FenFields::STANDARD : FenFields::OWN);
}

int MoveNumber() {
    const int plies = Ply - SetupPly;
    const bool blackBegan = (plies % 2 != 0) == (SideToMove == WHITE);
    return Game.FirstMoveNumber + (plies + (blackBegan ? 1 : 0)) / 2;
}

void PlayMove(Move move) {
    ForgetOldHistory();
    MakeMove(move, true);
}

void TakeBack(int plies) {
    for (; plies > 0 && Ply > SetupPly; plies--)
        UnmakeMove();
}
