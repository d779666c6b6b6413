// What the moves of a game were worth: losses in winning chances, marks, accuracy, the turning
// point.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "analysis.h"
#include "played_game.h"

enum class Mark { NONE, DOUBTFUL, MISTAKE, BLUNDER };

struct MoveJudgement {
    double loss = 0; // of the mover's chances, 0 to 1
    Mark mark = Mark::NONE;
    int missedMate = 0;         // in so many moves, which the move let go; 0 for none
    int allowedMate = 0;        // of the opponent, in so many moves, which there was not before
    bool tablesChanged = false; // tablebases tell another outcome after it than before it
};

struct GameJudgement {
    std::vector<MoveJudgement> moves;
    std::array<std::optional<double>, 2> accuracy; // per cent, by colour; nothing without moves
    // The move that cost most, of those of who did not win, where it is marked.
    std::optional<size_t> turningPoint;
    // The plies at which the middlegame and the ending begin; the number of moves and more for
    // never.
    size_t middlegame = 0;
    size_t ending = 0;
};

// Of the side to whose advantage the score is, from 0 to 1.
double WinningChances(int score);

// `bookPlies` moves are named theory: of these only blunders are marked. `result` as in the tag.
// The board is left at the game's start.
GameJudgement JudgeGame(const PlayedGame& game, const Analysis& analysis, size_t bookPlies,
                        std::string_view result);

// Moves to the mate that the score tells, from 1; 0 when it tells none.
int MovesToMate(int score);

// "0.31", "-2.50", "#3", "#-3" for White.
std::string ScoreText(int score);

// "?!", "?", "??", or nothing; and the number of the glyph.
const char* MarkText(Mark mark);
int GlyphNumber(Mark mark);
