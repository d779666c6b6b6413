// Replays the games of a PGN file on the board, one move at a time.
//
//     while (PgnNextGame(reader, game))
//         while (PgnNextMove(reader, game) == PgnStep::MOVE) {
//             ... the position before game.move is on the board ...
//             PgnPlay(game);
//         }
#pragma once

#include <cstdint>
#include <span>

#include "board/types.h"
#include "tools/pgn_reader.h"

enum PgnResult : int32_t { PGN_UNKNOWN_RESULT, PGN_WHITE_WON, PGN_BLACK_WON, PGN_DRAWN };

// A tag that the caller wants to know: its name, in any letter case, and after `PgnNextGame` its
// value in the game, empty where the game has none.
struct PgnWantedTag {
    const char* name;
    char value[PGN_VALUE_LENGTH + 1] = "";
};

struct PgnGame {
    std::span<PgnWantedTag> wanted;        // set by the caller
    int64_t number = 0;                    // of the game in the file, from 1
    PgnResult result = PGN_UNKNOWN_RESULT; // as the tags tell it
    int32_t plyCount = 0;                  // as the tags tell it; 0 when they do not
    int32_t ply = 0;                       // moves played on the board, as `Ply` counts them
    Move move = NO_MOVE;                   // the next one, NO_MOVE when the player passes
    char moveText[PGN_MOVE_LENGTH + 1] = "";
    bool inside = false; // more of the game is to be read
};

enum class PgnStep {
    MOVE,
    GAME_END,
    UNKNOWN_MOVE,  // the text is no legal move,
    AMBIGUOUS_MOVE // or several: the rest of the game cannot be read
};

// Goes on to the next game, whatever is left of the last one: reads its tags and sets the board up
// with the starting position or, where the game has one, with the position of its FEN tag. Games
// of other kinds of chess come without moves. False at the end of the file.
bool PgnNextGame(PgnReader& reader, PgnGame& game);

// Reads the next move and finds it on the board, without making it. After anything but MOVE the
// game is over; its `moveText` is what was to be read last.
PgnStep PgnNextMove(PgnReader& reader, PgnGame& game);

// Makes the move on the board. A game of any length can be played.
void PgnPlay(PgnGame& game);
