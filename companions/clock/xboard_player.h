// A player in the xboard protocol, version 2.
#pragma once

#include "player.h"

class XboardPlayer : public Player {
public:
    using Player::Player;
    bool Begin(const GameRecord& game, const TimeControl& control) override;
    Answer Think(const GameRecord& game, const Clocks& clocks) override;
    void Ponder(const GameRecord& game, const Clocks& clocks) override;
    bool Finish(const GameRecord& game, const std::string& result, std::string& claim) override;

protected:
    bool Greet() override;

private:
    bool TellMoves(const GameRecord& game);
    bool WaitForPong(std::string& claim);

    size_t told = 0;    // moves of the game that it knows
    bool forced = true; // it only listens
    int pings = 0;
};
