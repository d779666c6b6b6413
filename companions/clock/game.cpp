#include "game.h"

#include <algorithm>
#include <array>
#include <climits>
#include <string_view>
#include <vector>

#include "board/attackers.h"
#include "board/draw_rules.h"
#include "board/moves/legal_moves.h"
#include "board/moves/make_move.h"
#include "board/notation.h"
#include "board/position.h"
#include "companions/shared/text_lines.h"

namespace {

constexpr char BETWEEN = '\f'; // fields of a report; no line has it
constexpr const char* Names[2] = {"White", "Black"};

} // namespace

std::string WriteReport(const GameReport& report) {
    std::string text;
    for (const std::string& field :
         {report.result, std::to_string(report.plies), std::to_string(report.leastLeft),
          report.fault, report.details, report.pgn})
        text += field + BETWEEN;
    return text;
}

GameReport ReadReport(const std::string& text) {
    const std::vector<std::string_view> fields = Split(text, BETWEEN);
    GameReport report;
    report.result = fields[0];
    report.plies = std::stoi(std::string(fields[1]));
    report.leastLeft = std::stoi(std::string(fields[2]));
    report.fault = fields[3];
    report.details = fields[4];
    report.pgn = fields[5];
    return report;
}

static const char* LossOf(Colour side) {
    return side == WHITE ? "0-1" : "1-0";
}

static bool IsMate() {
    return !HasLegalMove() && InCheck(SideToMove);
}

static bool IsStalemate() {
    return !HasLegalMove() && !InCheck(SideToMove);
}

// Nothing where the game goes on.
static const char* ResultByRule() {
    if (IsMate())
        return LossOf(SideToMove);
    return IsStalemate() || NoMateIsPossible() || HasRepeatedTwice() || FiftyMovesPassed()
               ? "1/2-1/2"
               : nullptr;
}

// Whether the position on the board is what the claim says.
static bool Holds(std::string_view claim) {
    struct Reason {
        const char* word;
        bool (*isSo)();
    };
    constexpr std::array<Reason, 5> reasons = {{{"mates", IsMate},
                                                {"Stalemate", IsStalemate},
                                                {"insufficient material", NoMateIsPossible},
                                                {"repetition", HasRepeatedTwice},
                                                {"50-moves", FiftyMovesPassed}}};
    const char* const result = ResultByRule();
    if (result == nullptr || !claim.starts_with(result))
        return false;
    return std::ranges::any_of(reasons, [claim](const Reason& reason) {
        return claim.find(reason.word) != std::string_view::npos && reason.isSo();
    });
}

bool Table::Fault(const char* what, const std::string& details) {
    if (!report.fault.empty())
        return false;
    report.fault = what;
    report.details = details + "\n";
    for (const std::string& line : conversation)
        report.details += line + "\n";
    return false;
}

bool Table::SeatPlayers() {
    if (players[0] != nullptr)
        return true;
    const Protocol protocols[2] = {settings.first, settings.second};
    for (int i = 0; i < 2; i++) {
        players[i] =
            MakePlayer(protocols[i], settings.player, i == 0 ? "first" : "second", conversation);
        if (!players[i]->Start())
            return Fault("does not start", "");
    }
    return true;
}

bool Table::Begin() {
    for (const auto& player : players) {
        if (!player->Begin(record, settings.control))
            return Fault("is not ready for a game", "");
    }
    return true;
}

// False when the game ends with it.
bool Table::MakeAnswer(const Answer& answer) {
    const Colour side = SideToMove;
    const std::string who = Names[side];
    report.result = LossOf(side);
    if (answer.kind == Answer::SILENCE)
        return Fault("does not answer", who);
    if (answer.kind == Answer::END)
        return Fault("has ended", who);
    if (answer.kind == Answer::COMPLAINT)
        return Fault("complains", who + ": " + answer.text);
    clocks[side]->Move(answer.took);
    const int left = clocks[side]->LeftBehindMove();
    if (left < -settings.margin)
        return Fault("lost on time", who + ", by " + std::to_string(-left) + " ms");
    report.leastLeft = std::min(report.leastLeft, left);
    if (answer.kind == Answer::CLAIM) {
        report.result = answer.text.substr(0, answer.text.find(' '));
        if (!Holds(answer.text))
            Fault("false claim", who + ": " + answer.text);
        return false;
    }
    if (answer.kind == Answer::RESIGNATION)
        return false;
    const Move move = MoveFromText(answer.text);
    if (!IsLegal(move))
        return Fault("illegal move", who + ": " + answer.text);
    record.moves.push_back(move);
    MakeMove(move, true);
    report.result = "*";
    return true;
}

void Table::PlayOn() {
    for (;;) {
        if (const char* const result = ResultByRule()) {
            report.result = result;
            return;
        }
        const Colour side = SideToMove;
        const Clocks own = {*clocks[side], *clocks[ChangeSide(side)], settings.control};
        if (!MakeAnswer(OfColour(side).Think(record, own)))
            return;
        OfColour(side).Ponder(record, own);
    }
}

// Claims that come with the last move are looked at in the position behind it.
void Table::Finish() {
    for (const auto& player : players) {
        std::string claim;
        if (!player->Finish(record, report.result, claim))
            Fault("does not answer at the end", "");
        else if (!claim.empty() && !Holds(claim))
            Fault("false claim", claim);
    }
}

GameReport Table::Play(uint64_t number, const GameStart& start) {
    report = {};
    report.leastLeft = INT_MAX;
    record = {start, start.moves};
    firstHasBlack = number % 2 == 1;
    conversation.clear();
    for (auto& clock : clocks)
        clock = std::make_unique<ChessClock>(settings.control);
    SetUp(start);
    if (SeatPlayers() && Begin()) {
        PlayOn();
        if (report.fault.empty())
            Finish();
    }
    // Whoever has done wrong is not trusted with another game.
    for (auto& player : players) {
        if (!report.fault.empty())
            player.reset();
    }
    report.plies = int(record.moves.size() - start.moves.size());
    report.pgn = WritePgn(record, "Game " + std::to_string(number + 1), report.result);
    return report;
}
