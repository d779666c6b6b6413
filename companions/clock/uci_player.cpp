#include "uci_player.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "board/moves/legal_moves.h"
#include "board/notation.h"
#include "board/position.h"
#include "companions/shared/text_lines.h"

bool UciPlayer::Greet() {
    return Send("uci") && WaitFor("uciok");
}

bool UciPlayer::Begin(const GameRecord&, const TimeControl&) {
    pondering = false;
    expected.clear();
    return Send("ucinewgame") && Send("isready") && WaitFor("readyok");
}

// The words of `go` that tell the time, for the side whose clock is `own`.
static std::string TimeWords(const Clocks& clocks, Colour side) {
    if (clocks.control.moveTime > 0)
        return " movetime " + std::to_string(clocks.control.moveTime);
    const ChessClock& white = side == WHITE ? clocks.own : clocks.other;
    const ChessClock& black = side == WHITE ? clocks.other : clocks.own;
    const std::string increment = std::to_string(clocks.control.increment);
    std::string words = " wtime " + std::to_string(white.Left()) + " btime " +
                        std::to_string(black.Left()) + " winc " + increment + " binc " + increment;
    if (clocks.own.MovesToGo() > 0)
        words += " movestogo " + std::to_string(clocks.own.MovesToGo());
    return words;
}

// Waits for "bestmove".
Answer UciPlayer::Receive(Time::time_point start, const ChessClock& clock) {
    const auto deadline = Deadline(start, clock);
    while (const std::optional<std::string> line = Next(deadline)) {
        const int took = Since(start);
        const std::vector<std::string_view> words = Split(*line, ' ');
        if (words[0] != "bestmove")
            continue;
        expected = words.size() >= 4 && words[2] == "ponder" ? words[3] : "";
        return {Answer::MOVE, words.size() < 2 ? "" : std::string(words[1]), took};
    }
    return NoLine();
}

bool UciPlayer::EndPondering() {
    return !std::exchange(pondering, false) || (Send("stop") && WaitFor("bestmove"));
}

Answer UciPlayer::Think(const GameRecord& game, const Clocks& clocks) {
    side = SideToMove;
    const auto start = Time::now();
    if (pondering && !game.moves.empty() && MoveText(game.moves.back()) == expected) {
        pondering = false;
        return Send("ponderhit") ? Receive(start, clocks.own) : NoLine();
    }
    if (!EndPondering() || !Send("position " + PositionWords(game)) ||
        !Send("go" + TimeWords(clocks, side)))
        return NoLine();
    return Receive(start, clocks.own);
}

void UciPlayer::Ponder(const GameRecord& game, const Clocks& clocks) {
    const Move move = MoveFromText(expected);
    if (!settings.pondering || expected.empty() || !IsLegal(move))
        return;
    GameRecord hoped = game;
    hoped.moves.push_back(move);
    pondering = Send("position " + PositionWords(hoped)) &&
                Send("go ponder" + TimeWords(clocks, ChangeSide(SideToMove)));
}

bool UciPlayer::Finish(const GameRecord&, const std::string&, std::string&) {
    return EndPondering() && Send("isready") && WaitFor("readyok");
}
