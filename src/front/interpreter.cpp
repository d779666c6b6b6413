#include "front/interpreter.h"

#include "board/moves/san.h"
#include "board/notation.h"
#include "book/unwritten.h"
#include "front/commands/analysis.h"
#include "front/commands/batch_commands.h"
#include "front/commands/clock_commands.h"
#include "front/commands/edit_board.h"
#include "front/commands/evaluation_report.h"
#include "front/commands/go_command.h"
#include "front/commands/help.h"
#include "front/commands/mode_commands.h"
#include "front/commands/parameter_commands.h"
#include "front/commands/person_commands.h"
#include "front/commands/play_commands.h"
#include "front/commands/search_commands.h"
#include "front/commands/show_commands.h"
#include "front/commands/uci_commands.h"
#include "front/commands/xboard_commands.h"
#include "front/game/activity.h"
#include "front/game/dialect.h"
#include "front/game/engine_turn.h"
#include "front/game/game.h"
#include "front/game/manners.h"
#include "front/game/shutdown.h"
#include "front/input/command_line.h"
#include "front/input/input_lines.h"
#include "platform/input.h"
#include "search/interrupts.h"
#include "search/limits.h"
#include "search/state.h"

namespace {

// What comes after a command.
enum Then {
    DONE,         // nothing; lines behind it wait for the next look at the input
    FALL_THROUGH, // the commands after it in the table
    NEXT_LINE,    // the lines behind it
    END_SEARCH,   // the end of the search
    LEAVE_LINE,   // the line itself once more, by whoever looks at the input next
};

// What makes a line one for a command.
enum Match {
    KEYWORD, // the keyword rule: a beginning of the keyword will do
    WHOLE,   // it begins with the whole keyword
    FIRST,   // it begins with that character exactly
    MOVE,    // it has the shape of a move
    SAN,     // it has that of a move in algebraic notation, and a person has typed it
};

struct Command {
    const char* keyword;
    unsigned heardIn; // states of the engine
    void (*run)(const CommandLine& line);
    Then then = DONE;
    Match match = KEYWORD;
    const Manners* only = nullptr; // null: it is known in all manners
};

// Tried from top to bottom, and the first that matches and is heard acts. A keyword also matches
// its own beginnings, so the order is part of the protocol. Idle, a line that begins with "q" ends
// the process, a lone "p" runs `pgneval` and then `post`, "stop" is taken by `st` and "ucinewgame"
// by `uci`. In a search, "p" is a ponder hit. There most commands end the search, even those that
// look harmless: interfaces rely on being answered by a move at once.
constexpr Command Commands[] = {
    {"?", IDLE | SEARCHING | WAITING, MoveNowIfThinking, NEXT_LINE, FIRST, &Modern},
    {"?", SEARCHING, MoveNow, END_SEARCH, FIRST},
    {"stop", SEARCHING, MoveNow, END_SEARCH},
    {".", SEARCHING, ShowProgress, DONE, FIRST},
    {".", WAITING, ShowNoProgress, NEXT_LINE, FIRST},
    {"ponderhit", SEARCHING, PonderHit, NEXT_LINE},
    {"exit", SEARCHING, RequestExit, END_SEARCH},
    {"exit", WAITING, LeaveLineToSearch, LEAVE_LINE, WHOLE},
    {"result", SEARCHING, ReceiveResult, END_SEARCH},
    {"ping", IDLE | SEARCHING | WAITING, AnswerPing, NEXT_LINE, WHOLE, &Modern},
    {"usermove", IDLE | SEARCHING | WAITING, EnterUserMove, DONE, WHOLE, &Modern},
    {"protover", IDLE, NameFeatures, DONE, WHOLE, &Modern},
    {"setboard", IDLE, SetBoard, DONE, WHOLE, &Modern},
    {"memory", IDLE, SetMemory, DONE, WHOLE, &Modern},
    {"egtpath", IDLE, SetTablebasePath, DONE, WHOLE, &Modern},
    {"strength", IDLE, SetStrength, DONE, WHOLE, &Modern},
    {"hint", IDLE, ShowHint, DONE, WHOLE, &Modern},
    {"", IDLE, EnterSan, DONE, SAN, &Modern},
    {"eval", IDLE, ShowEvalTable, DONE, WHOLE, &Modern},
    {"save", IDLE, SaveGameFile, DONE, WHOLE, &Modern},
    {"load ", IDLE, LoadGameFile, DONE, WHOLE, &Modern},
    {"pgneval", IDLE, EvaluatePgnFile, FALL_THROUGH},
    {"writevalues", IDLE, WriteValues, FALL_THROUGH},
    {"q", IDLE, QuitProgram},
    {"q", SEARCHING | WAITING, QuitProgram, DONE, FIRST},
    {"clean", IDLE, CleanTables},
    {"reload", IDLE, ReloadValues},
    {"", IDLE | SEARCHING | WAITING, EnterMove, DONE, MOVE},
    {"help", IDLE, ShowHelp},
    {"new", IDLE, StartNewGame},
    {"new", SEARCHING, RequestNewGame, END_SEARCH},
    {"new", WAITING, LeaveLineToSearch, LEAVE_LINE, WHOLE},
    {"post", IDLE, PostOn},
    {"post", SEARCHING, PostOn, NEXT_LINE, KEYWORD, &Modern},
    {"post", SEARCHING, PostOn, END_SEARCH},
    {"reset", IDLE, ResetGame},
    {"level", IDLE, SetLevel},
    {"moves", IDLE, ShowMoves},
    {"edit", IDLE, EditBoard},
    {"loadfen", IDLE, LoadPosition},
    {"epdevl", IDLE, EvaluateEpdFile},
    {"nopost", IDLE, PostOff},
    {"nopost", SEARCHING, PostOff, NEXT_LINE, KEYWORD, &Modern},
    {"nopost", SEARCHING, PostOff, END_SEARCH},
    {"perft", IDLE, RunPerft},
    {"sd", IDLE, SetDepth},
    {"c3", IDLE, SetPruneCoefficient<2>},
    {"m3", IDLE, SetPruneMargin<2>},
    {"c2", IDLE, SetPruneCoefficient<1>},
    {"m2", IDLE, SetPruneMargin<1>},
    {"c1", IDLE, SetPruneCoefficient<0>},
    {"m1", IDLE, SetPruneMargin<0>},
    {"st", IDLE, SetMoveTime},
    {"go", IDLE, Go},
    {"ponderhit", IDLE, PlayPonderedMove, FALL_THROUGH},
    {"white", IDLE, SetWhite},
    {"remove", IDLE, RemoveMoves},
    {"analyze", IDLE, Analyse},
    {"black", IDLE, SetBlack},
    {"force", IDLE, ForceOn},
    {"force", SEARCHING, RequestForce, END_SEARCH, WHOLE, &Modern},
    {"force", SEARCHING, ForceOn, END_SEARCH},
    {"brd", IDLE, ShowBoard},
    {"time", IDLE, SetOwnTime},
    {"time", THINKING, SetOwnClock, NEXT_LINE, KEYWORD, &Modern},
    {"time", THINKING, SetOwnClock, END_SEARCH},
    {"time", PONDERING, SetOwnClock, NEXT_LINE},
    {"otime", IDLE, SetOpponentTime},
    {"otim", IDLE, SetOpponentTime, DONE, WHOLE, &Modern},
    // Idle, the engine does not know the shorter word. Meant so.
    {"otim", SEARCHING, SetOpponentClock, NEXT_LINE},
    {"easy", IDLE, PonderOff},
    {"easy", THINKING, PonderOff, NEXT_LINE, KEYWORD, &Modern},
    {"easy", SEARCHING, PonderOff, END_SEARCH},
    {"hard", IDLE, PonderOn},
    {"hard", SEARCHING, PonderOn, NEXT_LINE, KEYWORD, &Modern},
    {"hard", SEARCHING, PonderOn, END_SEARCH},
    {"evl", IDLE, ShowEvaluation},
    {"undo", IDLE, UndoMove},
    {"undo", PONDERING, PausePondering, LEAVE_LINE, KEYWORD, &Modern},
    {"undo", SEARCHING, RequestUndo, END_SEARCH},
    {"undo", WAITING, LeaveLineToSearch, LEAVE_LINE, WHOLE},
    {"fritz", IDLE, EnterPartnerMode, FALL_THROUGH},
    {"xboard", IDLE, EnterXboard},
    {"mvd", IDLE, ShowFlags},
    {"demo", IDLE, PlayDemo},
    {"bkm", IDLE, ShowBookMoves},
    {"ucinewgame", IDLE, StartUciGame, DONE, WHOLE, &Modern},
    {"uci", IDLE, EnterUci},
    {"setoption", IDLE, SetOption},
    {"isready", IDLE, AnswerReady},
    {"isready", SEARCHING, AnswerReady, NEXT_LINE},
    {"egtbstat", IDLE, ShowTablebaseStatus, FALL_THROUGH},
    {"position", IDLE, SetUpPosition},
    {"debug", IDLE, SetDebug},
};

} // namespace

