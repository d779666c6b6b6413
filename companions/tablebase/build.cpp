#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <new>
#include <thread>
#include <vector>

#include "commands.h"
#include "published.h"
#include "sha256.h"
#include "smaller_tables.h"
#include "solver.h"
#include "table_file.h"

namespace fs = std::filesystem;

namespace {

constexpr int MAX_THREADS = 8; // each takes some 100 MB

struct Order {
    int threads = std::clamp(int(std::thread::hardware_concurrency()), 1, MAX_THREADS);
    fs::path directory;
    std::vector<int> classes;
};

// Adds the class after all that its moves lead to, unless it is there.
void AddWithSmaller(std::vector<int>& classes, int number) {
    if (std::ranges::find(classes, number) != classes.end())
        return;
    for (const int smaller : SmallerClasses(number))
        AddWithSmaller(classes, smaller);
    classes.push_back(number);
}

// False for words that make no sense, after telling which.
bool ReadOrder(CommandWords words, Order& order) {
    std::vector<std::string> names;
    for (size_t i = 0; i < words.size(); i++) {
        if (words[i] == "--threads" && i + 1 < words.size())
            order.threads = std::clamp(std::atoi(words[++i].c_str()), 1, MAX_THREADS);
        else if (order.directory.empty() && !words[i].starts_with("--"))
            order.directory = words[i];
        else
            names.push_back(words[i]);
    }
    for (const std::string& name : names) {
        const int number = FindTablebaseClass(std::string_view(name));
        if (!IsPublished(number)) {
            std::fprintf(stderr, "%s is no class of three or four men\n", name.c_str());
            return false;
        }
        AddWithSmaller(order.classes, number);
    }
    for (int number = 1; names.empty() && number <= LAST_FOUR_MEN_CLASS; number++)
        AddWithSmaller(order.classes, number);
    return !order.directory.empty();
}

bool IsComplete(const fs::path& directory, int number) {
    for (const Colour side : {WHITE, BLACK}) {
        const fs::path path = directory / TableFileName(number, side);
        std::error_code error;
        std::vector<uint8_t> bytes;
        if (fs::file_size(path, error) != PublishedBytes(number, side) || error ||
            !ReadTableFile(path, bytes) || Sha256(bytes) != PublishedSha256(number, side))
            return false;
    }
    return true;
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
    Builder(const Order& buildOrder, std::vector<int> missing)
        : order(buildOrder), classes(std::move(missing)) {
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
        for (int i = 1; i < order.threads && next + size_t(i) < end; i++)
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
        if (const std::string trouble = smaller.Load(order.directory); !trouble.empty())
            return Fail(trouble);
        Solver solver(number, smaller);
        solver.Solve();
        for (const Colour side : {WHITE, BLACK}) {
            const std::string name = TableFileName(number, side);
            const std::vector<uint8_t> table = solver.Table(side);
            if (Sha256(table) != PublishedSha256(number, side))
                return Fail(name + " has come out unlike the published table: not written");
            const std::string trouble = WriteTableFile(order.directory / name, table);
            if (!trouble.empty())
                return Fail(trouble);
        }
        const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
        const std::lock_guard lock(printing);
        std::printf("[%2d/%2d] %-4s in %.1f s\n", ++built, int(classes.size()),
                    TablebaseClasses[size_t(number)].name, took.count());
        std::fflush(stdout);
    }

    void Fail(const std::string& trouble) {
        const std::lock_guard lock(printing);
        std::fprintf(stderr, "%s\n", trouble.c_str());
        failed = true;
    }

    const Order& order;
    std::vector<int> classes;
    std::atomic<size_t> next = 0;
    size_t end = 0; // of the step
    std::atomic<bool> failed = false;
    std::mutex printing;
    int built = 0;
};

} // namespace

int BuildTables(CommandWords words) {
    Order order;
    if (!ReadOrder(words, order))
        return WRONG_USAGE;
    std::error_code error;
    fs::create_directories(order.directory, error);
    if (error) {
        std::fprintf(stderr, "%s: %s\n", order.directory.string().c_str(), error.message().c_str());
        return 1;
    }
    std::vector<int> missing;
    for (const int number : order.classes) {
        if (!PrepareIndex(number, WHITE) || !PrepareIndex(number, BLACK))
            throw std::bad_alloc();
        if (!IsComplete(order.directory, number))
            missing.push_back(number);
    }
    std::printf("%d classes to build, %d there already\n", int(missing.size()),
                int(order.classes.size() - missing.size()));
    std::fflush(stdout);
    return Builder(order, missing).Build() ? 0 : 1;
}
