// How the results of the engine's games change the opening book.
#pragma once

#include <cstdint>

// What a game teaches about the moves of the side that is to move.
enum BookResult { BOOK_LOST, BOOK_WON, BOOK_DRAWN };

// Set when this game has taught the book; cleared for a new one by whoever begins it.
extern bool BookLearned;

// Whether this game may still teach: book learning is on (and book moves too, if need be), a book
// with room for results (not of version 0) is open, and it has not been taught yet.
bool MayLearnBook();

// This game teaches nothing: it was not played as well as the engine can.
void TeachBookNoMore();

// Credits the result to the book moves that the side to move has played in this game, the latest
// first, and leaves the position as it was. Nothing happens when the game may not teach.
void LearnBook(BookResult result);

// Learns from the score of a search of the position on the board, in centipawns, when it shows
// that the game is as good as decided.
void LearnBookFromScore(int32_t score);
