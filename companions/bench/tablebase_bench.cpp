#include "tablebase_bench.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <random>
#include <vector>

#include "board/position.h"
#include "tablebase/block_cache.h"
#include "tablebase/classes.h"
#include "tablebase/registry.h"
#include "tablebase/tablebases.h"

namespace {

constexpr int SAMPLES = 20000;
constexpr int WARM_REPEATS = 16;

using Clock = std::chrono::steady_clock;
using Random = std::mt19937;

int RandomFreeSquare(Random& random, bool pawn) {
    for (;;) {
        const int sq = int(random() % 64);
        if (Board[sq] == EMPTY && !(pawn && (sq < 8 || sq >= 56)))
            return sq;
    }
}

// The men of a class on random squares, with either colour and side to move.
void SetRandomPosition(Random& random, int number) {
    const TablebaseClass& c = TablebaseClasses[size_t(number)];
    const bool swapped = (random() & 1) != 0;
    ClearBoard();
    Ply = SetupPly = CastleRights = 0;
    for (int side = 0; side < 2; side++) {
        const auto colour = Colour(side ^ int(swapped));
        PlacePiece(RandomFreeSquare(random, false), colour, KING);
        for (int k = 0; k < TB_KINDS; k++) {
            for (int i = 0; i < c.count[side][k]; i++)
                PlacePiece(RandomFreeSquare(random, k == TB_PAWN), colour, PieceOfKind[k]);
        }
    }
    SideToMove = Colour(random() & 1);
}

std::vector<int> CompleteClasses() {
    std::vector<int> numbers;
    for (int number = 1; number <= LAST_FOUR_MEN_CLASS; number++) {
        const bool symmetric = TablebaseClasses[size_t(number)].symmetric;
        const bool white = RegisteredTable(number, WHITE) != nullptr;
        const bool black = RegisteredTable(number, BLACK) != nullptr;
        if ((white && black) || (symmetric && (white || black)))
            numbers.push_back(number);
    }
    return numbers;
}

// In nanoseconds; negative when no table has the position.
double ProbeTime(int repeats) {
    int32_t score = 0;
    int found = 0;
    const Clock::time_point start = Clock::now();
    for (int i = 0; i < repeats; i++)
        found += ProbeTablebase(SideToMove, score);
    if (found < repeats)
        return -1;
    return std::chrono::duration<double, std::nano>(Clock::now() - start).count() / repeats;
}

void PrintTimes(const char* name, std::vector<double>& times) {
    std::ranges::sort(times);
    double sum = 0;
    for (const double time : times)
        sum += time;
    std::printf("%s: mean %.0f ns, median %.0f, 99 of 100 below %.0f\n", name,
                sum / double(times.size()), times[times.size() / 2],
                times[times.size() * 99 / 100]);
}

// System calls that have read something; -1 where that is not told.
long ReadCalls() {
    std::FILE* const file = std::fopen("/proc/self/io", "r");
    long calls = -1;
    if (file == nullptr)
        return calls;
    char line[100];
    while (std::fgets(line, sizeof line, file) != nullptr) {
        if (std::sscanf(line, "syscr: %ld", &calls) == 1)
            break;
    }
    std::fclose(file);
    return calls;
}

} // namespace

bool BenchTablebases(const char* pathList) {
    SetEgtbPath(pathList);
    OpenTablebases();
    PrintTablebaseCount();
    const std::vector<int> classes = CompleteClasses();
    if (classes.empty())
        return false;
    // Every position throws the block of the last one out.
    Tablebases.EgtbCacheBytes = CACHE_ENTRY_BYTES;
    AllocateTablebaseCache();
    Random random(1);
    std::vector<double> cold;
    std::vector<double> warm;
    const long firstReads = ReadCalls();
    // Reading the count takes reads itself.
    const long itself = ReadCalls() - firstReads;
    long reads = 0;
    while (cold.size() < SAMPLES) {
        SetRandomPosition(random, classes[random() % classes.size()]);
        const long before = ReadCalls();
        const double time = ProbeTime(1);
        const long after = ReadCalls();
        if (time < 0)
            continue;
        cold.push_back(time);
        reads += after - before - itself;
        warm.push_back(ProbeTime(WARM_REPEATS));
    }
    std::printf("%d positions of %zu classes\n", SAMPLES, classes.size());
    PrintTimes("block in the cache", warm);
    PrintTimes("block in a file", cold);
    if (firstReads >= 0)
        std::printf("reads for one block: %.3f\n", double(reads) / SAMPLES);
    CloseTablebases();
    return true;
}
