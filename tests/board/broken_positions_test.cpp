// Set-up texts that no game leads to: nothing may crash, and the position must stay consistent.
#include <cstdio>

#include "board/exchange.h"
#include "board/moves/evasions.h"
#include "board/moves/legal_moves.h"
#include "board/moves/perft.h"
#include "board/moves/pseudo_legal.h"
#include "board/moves/quiet_checks.h"
#include "board/recompute.h"
#include "support/board_test.h"

namespace {

class BrokenPositions : public BoardTest {
protected:
    // Boards with too many pawns are reported on standard output.
    void SetUp() override {
        BoardTest::SetUp();
        testing::internal::CaptureStdout();
    }
    void TearDown() override {
        const std::string printed = testing::internal::GetCapturedStdout();
        if (HasFailure())
            std::fputs(printed.c_str(), stderr); // the failures are told there
        BoardTest::TearDown();
    }
};

void ExpectConsistent(const std::string& fen, const std::string& move, BoardKind kind) {
    ASSERT_EQ(FirstDifferenceFromRecomputation(kind), "") << move << " in " << fen;
}

BoardKind KindOfBoard() {
    const auto most = [](Piece piece) {
        return std::max(PieceCount[piece][WHITE], PieceCount[piece][BLACK]);
    };
    return most(KING) > 1 || most(PAWN) > 8 ? ANY_BOARD : PLAYED_BOARD;
}

// Asks every question of the position and makes every move of it.
void UseEverything(const std::string& fen) {
    const BoardKind kind = KindOfBoard();
    ExpectConsistent(fen, "set up", kind);
    const std::string before = WriteFen();
    const int materialIndex = MaterialIndex;
    const Bitboard kings[2] = {PieceBB[KING][WHITE], PieceBB[KING][BLACK]};
    Generated([] {
        GenerateAll();
        GeneratePromotionsQN();
        GenerateQuietChecks(1);
        if (InCheck(SideToMove))
            GenerateEvasions();
        GenerateLegalMoves();
    });
    for (const Move move : Generated(GenerateAll)) {
        ASSERT_TRUE(IsPseudoLegal(move)) << MoveText(move) << " in " << fen;
        SafeExchange(move);
        GivesCheck(move);
        IsLegalMove(move);
        MakeMove(move, true);
        ExpectConsistent(fen, MoveText(move), kind);
        Generated(GenerateAll);
        UnmakeMove();
        ExpectConsistent(fen, MoveText(move) + " taken back", kind);
        ASSERT_EQ(MaterialIndex, materialIndex);
        ASSERT_EQ(PieceBB[KING][WHITE], kings[WHITE]);
        ASSERT_EQ(PieceBB[KING][BLACK], kings[BLACK]);
    }
    for (Move word = 0; word <= MOVE_MASK; word += 997)
        IsPseudoLegal(word);
    CountPerft(1);
    ASSERT_EQ(WriteFen(), before);
}

// Both sides get the move: the text may have given it to either.
void LoadAndUse(const std::string& fen) {
    LoadFen(fen.c_str());
    UseEverything(fen);
    LoadFen(fen.c_str());
    SideToMove = ChangeSide(SideToMove);
    UseEverything(fen + " (the other side)");
}

} // namespace

