#include "front/console/picture.h"

#include <cctype>
#include <cstdio>

#include "board/notation.h"
#include "board/position.h"
#include "front/game/game.h"
#include "platform/standard_streams.h"

namespace {

constexpr const char* Pictures[] = {" ", "♚", "♞", "♟", "?", "♜", "♝", "♛"};
// Colours of a terminal: white and black men, light and dark squares.
constexpr const char* MenColours[] = {"\033[1;97m", "\033[30m"};
constexpr const char* LightSquare = "\033[48;5;180m";
constexpr const char* DarkSquare = "\033[48;5;95m";
constexpr const char* PlainColours = "\033[0m";

} // namespace

static void PrintColouredSquare(int sq) {
    const bool light = ((FileOf(sq) + RankOf(sq)) & 1) != 0;
    std::printf("%s%s %s ", light ? LightSquare : DarkSquare, MenColours[ColourOn(sq)],
                Pictures[Board[sq]]);
}

static void PrintLetter(int sq) {
    const char letter = PieceLetters[Board[sq]];
    const bool black = (ColourBB[BLACK] & SquareBit(sq)) != 0;
    std::printf(" %c", black ? std::tolower(static_cast<unsigned char>(letter)) : letter);
}

void PrintPicture() {
    const bool coloured = TerminalShowsUnicode();
    std::printf("\n");
    for (int rank = 7; rank >= 0; rank--) {
        std::printf(" %d ", rank + 1);
        for (int sq = rank * 8; sq < rank * 8 + 8; sq++)
            coloured ? PrintColouredSquare(sq) : PrintLetter(sq);
        std::printf("%s\n", coloured ? PlainColours : "");
    }
    std::printf("   ");
    for (char file = 'a'; file <= 'h'; file++)
        std::printf(coloured ? " %c " : " %c", file);
    std::printf("\n\n");
    std::fflush(stdout);
}

void PrintPrompt() {
    std::printf("%s %d> ", SideToMove == WHITE ? "White" : "Black", MoveNumber());
    std::fflush(stdout);
}
