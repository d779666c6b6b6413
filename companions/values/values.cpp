// Builds the values file that the engine is started with.
//
// The imbalance has its numbers from here; all others are the built-in ones. To be run again
// whenever a parameter is added or a built-in number is changed:
//
//     build/release/tarquelin-values data/values.txt

#include <cstdio>
#include <optional>
#include <string>

#include "companions/shared/command_line.h"
#include "eval/imbalance.h"
#include "eval/parameters/parameters.h"
#include "eval/parameters/values_file.h"

// What the number of pawns does to pieces, 16ths of a centipawn. Knights hop over pawns and need
// them for outposts; rooks need open files, so that their own pawns hurt most. Bishops and queens
// mind less.
static void SetPawnTerms() {
    Params.PieceByOwnPawns = {64, 16, -112, -16};
    Params.PieceByOpponentPawns = {24, -16, -48, -16};
}

static void SetMinorTerms() {
    // An extra piece is worth more than its price in pawns while other pieces are there to join
    // it, most of all in an attack; and to win in the end it needs pawns of its own.
    Params.MinorUp = 12;
    Params.SecondMinorUp = 6;
    Params.MinorForPawns = 5;
    Params.MinorForPawnsWithQueens = 15;
    Params.MinorForPawnsPerOwnPawn = 2;
    // Two pieces attack a point twice that a rook and a pawn defend once, as long as pawns keep the
    // rook from the open board.
    Params.TwoMinorsForRook = 10;
    Params.TwoMinorsForRookPerPawn = 2;
    Params.RookForMinor = -5;
    Params.RookForMinorPerPawn = -1;
    // Two bishops guard what the missing rook would enter by.
    Params.RookForMinorAgainstPair = -12;
    // Bishops see further the emptier the board is.
    Params.BishopPairPerPawn = -2;
    // Knights that guard each other stand still.
    Params.KnightPair = -4;
}

static void SetMajorTerms() {
    // One rook is enough to take the open file, and beside a queen it does what she can do too.
    Params.RookPair = -12;
    Params.RookBesideQueen = -6;
    Params.SecondQueen = -25;
    // Two rooks need a board without other pieces to unite against a queen.
    Params.QueenForRooks = 10;
    Params.QueenForRooksPerMinor = 5;
    Params.QueenForRookAndMinor = 5;
    Params.QueenForMinors = -10;
    Params.RookForPawns = 10;
    // Nobody to take an open file, or to fight the one who has it.
    Params.NoMajors = -12;
    Params.LeaderPerPieceGone = 2;
}

// How well one side's pieces work together against what the other has, centipawns. Of queens counts
// only whether there is one.
static int32_t Cooperation(const MenOfSide& own, const MenOfSide& opponent) {
    int32_t sum = 0;
    // No bishop disputes either colour.
    if (own.bishops == 2 && opponent.bishops == 0)
        sum += 6;
    // A queen moves like a bishop already; a knight adds what she lacks. Without her, rooks and
    // bishops complete each other.
    if (own.queens > 0)
        sum += 3 * own.knights;
    else if (own.rooks > 0)
        sum += 3 * own.bishops;
    // Alone, a queen gives checks and no more.
    if (own.queens > 0 && own.rooks + own.Minors() == 0)
        sum -= 10;
    return sum;
}

// The table, in its order.
static void SetTable() {
    const int counts[] = {2, 2, 3, 3, 3, 3, 3, 3};
    for (size_t i = 0; i < Params.ImbalanceTable.size(); i++) {
        int digits[8] = {};
        int rest = int(i);
        for (int place = 7; place >= 0; place--) {
            digits[place] = rest % counts[place];
            rest /= counts[place];
        }
        const auto& [whiteQueen, blackQueen, wr, wb, wn, br, bb, bn] = digits;
        const MenOfSide white = {0, wn, wb, wr, whiteQueen};
        const MenOfSide black = {0, bn, bb, br, blackQueen};
        Params.ImbalanceTable[i] = Cooperation(black, white) - Cooperation(white, black);
    }
}

int main(int argc, char** argv) {
    CLI::App program("Builds the values file that the engine is started with.", "tarquelin-values");
    std::string path = VALUES_FILE;
    program.add_option("FILE", path, "where to write it")->option_text("[" + path + "]");
    if (const std::optional<int> status = ReadCommandLine(program, argc, argv))
        return *status;
    SetPawnTerms();
    SetMinorTerms();
    SetMajorTerms();
    SetTable();
    if (WriteParameters(path.c_str()))
        return 0;
    std::fprintf(stderr, "Cannot write %s\n", path.c_str());
    return 1;
}
