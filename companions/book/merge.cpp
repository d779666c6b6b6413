#include <cstdio>

#include "book_image.h"
#include "book_writer.h"
#include "commands.h"
#include "judgement.h"

namespace {

struct MergeSettings {
    const char* output = nullptr;
    JudgementRules judgement;
};

constinit MergeSettings Settings;

constexpr Option Options[] = {
    {"--output", "FILE", "the book to be written",
     [](const char* text) { return (Settings.output = text) != nullptr; }},
    {"--most", "HALFPOINTS", "scale statistics down to this (254)",
     [](const char* text) { return ReadNumber(text, 1, 254, Settings.judgement.mostPoints); }},
};

} // namespace

// A move that one book has killed stays killed, whatever the others think of it.
static void AddMove(MoveTable& table, BookKeys keys, const ImageMove& move) {
    bool isNew = false;
    MoveCount& entry = table.Entry(keys, move.from, move.to, isNew);
    if (move.statistics == BOOK_KILLED)
        entry.killed = 1;
    else
        entry.AddPoints(move.Won(), move.Lost());
}

static bool AddBook(const char* path, MoveTable& table) {
    BookImage book;
    if (!book.Read(path))
        return false;
    std::vector<ImageMove> moves;
    for (uint32_t i = 0; i < book.Positions(); i++) {
        const IndexRecord record = book.Record(i);
        if (!book.ReadNode(record.nodeOffset, moves)) {
            std::fprintf(stderr, "%s: the moves of record %u are not there\n", path, i);
            return false;
        }
        for (const ImageMove& move : moves) {
            if (move.from == move.to || move.from > 63 || move.to > 63) {
                std::fprintf(stderr, "%s: record %u has what is no move\n", path, i);
                return false;
            }
            AddMove(table, record.keys, move);
        }
    }
    return true;
}

static int Merge(const Files& files) {
    if (Settings.output == nullptr || files.empty())
        return BadUsage(MergeCommand, "Needs --output and at least one book");
    MoveTable table;
    for (const char* const path : files) {
        if (!AddBook(path, table))
            return 1;
    }
    return WriteBook(Settings.output, JudgeMoves(table, {}, Settings.judgement)) ? 0 : 1;
}

const Command MergeCommand = {"merge", "BOOK...", "Adds the points of several books up", Options,
                              Merge};
