#include "xboard_player.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "board/notation.h"
#include "companions/shared/print.h"
#include "companions/shared/text_lines.h"

bool XboardPlayer::Greet() {
    if (!Send("xboard") || !Send("protover 2"))
        return false;
    const auto deadline = Time::now() + PATIENCE;
    while (const std::optional<std::string> line = Next(deadline)) {
        if (line->find("done=1") != std::string::npos)
            return true;
    }
    return false;
}

static bool IsResult(std::string_view line) {
    constexpr std::array<std::string_view, 3> results = {"1-0", "0-1", "1/2-1/2"};
    return std::ranges::any_of(results, [line](std::string_view r) { return line.starts_with(r); });
}

static bool IsComplaint(std::string_view line) {
    return line.starts_with("Illegal") || line.starts_with("Error") ||
           line.starts_with("tellusererror");
}

// The last result that was claimed before the answer, if any.
bool XboardPlayer::WaitForPong(std::string& claim) {
    const std::string number = std::to_string(++pings);
    if (!Send("ping " + number))
        return false;
    const auto deadline = Time::now() + PATIENCE;
    while (const std::optional<std::string> line = Next(deadline)) {
        if (*line == "pong " + number)
            return true;
        if (IsResult(*line) || IsComplaint(*line))
            claim = *line;
    }
    return false;
}

// The clock of a game of less than a second is told with each move.
static std::string LevelLine(const TimeControl& control) {
    std::string line;
    if (control.moveTime > 0) {
        Print(line, "st %d", control.moveTime / 1000);
        return line;
    }
    const int seconds = std::max(control.base / 1000, 1);
    Print(line, "level %d %d:%02d %g", control.moves, seconds / 60, seconds % 60,
          control.increment / 1000.0);
    return line;
}

// All that it does not know yet.
bool XboardPlayer::TellMoves(const GameRecord& game) {
    for (; told < game.moves.size(); told++) {
        if (!Send("usermove " + MoveText(game.moves[told])))
            return false;
    }
    return true;
}

bool XboardPlayer::Begin(const GameRecord& game, const TimeControl& control) {
    told = 0;
    forced = true;
    std::string claim;
    if (!Send("new") || !Send(LevelLine(control)) || !Send("post") ||
        !Send(settings.pondering ? "hard" : "easy") || !Send("force"))
        return false;
    if (!game.start.fen.empty() && !Send("setboard " + game.start.fen))
        return false;
    // A start may show a claim already, the fifty moves over: nobody has played yet.
    return TellMoves(game) && WaitForPong(claim);
}

Answer XboardPlayer::Think(const GameRecord& game, const Clocks& clocks) {
    const auto start = Time::now();
    const bool begins = forced;
    if (begins && !TellMoves(game))
        return NoLine();
    if (clocks.control.moveTime == 0 && (!Send("time " + std::to_string(clocks.own.Left() / 10)) ||
                                         !Send("otim " + std::to_string(clocks.other.Left() / 10))))
        return NoLine();
    forced = false;
    if (begins ? !Send("go") : !TellMoves(game))
        return NoLine();
    const auto deadline = Deadline(start, clocks.own);
    while (const std::optional<std::string> line = Next(deadline)) {
        const int took = Since(start);
        if (line->starts_with("move ")) {
            told++; // its own
            return {Answer::MOVE, line->substr(5), took};
        }
        if (*line == "resign")
            return {Answer::RESIGNATION, "", took};
        if (IsResult(*line))
            return {Answer::CLAIM, *line, took};
        if (IsComplaint(*line))
            return {Answer::COMPLAINT, *line, took};
    }
    return NoLine();
}

// It ponders by itself.
void XboardPlayer::Ponder(const GameRecord&, const Clocks&) {}

bool XboardPlayer::Finish(const GameRecord& game, const std::string& result, std::string& claim) {
    // The end of the game comes with a move of the other one's that it has not seen.
    return Send("force") && TellMoves(game) && WaitForPong(claim) &&
           Send("result " + result + " {}");
}
