// The time that players have, and a clock that counts it down.
#pragma once

#include <string>

// All times are milliseconds.
struct TimeControl {
    int moves = 0;     // for which `base` is given anew; 0 for the whole game
    int base = 0;      // at the beginning
    int increment = 0; // after each move
    int moveTime = 0;  // for each move instead of all that; 0 for none
};

// Reads "1+0.01" (seconds for the game, and added after each move), "40/10" (moves in seconds),
// "40/10+0.1", or "move/1" (seconds for each move). False when it is nothing of the kind.
bool ReadTimeControl(const std::string& text, TimeControl& control);

class ChessClock {
public:
    explicit ChessClock(const TimeControl& timeControl) : control(timeControl) {
        left = control.moveTime > 0 ? control.moveTime : control.base;
    }
    // What is left; with a time for each move, that time.
    int Left() const {
        return left;
    }
    // What was left of it behind the last move, before anything was added; less than 0 where the
    // move came too late.
    int LeftBehindMove() const {
        return leftBehindMove;
    }
    // Until `base` is added; 0 for never.
    int MovesToGo() const {
        return control.moves > 0 ? control.moves - made % control.moves : 0;
    }
    // Takes in a move.
    void Move(int milliseconds);

private:
    TimeControl control;
    int left;
    int leftBehindMove = 0;
    int made = 0;
};
