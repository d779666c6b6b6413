#include "support/positions.h"

namespace {

constexpr TestPosition Positions[] = {
    {"start", "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1"},
    {"every kind of move", "r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq - 0 1"},
    {"every kind of move, Black",
     "r3k2r/pppbbppp/2n2q1P/1P2p3/3pn3/BN2PNP1/P1PPQPB1/R3K2R b KQkq - 0 1"},
    {"double step allowed e.p.", "rnbqkbnr/ppp1p1pp/8/3pPp2/8/8/PPPP1PPP/RNBQKBNR w KQkq f5 0 3"},
    {"double step allowed e.p., Black",
     "rnbqkbnr/pppp1ppp/8/8/3PpP2/8/PPP1P1PP/RNBQKBNR b KQkq f4 0 3"},
    {"e.p. pinned on the rank", "8/8/8/8/k2Pp2Q/8/8/3K4 b - d4 0 1"},
    {"e.p. pinned on the diagonal", "8/5bk1/8/2Pp4/8/1K6/8/8 w - d5 0 1"},
    {"e.p. discovers check", "4k3/8/8/2Pp4/8/8/4R3/4K3 w - d5 0 1"},
    {"e.p. opens the rank with check", "8/8/8/R2Pp2k/8/8/8/4K3 w - e5 0 1"},
    {"e.p. answers the check", "8/8/8/1k6/2Pp4/8/8/4K2B b - c4 0 1"},
    {"e.p. answers the check from both sides", "8/8/8/1PpP4/1K6/8/8/4k3 w - c5 0 1"},
    {"e.p. from both sides", "4k3/8/8/2PpP3/8/8/8/4K3 w - d5 0 1"},
    {"castling and promotion", "r3k2r/Pppp1ppp/1b3nbN/nP6/BBP1P3/q4N2/Pp1P2PP/R2Q1RK1 w kq - 0 1"},
    {"bare castling", "r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1"},
    {"bare castling, Black", "r3k2r/8/8/8/8/8/8/R3K2R b KQkq - 0 1"},
    {"castling paths under fire", "r3k2r/1b4bq/8/8/8/8/7B/R3K2R w KQkq - 0 1"},
    {"castling under check", "r3k2r/8/3Q4/8/8/5q2/8/R3K2R b KQkq - 0 1"},
    {"castling checks", "3k1k2/8/8/8/8/8/8/R3K2R w KQ - 0 1"},
    {"promotions everywhere", "n1n5/PPPk4/8/8/8/8/4Kppp/5N1N b - - 0 1"},
    {"promotions everywhere, White", "n1n5/PPPk4/8/8/8/8/4Kppp/5N1N w - - 0 1"},
    {"promotion takes the castling rook", "rn2k1nr/1PP3PP/8/8/8/8/1pp3pp/RN2K1NR w KQkq - 0 1"},
    {"promotion takes the checker", "3rK3/2P5/8/8/8/8/8/4k3 w - - 0 1"},
    {"promotion blocks the check", "r2K4/1P6/8/8/8/8/8/4k3 w - - 0 1"},
    {"promotion to a third queen", "4k3/P6P/8/8/8/8/8/QQ2K3 w - - 0 1"},
    {"three queens under fire", "2q1k1q1/8/3q4/8/8/3Q4/8/2Q1K1Q1 b - - 0 1"},
    {"nine queens", "3Q4/1Q4Q1/4Q3/2Q4R/Q4Q2/3Q4/1Q4Rp/1K1BBNNk w - - 0 1"},
    {"quiet middlegame",
     "r4rk1/1pp1qppp/p1np1n2/2b1p1B1/2B1P1b1/P1NP1N2/1PP1QPPP/R4RK1 w - - 0 10"},
    {"pawn on the seventh", "rnbq1k1r/pp1Pbppp/2p5/8/2B5/8/PPP1NnPP/RNBQK2R w KQ - 1 8"},
    {"opposite castling", "r3k2r/pp1bppbp/2np1np1/q7/3NP3/2N1BP2/PPPQ2PP/2KR1B1R b kq - 0 1"},
    {"five pins", "4k3/3nr3/1q3b2/8/b2B3r/4R3/3NQ3/r2RK2B w - - 0 1"},
    {"pinned men, Black", "r1bqk2r/pppp1ppp/2n2n2/1B2N3/1b2P3/2N5/PPPP1PPP/R1BQ1RK1 b kq - 0 1"},
    {"check by a knight", "rnbqkbnr/pppp1ppp/8/4p3/8/3n4/PPPPPPPP/RNBQKBNR w KQkq - 0 1"},
    {"check by a pawn", "8/8/8/3k4/2P1P3/8/8/4K3 b - - 0 1"},
    {"check along the rank", "R4rk1/5ppp/8/8/8/8/8/R5K1 b - - 0 1"},
    {"check that can be blocked",
     "r1bqkbnr/ppp2ppp/2np4/1B2p3/4P3/5N2/PPPP1PPP/RNBQK2R b KQkq - 0 1"},
    {"double check", "8/8/2k5/5q2/5n2/8/5K2/8 b - - 0 1"},
    {"double check on the file", "rnb1k1nr/ppppqppp/5N2/8/1b6/8/PPPPQPPP/RNB1KB1R b KQkq - 0 1"},
    {"double check by rook and bishop", "4k3/8/8/1B6/8/8/8/K3R3 b - - 0 1"},
    {"discoverers ready", "k7/8/2N5/8/4B3/P7/1P6/RR5K w - - 0 1"},
    {"pawn discovers", "7k/8/8/8/3P4/2B5/8/K7 w - - 0 1"},
    {"rook ending", "8/5pk1/4p1p1/7P/5P2/1r6/6PK/4R3 w - - 0 1"},
    {"minor pieces", "8/2k2b2/2n5/1p2p3/4P3/1B2N3/5K2/8 b - - 0 1"},
    {"pawns alone", "4k3/pppppppp/8/8/8/8/PPPPPPPP/4K3 w - - 0 1"},
    {"nothing but knights and rooks", "nnnnknnn/pppppppp/8/8/8/8/PPPPPPPP/RRRRKRRR b - - 0 1"},
    {"stalemate", "7k/5Q2/6K1/8/8/8/8/8 b - - 0 1"},
    {"mate", "R5k1/5ppp/8/8/8/8/8/6K1 b - - 0 1"},
    {"bare kings", "8/8/4k3/8/8/3K4/8/8 w - - 0 1"},
    {"king hunt", "r1b2r2/pp1n1ppk/4p2p/3pP2Q/2pP1N2/q1P4R/P1P2PPP/4K2R b K - 0 1"},
};

} // namespace

std::span<const TestPosition> VariedPositions() {
    return Positions;
}
