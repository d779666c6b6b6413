// What tests of the board share: squares and moves as text, lists of moves, walks through move
// trees.
#pragma once

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "board/attackers.h"
#include "board/fen.h"
#include "board/moves/generate.h"
#include "board/moves/make_move.h"
#include "board/moves/order_tables.h"
#include "board/notation.h"
#include "board/position.h"
#include "support/positions.h"

// Starts each test with nothing learned, the starting position and an empty move stack.
class BoardTest : public testing::Test {
protected:
    void SetUp() override {
        Forget();
    }
    void TearDown() override {
        Forget();
    }

private:
    static void Forget() {
        ClearHistory();
        ClearEvasionReplies();
        ClearCaptureStats();
        HashAge = 1;
        MoveStackTop = 0;
        SetStartPosition();
    }
};

// A square by its name, "e4".
constexpr int Sq(const char* name) {
    return (name[1] - '1') * 8 + name[0] - 'a';
}

// Squares by their names, "a1 h8".
constexpr Bitboard Squares(const char* names) {
    Bitboard b = 0;
    for (; *names != '\0'; names += names[2] == ' ' ? 3 : 2)
        b |= SquareBit(Sq(names));
    return b;
}

inline std::string SquareText(int sq) {
    return {char('a' + FileOf(sq)), char('1' + RankOf(sq))};
}

inline std::string MovesText(const std::vector<Move>& moves) {
    std::string text;
    for (const Move move : moves) {
        if (!text.empty())
            text += ' ';
        text += MoveText(move);
    }
    return text;
}

// What a generator appends, in its order. The move stack is left as it was.
template <typename Generate> std::vector<ScoredMove> Scored(Generate generate) {
    const int start = MoveStackTop;
    generate();
    std::vector<ScoredMove> found(MoveStack + start, MoveStack + MoveStackTop);
    MoveStackTop = start;
    return found;
}
template <typename Generate> std::vector<Move> Generated(Generate generate) {
    std::vector<Move> found;
    for (const ScoredMove& scored : Scored(generate))
        found.push_back(scored.move);
    return found;
}

inline void GenerateAll() {
    GenerateCaptures(ColourBB[ChangeSide(SideToMove)]);
    GeneratePromotions();
    GenerateQuiet(0);
}

// Whether the side to move may play the pseudo-legal move, found out by playing it.
inline bool Playable(Move move) {
    const Colour us = SideToMove;
    if (IsCastling(move) && InCheck(us))
        return false;
    MakeMove(move, true);
    const bool playable = !InCheck(us);
    UnmakeMove();
    return playable;
}

inline std::vector<Move> PlayableMoves() {
    std::vector<Move> moves = Generated(GenerateAll);
    std::erase_if(moves, [](Move move) { return !Playable(move); });
    return moves;
}

inline std::vector<Move> Sorted(std::vector<Move> moves) {
    std::sort(moves.begin(), moves.end());
    return moves;
}

// The pseudo-legal move of that text, NO_MOVE when there is none.
inline Move FindMove(const std::string& text) {
    for (const Move move : Generated(GenerateAll)) {
        if (MoveText(move) == text)
            return move;
    }
    return NO_MOVE;
}

// Plays moves, "e2e4 e7e5".
inline void Play(const std::string& moves) {
    for (size_t start = 0; start < moves.size();) {
        const size_t end = std::min(moves.find(' ', start), moves.size());
        const std::string text = moves.substr(start, end - start);
        const Move move = FindMove(text);
        ASSERT_NE(move, NO_MOVE) << text << " in " << WriteFen();
        MakeMove(move, true);
        start = end + 1;
    }
}

// Calls `visit` at every position that legal moves reach within `depth` plies, this one included.
template <typename Visit> void WalkTree(int depth, Visit visit) {
    visit();
    if (depth == 0)
        return;
    for (const Move move : PlayableMoves()) {
        MakeMove(move, true);
        WalkTree(depth - 1, visit);
        UnmakeMove();
    }
}

constexpr int RANDOM_GAMES = 3;

// Plays random games of `plies` legal moves from each of the varied positions and calls `visit`
// before every move: positions that nobody thought of.
template <typename Visit> void WalkRandomGames(int plies, Visit visit) {
    std::mt19937 random(7);
    for (const TestPosition& position : VariedPositions()) {
        SCOPED_TRACE(position.name);
        for (int game = 0; game < RANDOM_GAMES; game++) {
            LoadFen(position.fen);
            for (int ply = 0; ply < plies && !testing::Test::HasFailure(); ply++) {
                visit();
                const std::vector<Move> moves = PlayableMoves();
                if (moves.empty())
                    break;
                MakeMove(moves[random() % moves.size()], true);
            }
        }
    }
}
