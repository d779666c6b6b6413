// A game under the clock between two players, with everything that goes wrong in it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "player.h"
#include "record.h"
#include "time_control.h"

struct MatchSettings {
    PlayerSettings player;
    TimeControl control;
    Protocol first = Protocol::UCI; // plays White in the first game, Black in the second and so on
    Protocol second = Protocol::XBOARD;
    int margin = 0; // milliseconds beyond the clock that are not told
};

struct GameReport {
    std::string result = "*";
    int plies = 0;
    int leastLeft = 0;   // milliseconds on a clock behind a move, or of the time for it
    std::string fault;   // in words that are the same for the same fault; empty for none
    std::string details; // of the fault, with the whole conversation
    std::string pgn;
};

// A report as text and back.
std::string WriteReport(const GameReport& report);
GameReport ReadReport(const std::string& text);

// Two players that stay at the table from game to game, until one has made a fault.
class Table {
public:
    explicit Table(const MatchSettings& matchSettings) : settings(matchSettings) {}
    GameReport Play(uint64_t number, const GameStart& start);

private:
    bool SeatPlayers();
    bool Begin();
    void PlayOn();
    bool MakeAnswer(const Answer& answer);
    void Finish();
    // Always false.
    bool Fault(const char* what, const std::string& details);
    Player& OfColour(Colour colour) {
        return *players[colour ^ Colour(firstHasBlack)];
    }

    const MatchSettings& settings;
    Conversation conversation;
    std::unique_ptr<Player> players[2];
    // Of the game that is being played.
    bool firstHasBlack = false;
    GameRecord record;
    std::unique_ptr<ChessClock> clocks[2]; // by colour
    GameReport report;
};
