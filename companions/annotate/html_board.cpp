#include "html_board.h"

#include <array>
#include <cctype>
#include <string_view>
#include <utility>

#include "board/fen.h"
#include "board/notation.h"
#include "board/position.h"
#include "companions/shared/print.h"

namespace {

constexpr int SQUARE = 45; // units of the drawing

// Outlines in a square of 45 units, and lines within them.
struct Figure {
    char letter;
    const char* outline;
    const char* lines;
};
constexpr std::array<Figure, 6> Figures = {{
    {'P',
     "M22.5 8.5a5.5 5.5 0 0 1 3.8 9.5c3 2 4.2 4.6 3.7 7.5c4 2.500 6.500 6.500 6.500 12.500h-28c0-6 "
     "2.500-10 6.500-12.500c-.5-2.900.7-5.500 3.700-7.500a5.500 5.500 0 0 1 3.800-9.500z",
     ""},
    {'R', "M9.500 38.500h26v-4.500l-3.500-3v-13l3-3v-8h-5v3h-5v-3h-5v3h-5v-3h-5v8l3 3v13l-3.500 3z",
     "M13 18h19M13 31h19"},
    {'N',
     "M13 38.500h22.500c.5-14-1.500-24-11-28l-.5-4.500-4 4c-5.500 1.500-7.500 5-9.500 11.500l-3 "
     "5.500c-.5 2.500 1.500 4.500 4 4l3-1.500 2 .5 4-3.500c1 1.500.5 3-1 4.500c-4 3-6 5-6.500 "
     "7.500z",
     "M17 16.500l1.500-.5M10 26.500l.5 0"},
    {'B',
     "M22.500 5.500a2.700 2.700 0 0 1 1.800 4.700c5.500 3.300 9 8.300 6.700 13.800l-2.500 3 1.500 "
     "4.500c3 1 6 .5 7.500 2.500v4.500c-5 0-9.500-.5-15-.5s-10 .5-15 .5v-4.500c1.500-2 4.500-1.500 "
     "7.500-2.500l1.500-4.500-2.500-3c-2.300-5.500 1.200-10.500 6.700-13.800a2.700 2.700 0 0 1 "
     "1.800-4.700z",
     "M22.500 14v8M18.500 18h8M16.500 27h12M15.500 31.500h14"},
    {'Q',
     "M10.500 38.500h24l-.5-5.500 2-6 2.500-13.500-6.500 9-1.500-13-5 12-3-13-3 13-5-12-1.500 "
     "13-6.500-9 2.500 13.500 2 6z",
     "M9.500 27.500c8-2.500 18-2.500 26 0M11.500 33c7-1.500 15-1.500 22 0"},
    {'K',
     "M21 4.500h3v3h3v3h-3v4.500c1.500-1 3.500-1.500 6-1.500c7 0 9.500 6 7 11.500l-4.500 "
     "6.500v7h-20v-7l-4.500"
     "-6.500c-2.500-5.500 0-11.500 7-11.500c2.500 0 4.500.5 6 1.500v-4.500h-3v-3h3z",
     "M22.500 15v14M12.500 31.500c6-2.500 14-2.500 20 0M12.500 35c6-2 14-2 20 0"},
}};

} // namespace

// White "w", Black "b".
static void DrawFigure(std::string& page, const Figure& figure, char colour) {
    Print(page, "<g id='%c%c' class='%c'><path d='%s'/>", colour, figure.letter, colour,
          figure.outline);
    if (*figure.lines != '\0')
        Print(page, "<path class='l' d='%s'/>", figure.lines);
    page += "</g>";
}

// The files along the lower edge and the ranks along the left one, as White or as Black sees them.
static void DrawNames(std::string& page, const char* id, bool turned) {
    Print(page, "<g id='%s' class='names'>", id);
    for (int i = 0; i < 8; i++) {
        const int line = turned ? 7 - i : i;
        Print(page, "<text x='%d' y='357' text-anchor='end'>%c</text>", (i + 1) * SQUARE - 2,
              'a' + line);
        Print(page, "<text x='2' y='%d'>%d</text>", (7 - i) * SQUARE + 9, line + 1);
    }
    page += "</g>";
}

std::string BoardSymbols() {
    std::string page = "<svg width='0' height='0' style='position:absolute' aria-hidden='true'>"
                       "<defs><g id='squares'><rect class='sl' width='360' height='360'/><path "
                       "class='sd' d='";
    for (int sq = 0; sq < 64; sq++) {
        if ((LIGHT_SQUARES & SquareBit(sq)) == 0)
            Print(page, "M%d %dh45v45h-45z", FileOf(sq) * SQUARE, (7 - RankOf(sq)) * SQUARE);
    }
    page += "'/></g>";
    DrawNames(page, "names", false);
    DrawNames(page, "names-turned", true);
    for (const Figure& figure : Figures) {
        DrawFigure(page, figure, 'w');
        DrawFigure(page, figure, 'b');
    }
    return page + "</defs></svg>\n";
}

static char ManOn(int sq) {
    const char letter = PieceLetters[Board[sq]];
    return ColourOn(sq) == WHITE ? letter : char(std::tolower(static_cast<unsigned char>(letter)));
}

static std::string Corner(int sq) {
    return " x='" + std::to_string(FileOf(sq) * SQUARE) + "' y='" +
           std::to_string((7 - RankOf(sq)) * SQUARE) + "'";
}

std::string BoardPicture(Move last) {
    std::string page = "<svg class='board' viewBox='0 0 360 360' role='img' aria-label='The board'>"
                       "<use href='#squares'/><use class='names' href='#names'/><g class='men'>";
    for (int sq = 0; sq < 64; sq++) {
        if (Board[sq] == EMPTY)
            continue;
        page += "<use href='#";
        page += ColourOn(sq) == WHITE ? 'w' : 'b';
        page += PieceLetters[Board[sq]];
        page += "'" + Corner(sq) + "/>";
    }
    page += "</g><g class='last'>";
    if (last != NO_MOVE) {
        for (const int sq : {From(last), To(last)})
            page += "<rect" + Corner(sq) + " width='45' height='45'/>";
    }
    return page + "</g></svg>";
}

std::string BoardChanges(Move move) {
    std::string changes;
    const auto change = [&changes](int sq, char man) {
        changes += char('a' + FileOf(sq));
        changes += char('1' + RankOf(sq));
        changes += man;
    };
    const char mover = ManOn(From(move));
    char arrives = mover;
    if (Promotion(move) != EMPTY) {
        const char letter = PieceLetters[Promotion(move)];
        arrives = mover == 'P' ? letter : char(std::tolower(static_cast<unsigned char>(letter)));
    }
    change(From(move), '.');
    if (IsEnPassant(move))
        change(VictimSquare(move), '.');
    change(To(move), arrives);
    if (IsCastling(move)) {
        const RookHop rook = CastlingRook(To(move));
        const char letter = ManOn(rook.from);
        change(rook.from, '.');
        change(rook.to, letter);
    }
    return changes;
}

std::string Placement() {
    const std::string fen = WriteFen();
    return fen.substr(0, fen.find(' '));
}
