// A game with its annotations as PGN.
#pragma once

#include <string>
#include <string_view>

#include "analysis.h"
#include "game_text.h"
#include "judging.h"
#include "openings.h"
#include "played_game.h"

// All that is known of one annotated game.
struct AnnotatedGame {
    std::string_view source;
    GameText text;
    PlayedGame played;
    Opening opening;
    Analysis analysis;
    GameJudgement judgement;
};

// The source with what was found out added: all of its own bytes are there in their order. What a
// move has already, an evaluation, a glyph that judges it, the variation, is not added again.
std::string AnnotatedPgn(const AnnotatedGame& game);

// The moves of the verdict of that ply that are worth showing, those of a mate to its end.
std::vector<Move> ShownLine(const AnnotatedGame& game, size_t ply);

// Whether a better move is shown beside the one of that ply.
bool ShowsBetterMove(const AnnotatedGame& game, size_t ply);

// What is said of the move of that ply in words, perhaps nothing.
std::string RemarkOn(const AnnotatedGame& game, size_t ply);
