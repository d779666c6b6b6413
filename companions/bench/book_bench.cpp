#include "book_bench.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include "board/fen.h"
#include "board/moves/generate.h"
#include "board/moves/legal_moves.h"
#include "board/moves/make_move.h"
#include "book/book.h"
#include "book/book_choice.h"

namespace {

constexpr int GAMES = 1000;
constexpr int PLIES = 20;

} // namespace

// The positions of random games, each of them once, in no order.
static std::vector<std::string> RandomPositions() {
    std::mt19937 random(1);
    std::vector<std::string> fens;
    for (int game = 0; game < GAMES; game++) {
        SetStartPosition();
        for (int ply = 0; ply < PLIES; ply++) {
            MoveStackTop = 0;
            const int count = GenerateLegalMoves();
            if (count == 0)
                break;
            MakeMove(MoveStack[random() % unsigned(count)].move, true);
            fens.push_back(WriteFen());
        }
    }
    std::ranges::sort(fens);
    fens.erase(std::unique(fens.begin(), fens.end()), fens.end());
    std::ranges::shuffle(fens, random);
    return fens;
}

// Microseconds that `job` takes in one of the positions, the set-up included.
template <typename Job> static double TimeOf(const std::vector<std::string>& fens, Job job) {
    const auto start = std::chrono::steady_clock::now();
    for (const std::string& fen : fens) {
        LoadFen(fen.c_str());
        MoveStackTop = 0;
        job();
    }
    const std::chrono::duration<double, std::micro> time = std::chrono::steady_clock::now() - start;
    return time.count() / double(fens.size());
}

bool BenchBook(const char* path) {
    OpenBook(path);
    if (!BookIsOpen())
        return false;
    const std::vector<std::string> fens = RandomPositions();
    size_t found = 0;
    BookNode node;
    TimeOf(fens, [&] { found += FindPosition(node); });
    const double setUp = TimeOf(fens, [] {});
    const double lookUp = TimeOf(fens, [&] { FindPosition(node); }) - setUp;
    const double choice = TimeOf(fens, [] { ChooseBookMove(); }) - setUp;
    std::printf("%zu positions, %zu in the book\nlook-up %.2f us\nchoice %.2f us\n", fens.size(),
                found, lookUp, choice);
    return true;
}
