#include "front/commands/play_commands.h"

#include <memory>
#include <string>

#include "board/moves/order_tables.h"
#include "board/notation.h"
#include "book/book_learning.h"
#include "front/commands/analysis.h"
#include "front/game/activity.h"
#include "front/game/adjudication.h"
#include "front/game/dialect.h"
#include "front/game/engine_turn.h"
#include "front/game/game.h"
#include "front/game/interface.h"
#include "front/game/typed_move.h"
#include "front/input/input_lines.h"
#include "front/input/reply.h"
#include "search/driver_state.h"
#include "search/interrupts.h"
#include "search/limits.h"
#include "search/root.h"
#include "search/state.h"
#include "search/time_allotment.h"

// The board of a running search stands somewhere in its tree, so that the men in the word of a
// typed move mean nothing.
static bool SameSquares(Move a, Move b) {
    return From(a) == From(b) && To(a) == To(b) && Promotion(a) == Promotion(b);
}

static Move FindRootMove(Move move) {
    for (int i = 0; i < Root.count; i++) {
        if (SameSquares(RootMove(i), move))
            return RootMove(i);
    }
    return NO_MOVE;
}

// The prediction has come true, and the search goes on as the engine's own.
static void AcceptPrediction() {
    CurrentActivity = THINKING;
    Interrupts.PonderingOnPrediction = Limits.GoPonder = false;
    AnswerByClock();
    ReallotTime();
    AnnounceDraws();
}

static void AnswerPrediction(const std::string& line) {
    if (SameSquares(MoveFromText(line), Interrupts.PredictedMove)) {
        AcceptPrediction();
    } else {
        Game.Reply = std::make_unique<const std::string>(line);
        Running.StopSearch = true;
    }
}

static void EndSearchForMove(const std::string& line) {
    Interrupts.TypedMove = FindRootMove(MoveFromText(line));
    if (Interrupts.TypedMove == NO_MOVE)
        RefuseMove(line);
    Running.StopSearch = true;
}

static void ChangeAnalysis(const std::string& line) {
    if (PlayTypedMove(line))
        PrintLine("move maked...");
    AnalyseChangedPosition();
}

static void EnterMoveText(const std::string& text) {
    switch (CurrentActivity) {
    case PONDERING:
        return AnswerPrediction(text);
    case THINKING:
        return EndSearchForMove(text);
    case WAITING:
        return ChangeAnalysis(text);
    default:
        if (!PlayTypedMove(text))
            return;
        if (Game.ForceMode || Game.AnalysisPaused)
            ShowBoardToPerson();
        else
            AnswerMove();
    }
}

void EnterMove(const CommandLine& line) {
    EnterMoveText(line.text);
}

void EnterUserMove(const CommandLine& line) {
    if (line.Arguments() >= 1)
        EnterMoveText(line.Rest(1));
}

void StartNewGame(const CommandLine&) {
    BeginNewGame();
    ShowBoardToPerson();
}

// A game that nothing was learned from counts as a draw for the engine's moves.
static void LearnUnfinishedGame() {
    if (!MayLearnBook() || Ply <= SetupPly || SideToMove == Game.EngineSide)
        return;
    TakeBack(1);
    LearnBook(BOOK_DRAWN);
}

void ResetGame(const CommandLine&) {
    LearnUnfinishedGame();
    BeginLearningAnew();
    ClearHistory();
    ClearPlyStates();
    ForgetLastScore();
}

void LoadPosition(const CommandLine& line) {
    constexpr size_t fenOffset = 8; // the keyword and one blank
    SetUpFen(line.text.size() > fenOffset ? line.text.c_str() + fenOffset : "");
    ShowBoardToPerson();
}

static void SetTurn(Colour side) {
    Game.Pause = {};
    GiveTurn(side);
    Game.EngineSide = ChangeSide(side);
}

void SetWhite(const CommandLine&) {
    SetTurn(WHITE);
}

void SetBlack(const CommandLine&) {
    SetTurn(BLACK);
}

void RemoveMoves(const CommandLine&) {
    TakeBack(2);
    ShowBoardToPerson();
}

// A person means his own move, too, when the engine has answered it.
void UndoMove(const CommandLine&) {
    const bool answered = !Game.ForceMode && SideToMove != Game.EngineSide;
    TakeBack(Speaking->person && answered ? 2 : 1);
    ShowBoardToPerson();
}

void ForceOn(const CommandLine&) {
    Game.ForceMode = true;
}

void PlayDemo(const CommandLine&) {
    const bool ponderNow = Interface.PonderNow;
    Interface.PonderNow = false;
    NewGame();
    Limits.GoPonder = Game.AnalysisPaused = false;
    Limits.SearchMoveCount = 0;
    AnswerByClock();
    Interrupts = {};
    while (ThinkAndMove() && !GameHasEnded()) {
        // Classic, a drawn game goes on, with searches too short to look at their input.
        ActOnWaitingLines();
        if (!MoveWanted() || Abandoned())
            break;
        Interrupts = {};
    }
    if (Interrupts.NewRequested)
        BeginNewGame();
    Interface.PonderNow = ponderNow;
}
