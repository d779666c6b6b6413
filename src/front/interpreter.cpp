#include "front/interpreter.h"

#include "board/notation.h"
#include "front/commands/batch_commands.h"
#include "front/commands/commands.h"
#include "front/commands/evaluation_report.h"
#include "front/commands/parameter_commands.h"
#include "front/dialects/uci.h"
#include "front/input/command_line.h"
#include "front/input/input_lines.h"
#include "platform/input.h"

namespace {

// A command that does nothing: its room is not built yet, or another keyword always takes its line.
// Its own keeps its place in the order.
constexpr void (*NO_ACTION)(const CommandLine&) = nullptr;

struct Command {
    const char* keyword; // null: a line that has the shape of a move
    void (*run)(const CommandLine& line);
    bool fallsThrough = false;
};

// Tried from top to bottom and the first match acts. A keyword also matches its own beginnings, so
// the order is part of the protocol: "stop" is taken by `st`, "ucinewgame" by `uci`, a line that
// begins with "q" ends the process, and a lone "p" runs `pgneval` and then `post`.
constexpr Command Commands[] = {
    {"pgneval", EvaluatePgnFile, true},
    {"writevalues", WriteValues, true},
    {"q", QuitProgram},
    {"clean", CleanTables},
    {"reload", ReloadValues},
    {nullptr, PlayTypedMove},
    {"help", ShowHelpPages},
    {"new", StartNewGame},
    {"post", PostOn},
    {"reset", ResetGame},
    {"level", SetLevel},
    {"moves", ShowMoves},
    {"edit", EnterEdit},
    {"loadfen", LoadPosition},
    {"epdevl", EvaluateEpdFile},
    {"nopost", PostOff},
    {"perft", RunPerft},
    {"sd", SetDepth},
    {"c3", SetPruneCoefficient<2>},
    {"m3", SetPruneMargin<2>},
    {"c2", SetPruneCoefficient<1>},
    {"m2", SetPruneMargin<1>},
    {"c1", SetPruneCoefficient<0>},
    {"m1", SetPruneMargin<0>},
    {"st", SetMoveTime},
    {"go", Go},
    {"ponderhit", PlayPonderedMove, true},
    {"white", SetWhite},
    {"stop", NO_ACTION, true},
    {"remove", RemoveMoves},
    {"analyze", Analyse},
    {"black", SetBlack},
    {"force", ForceOn},
    {"brd", ShowBoard},
    {"time", SetOwnTime},
    {"otime", SetOpponentTime},
    {"easy", PonderOff},
    {"hard", PonderOn},
    {"evl", ShowEvaluation},
    {"undo", UndoMove},
    {"fritz", EnterPartnerMode, true},
    {"xboard", EnterXboard},
    {"mvd", ShowFlags},
    {"demo", PlayDemo},
    {"bkm", ShowBookMoves},
    {"uci", EnterUci},
    {"ucinewgame", NO_ACTION},
    {"setoption", SetOption},
    {"isready", AnswerReady},
    {"egtbstat", ShowTablebaseStatus, true},
    {"position", SetUpPosition},
    {"debug", SetDebug},
};

} // namespace

static bool Matches(const Command& command, const std::string& line) {
    return command.keyword == nullptr ? HasMoveShape(line) : KeywordMatches(command.keyword, line);
}

// Splits at blanks; the time control is also written with a colon.
static CommandLine Split(const std::string& text) {
    CommandLine line = {text, Tokenize(text, KeywordMatches("level", text) ? " :" : " ")};
    if (!line.tokens.empty() && line.tokens.back().text.empty())
        line.tokens.pop_back();
    return line;
}

void Dispatch(const std::string& text) {
    const CommandLine line = Split(text);
    if (line.tokens.empty())
        return;
    for (const Command& command : Commands) {
        if (!Matches(command, text))
            continue;
        if (command.run != NO_ACTION)
            command.run(line);
        if (!command.fallsThrough)
            return;
    }
}

void RunCommandLoop() {
    std::string line;
    for (;;) {
        if (NextLine(line))
            Dispatch(line);
        else
            SleepAtEndOfInput();
    }
}