static bool Matches(const Command& command, const std::string& line) {
    switch (command.match) {
    case WHOLE:
        return BeginsWithKeyword(command.keyword, line);
    case FIRST:
        return line.starts_with(command.keyword[0]);
    case MOVE:
        return HasMoveShape(line);
    case SAN:
        return Speaking->person && HasSanShape(line);
    default:
        return KeywordMatches(command.keyword, line);
    }
}

// The first command that the line is one for, from `command` on; null when there is none.
static const Command* Find(const std::string& line, Activity activity,
                           const Command* command = Commands) {
    for (; command != std::end(Commands); command++) {
        if ((command->heardIn & activity) != 0 &&
            (command->only == nullptr || command->only == Manner) && Matches(*command, line))
            return command;
    }
    return nullptr;
}

// Splits at blanks; the time control is also written with a colon.
static CommandLine Split(const std::string& text) {
    CommandLine line = {text, Tokenize(text, KeywordMatches("level", text) ? " :" : " ")};
    if (!line.tokens.empty() && line.tokens.back().text.empty())
        line.tokens.pop_back();
    return line;
}

void Dispatch(const std::string& text) {
    const Command* command = Find(text, IDLE);
    if (command == nullptr && Speaking->refuseLine != nullptr)
        Speaking->refuseLine(text);
    if (command == nullptr)
        return;
    const CommandLine line = Split(text);
    while (command != nullptr) {
        command->run(line);
        command = command->then == FALL_THROUGH ? Find(text, IDLE, command + 1) : nullptr;
    }
}

