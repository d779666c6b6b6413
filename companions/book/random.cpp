#include <random>

#include "board/moves/generate.h"
#include "board/moves/legal_moves.h"
#include "board/moves/make_move.h"
#include "book_writer.h"
#include "commands.h"
#include "companions/shared/progress.h"
#include "judgement.h"
#include "sources/coordinates.h"

namespace {

constexpr int LONGEST_GAME = 100; // plies

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
static void PlayGame(MoveTable& table, Numbers& numbers, size_t moves) {
    SetStartPosition();
    const auto points = uint32_t(numbers() % 3); // of White
    for (int ply = 0; ply < LONGEST_GAME; ply++) {
        const Move move = RandomMove(numbers);
        if (move == NO_MOVE || table.Size() == moves)
            return;
        bool isNew = false;
        MoveCount& entry = table.Entry(KeysOfPosition(), From(move), To(move), isNew);
        entry.AddGame();
        const bool white = SideToMove == WHITE;
        entry.AddPoints(white ? points : 2 - points, white ? 2 - points : points);
        MakeMove(move, true);
    }
}

int MakeRandomBook(const RandomSettings& settings) {
    const auto moves = size_t(settings.moves);
    MoveTable table;
    Numbers numbers{uint64_t(settings.seed)};
    Progress progress("random games", moves, "moves");
    while (table.Size() < moves) {
        PlayGame(table, numbers, moves);
        progress.Tell(table.Size(), table.Size());
    }
    return WriteBook(settings.output, JudgeMoves(table, {}, {})) ? 0 : 1;
}