TEST_F(BrokenPositions, KnownTroubleIsSurvived) {
    constexpr const char* fens[] = {
        "",
        " ",
        "/",
        "////////////////",
        "w KQkq - 0 1",
        "8/8/8/8/8/8/8/8 w - - 0 1",
        "8/pppppppp/8/8/8/8/PPPPPPPP/8 w KQkq - 0 1",
        "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQ1BNR w KQkq - 0 1",
        "k1k1k3/8/8/8/8/8/8/K1K1K3 w - - 0 1",
        "kkkkkkkk/kkkkkkkk/kkkkkkkk/kkkkkkkk/KKKKKKKK/KKKKKKKK/KKKKKKKK/KKKKKKKK w KQkq - 0 1",
        "kK6/8/8/8/8/8/8/Kk6 b - - 0 1",
        "QQQQQQQQ/QQQQQQQQ/QQQQQQQQ/QQQQQQQQ/QQQQQQQQ/QQQQQQQQ/QQQQQQQQ/QQQQQQQQ w - - 0 1",
        "qQqQqQqQ/QqQqQqQq/qQqQqQqQ/QqQqQqQq/qQqQqQqQ/QqQqQqQq/qQqQqQqQ/QqQqQqQq b - - 0 1",
        "Q1Q1Q1Q1/1Q1Q1Q1Q/Q1Q1Q1Q1/1Q1Q1Q1Q/Q1Q1Q1Q1/1Q1Q1Q1Q/Q1Q1Q1Q1/1Q1Q1Q1Q w - - 0 1",
        "PPPPPPPP/PPPPPPPP/PPPPPPPP/8/8/pppppppp/pppppppp/pppppppp w KQkq - 0 1",
        "pppppppp/pppppppp/pppppppp/8/8/PPPPPPPP/PPPPPPPP/PPPPPPPP b KQkq - 0 1",
        "PPPPPPPP/8/PPPPPPPP/8/PPPPPPPP/8/PPPPPPPP/8 w - - 0 1",
        "n1n1n1n1/PPPPPPPP/8/8/8/8/pppppppp/N1N1N1N1 w - - 0 1",
        "4k3/8/8/8/8/8/8/4R2K w - - 0 1",
        "4k3/4R3/8/8/8/8/4r3/4K3 w - - 0 1",
        "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq e4 0 1",
        "4k3/8/8/pP6/8/8/8/4K3 w - a5",
        "4k3/8/8/P6p/8/8/8/4K3 w - h5",
        "8/8/8/pPpPpPpP/8/8/8/8 w - c5",
        "r3k2r/8/8/8/8/8/8/R3K2R w KKKKKKKKKQQQQQQQQkkkkkkqqqqq - 999999999999 -5",
    };
    for (const char* fen : fens)
        LoadAndUse(fen);
}

TEST_F(BrokenPositions, TextsThatStopAnywhereAreSurvived) {
    for (const std::string fen :
         {"rnbqkbnr/ppp1p1pp/8/3pPp2/8/8/PPPP1PPP/RNBQKBNR w KQkq f5 0 3",
          "r3k2r/p1ppqpb1/bn2pnp1/3PN3/Pp2P3/2N2Q1p/2PBBPPP/R3K2R b KQkq a4"}) {
        for (size_t length = 0; length <= fen.size(); length++)
            LoadAndUse(fen.substr(0, length));
    }
}

TEST_F(BrokenPositions, OverlongTextsAreSurvived) {
    const std::string many(100000, '/');
    LoadAndUse(std::string(100000, ' '));
    LoadAndUse(std::string(100000, '8'));
    LoadAndUse(std::string(100000, 'Q'));
    LoadAndUse(many);
    LoadAndUse("4k3/8/8/8/8/8/8/4K3" + many + " w - -");
    LoadAndUse("4k3/8/8/8/8/8/8/4K3 " + many + " " + many + " " + many);
    EXPECT_EQ(KingSquare[WHITE], Sq("e1"));
}

TEST_F(BrokenPositions, DamagedAndRandomTextsAreSurvived) {
    const std::string alphabet = "KQRBNPkqrbnp12345678//////  -wabcdefgh45";
    std::mt19937 random(6);
    for (int i = 0; i < 4000 && !HasFatalFailure(); i++) {
        std::string fen(random() % 100, ' ');
        for (char& c : fen)
            c = random() % 16 == 0 ? char(random()) : alphabet[random() % alphabet.size()];
        LoadAndUse(fen);
    }
    for (const TestPosition& position : VariedPositions()) {
        for (int i = 0; i < 40 && !HasFatalFailure(); i++) {
            std::string fen = position.fen;
            for (unsigned damage = random() % 6; damage-- > 0;) {
                const size_t place = random() % fen.size();
                if (random() & 1)
                    fen[place] = "KkQPp8/ -9"[random() % 10];
                else
                    fen.erase(place, 1);
            }
            LoadAndUse(fen);
        }
    }
}
