#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <mutex>
#include <new>
#include <thread>
#include <vector>

#include "commands.h"
#include "companions/shared/files.h"
#include "companions/shared/progress.h"
#include "published.h"
#include "sha256.h"
#include "smaller_tables.h"
#include "solver.h"
#include "table_file.h"

namespace fs = std::filesystem;

namespace {

// Adds the class after all that its moves lead to, unless it is there.
void AddWithSmaller(std::vector<int>& classes, int number) {
    if (std::ranges::find(classes, number) != classes.end())
        return;
    for (const int smaller : SmallerClasses(number))
        AddWithSmaller(classes, smaller);
    classes.push_back(number);
}

// The classes asked for, or all, each after those that it needs.
std::vector<int> InOrder(const std::vector<int>& classes) {
    std::vector<int> ordered;
    for (const int number : classes)
        AddWithSmaller(ordered, number);
    for (int number = 1; classes.empty() && number <= LAST_FOUR_MEN_CLASS; number++)
        AddWithSmaller(ordered, number);
    return ordered;
}

bool IsComplete(const fs::path& directory, int number) {
    for (const Colour side : {WHITE, BLACK}) {
        const fs::path path = directory / TableFileName(number, side);
        std::error_code error;
        std::vector<uint8_t> bytes;
        if (fs::file_size(path, error) != PublishedBytes(number, side) || error ||
            ReadWholeFile(path, bytes) || Sha256(bytes) != PublishedSha256(number, side))
            return false;
    }
    return true;
}

// Of both tables.
uint64_t Entries(int number) {
    return TableEntries(number, WHITE) + TableEntries(number, BLACK);
}

uint64_t EntriesOf(const std::vector<int>& classes) {
    uint64_t sum = 0;
    for (const int number : classes)
        sum += Entries(number);
    return sum;
}

// Classes whose moves lead only to classes of earlier steps: a capture takes a man, a promotion a
// pawn.
int StepOf(int number) {
    const TablebaseClass& c = TablebaseClasses[size_t(number)];
    return c.men * MAX_TABLEBASE_MEN + c.count[0][TB_PAWN] + c.count[1][TB_PAWN];
}

// Builds the classes of one step after the other, those of one step on several threads.
class Builder {
public:
    Builder(const BuildSettings& buildSettings, std::vector<int> missing)
        : settings(buildSettings), classes(std::move(missing)),
          progress("building", EntriesOf(classes), "entries") {
        std::ranges::stable_sort(classes, {}, StepOf);
    }

    bool Build() {
        while (next < classes.size() && !failed)
            BuildStep();
        return !failed;
    }

private:
    void BuildStep() {
        const int step = StepOf(classes[next]);
        end = next;
        while (end < classes.size() && StepOf(classes[end]) == step)
            end++;
        std::vector<std::thread> threads;
        for (int i = 1; i < settings.threads && next + size_t(i) < end; i++)
            threads.emplace_back([this] { Work(); });
        Work();
        for (std::thread& thread : threads)
            thread.join();
        next = end;
    }

    void Work() {
        for (size_t i = next++; i < end && !failed; i = next++) {
            try {
                BuildClass(classes[i]);
            } catch (const std::bad_alloc&) {
                Fail("Out of memory");
            }
        }
    }

    void BuildClass(int number) {
        const auto start = std::chrono::steady_clock::now();
        SmallerTables smaller(number);
        if (const std::string trouble = smaller.Load(settings.directory); !trouble.empty())
            return Fail(trouble);
        Solver solver(number, smaller);
        solver.Solve();
        for (const Colour side : {WHITE, BLACK}) {
            const std::string name = TableFileName(number, side);
            const std::vector<uint8_t> table = solver.Table(side);
            if (Sha256(table) != PublishedSha256(number, side))
                return Fail(name + " has come out unlike the published table: not written");
            if (const std::string trouble = WriteTableFile(settings.directory / name, table);
                !trouble.empty())
                return Fail(trouble);
        }
        TellBuilt(number, start);
    }

    void TellBuilt(int number, std::chrono::steady_clock::time_point start) {
        const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
        const std::lock_guard lock(printing);
        ClearProgressLine();
        std::printf("[%2d/%2d] %-4s in %.1f s\n", ++built, int(classes.size()),
                    TablebaseClasses[size_t(number)].name, took.count());
        std::fflush(stdout);
        entries += Entries(number);
        progress.Tell(entries, entries);
    }

    void Fail(const std::string& trouble) {
        const std::lock_guard lock(printing);
        ClearProgressLine();
        std::fprintf(stderr, "%s\n", trouble.c_str());
        failed = true;
    }

    const BuildSettings& settings;
    std::vector<int> classes;
    std::atomic<size_t> next = 0;
    size_t end = 0; // of the step
    std::atomic<bool> failed = false;
    std::mutex printing;
    int built = 0;
    uint64_t entries = 0; // built
    Progress progress;
};

} // namespace

int BuildTables(const BuildSettings& settings) {
    std::error_code error;
    fs::create_directories(settings.directory, error);
    if (error) {
        std::fprintf(stderr, "%s: %s\n", settings.directory.string().c_str(),
                     error.message().c_str());
        return 1;
    }
    const std::vector<int> classes = InOrder(settings.classes);
    std::vector<int> missing;
    for (const int number : classes) {
        if (!PrepareIndex(number, WHITE) || !PrepareIndex(number, BLACK))
            throw std::bad_alloc();
        if (!IsComplete(settings.directory, number))
            missing.push_back(number);
    }
    std::printf("%zu classes to build, %zu there already\n", missing.size(),
                classes.size() - missing.size());
    std::fflush(stdout);
    return Builder(settings, missing).Build() ? 0 : 1;
}
