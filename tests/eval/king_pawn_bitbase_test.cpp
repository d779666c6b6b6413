#include "eval/endings/king_pawn_bitbase.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include <gtest/gtest.h>

namespace {

// A second solver, which knows nothing of sets, pawn order or mirrors: white king, one white man
// and the black king, every position by itself, through promotions to all four pieces. It steps
// back from mate one move at a time and shares no code with the engine.
class ThreeMen {
public:
    ThreeMen(char letter, const ThreeMen* withQueen, const ThreeMen* withRook)
        : man(letter), queen(withQueen), rook(withRook), wins(2 * 64 * 64 * 64) {
        while (Sweep()) {
        }
    }
    bool Wins(bool whiteToMove, int king, int sq, int bare) const {
        return wins[Index(whiteToMove, king, sq, bare)] != 0;
    }

private:
    static size_t Index(bool whiteToMove, int king, int sq, int bare) {
        return ((size_t(whiteToMove) * 64 + size_t(king)) * 64 + size_t(sq)) * 64 + size_t(bare);
    }
    static bool Touch(int a, int b) {
        return std::max(std::abs(a % 8 - b % 8), std::abs(a / 8 - b / 8)) <= 1;
    }
    bool Attacks(int from, int to, int blocker) const {
        const int files = to % 8 - from % 8;
        const int ranks = to / 8 - from / 8;
        if (man == 'P')
            return ranks == 1 && std::abs(files) == 1;
        const bool line = files == 0 || ranks == 0;
        const bool diagonal = std::abs(files) == std::abs(ranks);
        if (from == to || !(line || (diagonal && man == 'Q')))
            return false;
        const int step = (files > 0) - (files < 0) + 8 * ((ranks > 0) - (ranks < 0));
        for (int sq = from + step; sq != to; sq += step) {
            if (sq == blocker)
                return false;
        }
        return true;
    }
    bool Possible(bool whiteToMove, int king, int sq, int bare) const {
        return king != sq && bare != sq && !Touch(king, bare) &&
               !(whiteToMove && Attacks(sq, bare, king)) &&
               (man != 'P' || (sq / 8 >= 1 && sq / 8 <= 6));
    }
    bool PushWins(int king, int sq, int bare) const {
        const int step = sq + 8;
        if (step == king || step == bare)
            return false;
        if (sq / 8 == 6) // Nobody wins with a lone minor piece.
            return queen->Wins(false, king, step, bare) || rook->Wins(false, king, step, bare);
        if (Wins(false, king, step, bare))
            return true;
        return sq / 8 == 1 && step + 8 != king && step + 8 != bare &&
               Wins(false, king, step + 8, bare);
    }
    bool WhiteWins(int king, int sq, int bare) const {
        for (int to = 0; to < 64; to++) {
            if (to != king && to != sq && Touch(king, to) && !Touch(to, bare) &&
                Wins(false, to, sq, bare))
                return true;
            if (man != 'P' && to != king && to != bare && Attacks(sq, to, king) &&
                Attacks(sq, to, bare) && Wins(false, king, to, bare))
                return true;
        }
        return man == 'P' && PushWins(king, sq, bare);
    }
    bool BlackLoses(int king, int sq, int bare) const {
        bool moves = false;
        for (int to = 0; to < 64; to++) {
            if (to == bare || !Touch(bare, to) || Touch(king, to))
                continue;
            if (to == sq)
                return false;
            if (Attacks(sq, to, king))
                continue;
            moves = true;
            if (!Wins(true, king, sq, to))
                return false;
        }
        return moves || Attacks(sq, bare, king);
    }
    bool Sweep() {
        bool changed = false;
        for (size_t i = 0; i < wins.size(); i++) {
            const bool whiteToMove = i >> 18 != 0;
            const int king = int(i >> 12 & 63), sq = int(i >> 6 & 63), bare = int(i & 63);
            if (wins[i] || !Possible(whiteToMove, king, sq, bare))
                continue;
            wins[i] = whiteToMove ? WhiteWins(king, sq, bare) : BlackLoses(king, sq, bare);
            changed |= wins[i] != 0;
        }
        return changed;
    }

    char man;
    const ThreeMen* queen;
    const ThreeMen* rook;
    std::vector<uint8_t> wins;
};

} // namespace

TEST(KingPawnBitbase, AgreesWithASolverOfItsOwnEverywhere) {
    const ThreeMen queen('Q', nullptr, nullptr);
    const ThreeMen rook('R', nullptr, nullptr);
    const ThreeMen pawn('P', &queen, &rook);
    int wins = 0;
    int unequal = 0;
    for (int king = 0; king < 64; king++) {
        for (int sq = 0; sq < 64; sq++) {
            for (int bare = 0; bare < 64; bare++) {
                for (const Colour toMove : {WHITE, BLACK}) {
                    const bool found = KingPawnWins(WHITE, king, sq, bare, toMove);
                    const Colour other = ChangeSide(toMove);
                    unequal += found != pawn.Wins(toMove == WHITE, king, sq, bare);
                    unequal += found != KingPawnWins(BLACK, king ^ 56, sq ^ 56, bare ^ 56, other);
                    wins += found && sq % 8 < 4;
                }
            }
        }
    }
    EXPECT_EQ(0, unequal);
    EXPECT_EQ(111282, wins);
}

TEST(KingPawnBitbase, KnowsTheTextbook) {
    struct Case {
        const char* name;
        const char* men; // king, pawn, bare king
        bool winsWithMove, winsWithoutMove;
    };
    for (const Case& c : {
             Case{"opposition decides", "e5e4e7", false, true},
             Case{"king on the sixth before its pawn", "e6e5e8", true, true},
             Case{"whose pawn gives no check wins", "d6e6e8", true, false},
             Case{"king two squares before its pawn", "e4e2e6", true, true},
             Case{"rook's pawn with the king in the corner", "b6a6a8", false, false},
             Case{"rook's pawn with the king shut out", "b7a5d6", true, true},
             Case{"a race into the square", "h1a5e4", true, false},
             Case{"the pawn is lost", "h8c4d5", false, false},
         }) {
        SCOPED_TRACE(c.name);
        const auto square = [&](int i) {
            return c.men[2 * i] - 'a' + 8 * (c.men[2 * i + 1] - '1');
        };
        const int king = square(0), pawn = square(1), bare = square(2);
        EXPECT_EQ(c.winsWithMove, KingPawnWins(WHITE, king, pawn, bare, WHITE));
        EXPECT_EQ(c.winsWithoutMove, KingPawnWins(WHITE, king, pawn, bare, BLACK));
        EXPECT_EQ(c.winsWithMove, KingPawnWins(BLACK, king ^ 63, pawn ^ 63, bare ^ 63, BLACK));
    }
}
