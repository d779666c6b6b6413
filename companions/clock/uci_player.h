// A player in the UCI protocol.
#pragma once

#include "player.h"

class UciPlayer : public Player {
public:
    using Player::Player;
    bool Begin(const GameRecord& game, const TimeControl& control) override;
    Answer Think(const GameRecord& game, const Clocks& clocks) override;
    void Ponder(const GameRecord& game, const Clocks& clocks) override;
    bool Finish(const GameRecord& game, const std::string& result, std::string& claim) override;

protected:
    bool Greet() override;

private:
    bool EndPondering();
    Answer Receive(Time::time_point start, const ChessClock& clock);

    Colour side = WHITE;
    bool pondering = false;
    std::string expected; // the move that it ponders on, or would
};
