// Reads PGN text piece by piece: tags, comments, and the words of the moves.
//
// The reader holds one buffer, whatever the size of the file, of its games and of their lines.
// Nothing in a file is an error to it: what it can make no sense of is passed over.
#pragma once

#include <cstddef>
#include <cstdio>

constexpr size_t PGN_BUFFER_SIZE = 1 << 16;
constexpr size_t PGN_NAME_LENGTH = 32;
constexpr size_t PGN_VALUE_LENGTH = 255; // long enough for a position
constexpr size_t PGN_MOVE_LENGTH = 31;

struct PgnReader {
    FILE* file = nullptr;
    size_t next = 0; // of the buffer; the character before it is still there
    size_t end = 0;
    char buffer[PGN_BUFFER_SIZE];
};

// A tag; what is longer is cut.
struct PgnTag {
    char name[PGN_NAME_LENGTH + 1];
    char value[PGN_VALUE_LENGTH + 1]; // without its quotes
};

enum class PgnTagEnd { END_OF_FILE = 1, ANOTHER_TAG = 2, MOVES = 3 };

enum class PgnWord { MOVE, NULL_MOVE, END_OF_GAME };

// Opens the file and passes over a byte-order mark. False when it cannot be opened; nothing is
// printed. `PgnClose` closes what is open.
bool PgnOpen(PgnReader& reader, const char* path);
void PgnClose(PgnReader& reader);

// Passes over white space; false at the end of the file.
bool PgnSkipSpace(PgnReader& reader);

// Whether the next character begins a tag.
bool PgnAtTag(PgnReader& reader);

// Reads one tag: a "[", which may be missing, a name up to a blank, and a value up to "]", or up to
// the closing quote and the next "]". A tag ends with its line at the latest. Tells what
// follows: the tag that was read counts in any case, unless its name is empty. A name that "]"
// ends is followed by the moves.
PgnTagEnd PgnReadTag(PgnReader& reader, PgnTag& tag);

// Passes over all before the moves of a game: comments, and words that are no moves.
void PgnSkipToMoves(PgnReader& reader);

// Reads the next move of a game's main line as it is written, without move number, annotation and
// check marks; a longer word is cut. A null move's text is "--" or "Z0". Comments and variations
// are passed over, and so is a result that is followed by more of the same game. At the end of the
// game the reader stands behind its result: before the next "[", before moves without tags, or at
// the end of the file.
PgnWord PgnReadMove(PgnReader& reader, char (&text)[PGN_MOVE_LENGTH + 1]);
