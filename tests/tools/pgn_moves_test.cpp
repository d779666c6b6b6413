// Finding the move that a game record means.

#include <string>

#include <gtest/gtest.h>

#include "board/fen.h"
#include "tools/pgn_moves.h"

namespace {

TEST(PgnParseSan, CountsTheLegalMovesThatFitWhatIsWritten) {
    constexpr const char* castling = "r3k2r/1P6/8/3pP3/2P5/8/8/R3K2R w KQkq d5";
    constexpr const char* castlingBlack = "r3k2r/8/8/8/8/8/1p6/R3K2R b KQkq -";
    constexpr const char* knights = "k7/8/8/8/8/8/8/K2N3N w - -";
    const Move takesOnD5 = MoveWord(26, 35, PAWN, PAWN);
    const struct {
        const char* fen;
        const char* text;
        int matches;
        Move move;
    } cases[] = {
        {castling, "O-O", 1, WHITE_CASTLES_SHORT},
        {castling, "Kc1", 1, WHITE_CASTLES_LONG},
        {castlingBlack, "o-o", 1, BLACK_CASTLES_SHORT},
        {castling, "O-O-O-O", 0, NO_MOVE},
        {castling, "c:d5", 1, takesOnD5},
        {castling, "Pc4-d5", 1, takesOnD5},
        {castling, "exd6", 1, MoveWord(36, 43, PAWN)},
        {castling, "exd6e", 1, MoveWord(36, 43, PAWN)}, // of "exd6e.p."
        {castling, "a1-b1", 1, MoveWord(0, 1, ROOK)},
        {castling, "bxa8=N", 1, MoveWord(49, 56, PAWN, ROOK, KNIGHT)},
        {castlingBlack, "bxa1b", 1, MoveWord(9, 0, PAWN, ROOK, BISHOP)},
        // Not told to what: any of four. A king or a pawn is none of them.
        {castling, "bxa8", 4, MoveWord(49, 56, PAWN, ROOK, QUEEN)},
        {castling, "c5=Q", 0, NO_MOVE},
        // A capture must be one; nothing else may be told.
        {castling, "Rxb1", 0, NO_MOVE},
        {castling, "Rb", 0, NO_MOVE},
        {castling, "Rb1z", 0, NO_MOVE},
        {castling, "x=:", 0, NO_MOVE},
        {castling, "Ra1b1a1b1a1b1a1b1a1b1", 0, NO_MOVE},
        // Castling out of check and through it; a pinned man does not make a move ambiguous.
        {"4r1k1/8/8/8/8/8/8/4K2R w K -", "O-O", 0, NO_MOVE},
        {"5rk1/8/8/8/8/8/8/4K2R w K -", "O-O", 0, NO_MOVE},
        {"4k3/8/8/8/1b6/2N5/8/4K1N1 w - -", "Ne2", 1, MoveWord(6, 12, KNIGHT)},
        {knights, "Nf2", 2, NO_MOVE},
        {knights, "Ndf2", 1, MoveWord(3, 13, KNIGHT)},
        {knights, "Nhf2", 1, MoveWord(7, 13, KNIGHT)},
        {knights, "Naf2", 0, NO_MOVE},
        {"4k3/8/8/R7/8/8/8/R3K3 w - -", "R1a3", 1, MoveWord(0, 16, ROOK)},
        {"4k3/8/8/R7/8/8/8/R3K3 w - -", "R5a3", 1, MoveWord(32, 16, ROOK)},
        // No king at all, and one that could be taken.
        {"8/8/8/8/8/8/4R3/8 w - -", "Re8", 1, MoveWord(12, 60, ROOK)},
        {"4k3/8/8/8/8/8/4R3/4K3 w - -", "Rxe8", 0, NO_MOVE},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.text) + " in " + c.fen);
        LoadFen(c.fen);
        const SanMove found = PgnParseSan(c.text);
        EXPECT_EQ(found.matches, c.matches);
        if (c.matches != 2) {
            EXPECT_EQ(found.move, c.move);
        }
    }
}

} // namespace