// Whether the line is none that pondering takes, but one for the engine when it is idle. A person
// is answered, and asked for the next line, by whatever does not end the pondering itself.
static bool EndsPondering(const Command* command, const std::string& text) {
    if (!Manner->pausesPondering || CurrentActivity != PONDERING)
        return false;
    if (Speaking->person)
        return command == nullptr || command->then == NEXT_LINE || command->match == FIRST;
    return command == nullptr && Find(text, IDLE) != nullptr;
}

// The same of analysis, which goes on for a second `analyze`.
static bool EndsAnalysis(const std::string& text) {
    if (!Manner->pausesAnalysis || !(Limits.Analysing || CurrentActivity == WAITING))
        return false;
    const Command* const command = Find(text, IDLE);
    return command != nullptr ? command->run != Analyse : Speaking->person;
}

// Acts on a line that arrives while the engine is not idle.
static Then ActOnLine(const std::string& text) {
    const Command* const command = Find(text, CurrentActivity);
    if (EndsPondering(command, text)) {
        PausePondering({});
        return LEAVE_LINE;
    }
    if (command == nullptr && EndsAnalysis(text)) {
        PauseAnalysis();
        return LEAVE_LINE;
    }
    if (command == nullptr || command->then != LEAVE_LINE)
        DropLine();
    if (command == nullptr)
        return NEXT_LINE;
    const Then then = command->then;
    command->run(Split(text));
    if (then == END_SEARCH)
        Running.StopSearch = true;
    return then;
}

// At the end of input the predicted move cannot come any more, and a search whose interface has
// died would keep the processor busy for nobody. Other searches go on: output that still has a
// reader may belong to someone who has sent all that he wanted to.
static void ActOnEndOfInput() {
    if (CurrentActivity == PONDERING || Abandoned())
        Running.StopSearch = Interrupts.ExitRequested = true;
}

void ActOnInput() {
    std::string line;
    do {
        if (!ReadWaitingInput())
            ActOnEndOfInput();
    } while (PeekLine(line) && ActOnLine(line) == NEXT_LINE);
}

static void TellUnwritten() {
    while (const char* const text = Manner->tellsUnwritten ? NextUnwritten() : nullptr)
        Speaking->printNote(text);
}

void RunCommandLoop() {
    std::string line;
    for (;;) {
        if (Speaking->awaitLine != nullptr && !LineWaiting())
            Speaking->awaitLine();
        if (NextLine(line)) {
            const bool analysing = Game.AnalysisPaused;
            Dispatch(line);
            if (analysing && Game.AnalysisPaused)
                Analyse({});
            TellUnwritten();
            ResumePondering();
        } else if (Manner->leavesWithInterface) {
            EndProgram();
        } else {
            SleepAtEndOfInput();
        }
    }
}
