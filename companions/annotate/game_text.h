// The text of one game of a PGN file, taken apart with the place of every piece, so that it can be
// written again with additions and otherwise byte for byte.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// From `begin` up to, but not including, `end`.
struct Place {
    size_t begin = 0;
    size_t end = 0;

    std::string_view In(std::string_view text) const {
        return text.substr(begin, end - begin);
    }
};

struct GameTag {
    std::string_view name;
    std::string value; // without its quotes
};

struct Remark {
    enum Kind { COMMENT, VARIATION };
    Kind kind = COMMENT;
    Place place; // braces, semicolon and parentheses included
};

struct WrittenMove {
    Place word;                  // without check marks and glyphs
    size_t numberBegin = 0;      // of the move number before it; without one, of the word
    size_t marksEnd = 0;         // behind its glyphs, before its comments
    size_t end = 0;              // behind all that belongs to it
    int glyph = 0;               // 1 to 6: "!", "?", "!!", "??", "!?", "?!"; 0 for none of them
    bool numbered = false;       // its number stands before it
    bool evaluated = false;      // a comment has an evaluation
    std::vector<Remark> remarks; // behind it, in their order
};

struct GameText {
    std::vector<GameTag> tags;
    std::vector<Remark> preface; // what is remarked before the first move
    std::vector<WrittenMove> moves;
    std::string result;          // as it stands behind the moves; empty where it does not
    const char* fault = nullptr; // what is wrong with the text
    size_t faultPlace = 0;

    // The value of the tag of that name, or an empty text.
    std::string_view Tag(std::string_view name) const;
};

// The places and names are those of `text`, which must outlive the result. A text that is no game
// has a fault.
GameText TakeApart(std::string_view text);
