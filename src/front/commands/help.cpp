#include "front/commands/help.h"

#include <cstdio>
#include <string>

#include "front/game/dialect.h"
#include "front/input/input_lines.h"

namespace {

constexpr const char* FirstPage[] = {
    ("Tarquelin commands:\n"
     "------------------------------------------------------------------------------\n"),
    "analyze ................... Enters analyze mode",
    "black ..................... Sets black to move and engine side to white",
    "brd ....................... Prints a board",
    "bkm ....................... Prints book moves for current position",
    "easy ...................... Toggles pondering off",
    "edit ...................... Edit board position",
    "egtbstat .................. Displays current EGTB status",
    "epdevl <f> ................ Produces static evaluations for EPD-file <f>",
    "evl ....................... Shows static evaluation for current position",
    "force ..................... Toggles autoplay off",
    "go ........................ Starts search",
    "hard ...................... Toggles pondering on",
    "help ...................... Displays this help",
    "level <m> <t> <i> ......... Sets ICS time controls",
    "loadfen <e> ............... Sets FEN-position <e>",
    "moves ..................... Displays all legal moves with ranking priorities",
    "mvd ....................... Shows position flags",
    "new ....................... Starts a new game",
    "nopost .................... Toggles silent mode on",
};

// What is said of `time` does not fit what it does: it takes hundredths. Both stay as they are.
constexpr const char* SecondPage[] = {
    "perft <d> ................. Tests the move generator/make_move with depth <d>",
    "post ...................... Toggles silent mode off",
    "q[uit] .................... Exits Tarquelin",
    "remove .................... Un-makes last moves of each side",
    "sd <d> .................... Sets max search depth to <d>",
    "st <t> .................... Sets max search time to <t>",
    "time <t> .................. Sets remaining game time in milliseconds to <t>",
    "uci ....................... UCI mode",
    "undo ...................... Un-makes last move of one side",
    "white ..................... Sets white to move and engine side to black\n",
};

constexpr const char* PersonPage[] = {
    "  e4, Nf3, O-O, e7e8q   a move, in either notation",
    "  go                    Tarquelin plays for the side to move",
    "  undo                  takes back its move and yours",
    "  new, force            a new game; a board on which it does not answer",
    "  hint, eval, moves     a move to consider; what the position is worth; all moves",
    "  analyze, exit         thinks about the position until told otherwise",
    "  level 40 5 0          40 moves in 5 minutes; level 0 5 3: 5 minutes and 3 seconds a move",
    "  strength 1200         plays at a level from 800 to 2800; strength full: as well as it can",
    "  st 10, sd 12          ten seconds a move; twelve plies",
    "  easy, hard            does not think on your time, or does",
    "  post, nopost          shows its thinking, or does not",
    "  brd, setboard FEN     shows the board; sets a position up",
    "  save F, load F        the game as a PGN file",
    "  bkm, perft N          moves of the book; counts positions",
    "  quit                  ends",
};

} // namespace

// One page, of what a person needs.
static void HelpPerson() {
    for (const char* const line : PersonPage)
        std::puts(line);
    std::fflush(stdout);
}

void ShowHelp(const CommandLine&) {
    if (Speaking->person)
        return HelpPerson();
    for (const char* const line : FirstPage)
        std::puts(line);
    std::printf("\nPress <enter> to continue....");
    std::fflush(stdout);
    std::string answer;
    NextLine(answer);
    std::printf("\n");
    for (const char* const line : SecondPage)
        std::puts(line);
    std::fflush(stdout);
}
