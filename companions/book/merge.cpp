#include <cstdio>

#include "book_image.h"
#include "book_writer.h"
#include "commands.h"
#include "judgement.h"

// A move that one book has killed stays killed, whatever the others think of it.
static void AddMove(MoveTable& table, BookKeys keys, const ImageMove& move) {
    bool isNew = false;
    MoveCount& entry = table.Entry(keys, move.from, move.to, isNew);
    if (move.statistics == BOOK_KILLED)
        entry.killed = 1;
    else
        entry.AddPoints(move.Won(), move.Lost());
}

static bool AddBook(const std::string& path, MoveTable& table) {
    BookImage book;
    if (!book.Read(path))
        return false;
    std::vector<ImageMove> moves;
    for (uint32_t i = 0; i < book.Positions(); i++) {
        const IndexRecord record = book.Record(i);
        if (!book.ReadNode(record.nodeOffset, moves)) {
            std::fprintf(stderr, "%s: the moves of record %u are not there\n", path.c_str(), i);
            return false;
        }
        for (const ImageMove& move : moves) {
            if (move.from == move.to || move.from > 63 || move.to > 63) {
                std::fprintf(stderr, "%s: record %u has what is no move\n", path.c_str(), i);
                return false;
            }
            AddMove(table, record.keys, move);
        }
    }
    return true;
}

int MergeBooks(const MergeSettings& settings) {
    MoveTable table;
    for (const std::string& path : settings.books) {
        if (!AddBook(path, table))
            return 1;
    }
    return WriteBook(settings.output, JudgeMoves(table, {}, settings.judgement)) ? 0 : 1;
}
