#include <cstdio>
#include <random>

#include "board/generate.h"
#include "board/legal_moves.h"
#include "board/make_move.h"
#include "book_writer.h"
#include "commands.h"
#include "coordinates.h"
#include "judgement.h"

namespace {

constexpr int MOST_MOVES = 100000000;
constexpr int LONGEST_GAME = 100; // plies

struct RandomSettings {
    const char* output = nullptr;
    int moves = 10000;
    int seed = 1;
};

constinit RandomSettings Settings;

constexpr Option Options[] = {
    {"--output", "FILE", "the book to be written",
     [](const char* text) { return (Settings.output = text) != nullptr; }},
    {"--moves", "N", "how many; nearly each in a position of its own (10000)",
     [](const char* text) { return ReadNumber(text, 1, MOST_MOVES, Settings.moves); }},
    {"--seed", "N", "of the random numbers (1)",
     [](const char* text) { return ReadNumber(text, 0, MOST_MOVES, Settings.seed); }},
};

using Numbers = std::mt19937_64;

} // namespace

// One of the legal moves that a book can hold; NO_MOVE at the end of the game.
static Move RandomMove(Numbers& numbers) {
    const int start = MoveStackTop;
    const int count = GenerateLegalMoves();
    MoveStackTop = start;
    if (count == 0)
        return NO_MOVE;
    const Move move = MoveStack[start + int(numbers() % uint64_t(count))].move;
    return FitsBook(move) ? move : NO_MOVE;
}

// Plays a game and puts it into the table with a random result.
static void PlayGame(MoveTable& table, Numbers& numbers) {
    SetStartPosition();
    const auto points = uint32_t(numbers() % 3); // of White
    for (int ply = 0; ply < LONGEST_GAME; ply++) {
        const Move move = RandomMove(numbers);
        if (move == NO_MOVE || table.Size() == size_t(Settings.moves))
            return;
        bool isNew = false;
        MoveCount& entry = table.Entry(KeysOfPosition(), From(move), To(move), isNew);
        entry.AddGame();
        const bool white = SideToMove == WHITE;
        entry.AddPoints(white ? points : 2 - points, white ? 2 - points : points);
        MakeMove(move, true);
    }
}

static int MakeRandomBook(const Files& files) {
    if (Settings.output == nullptr || !files.empty())
        return BadUsage(RandomCommand, "Needs --output and no sources");
    MoveTable table;
    Numbers numbers{uint64_t(Settings.seed)};
    while (table.Size() < size_t(Settings.moves))
        PlayGame(table, numbers);
    return WriteBook(Settings.output, JudgeMoves(table, {}, {})) ? 0 : 1;
}

const Command RandomCommand = {"random", "", "Makes a book of random games, for tests of speed",
                               Options, MakeRandomBook};
