// The moves of a game as the board knows them.
#pragma once

#include <string>
#include <vector>

#include "board/types.h"
#include "game_text.h"

struct PlayedGame {
    // Games that are not of ordinary chess, and broken ones, are not annotated.
    enum Kind { CHESS, OTHER_CHESS, BROKEN };
    Kind kind = CHESS;
    std::string reason;    // why it is not annotated
    size_t faultPlace = 0; // where in the text

    std::string fen; // of the start; empty for the usual one
    std::vector<Move> moves;
    int firstNumber = 1; // of the first full move
    Colour firstSide = WHITE;

    // "12." or "12..." for the move of that ply, from 0.
    std::string MoveNumber(size_t ply) const;
    Colour SideAt(size_t ply) const {
        return ply % 2 == 0 ? firstSide : ChangeSide(firstSide);
    }
};

// Plays the moves on the board, where the start stands at the end again.
PlayedGame Replay(const GameText& text, std::string_view source);

// Puts the start of the game on the board.
void SetUpStart(const PlayedGame& game);
