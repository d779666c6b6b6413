#include <cstdio>

#include "board/fen.h"
#include "book_walk.h"
#include "commands.h"
#include "sources/coordinates.h"

static void PrintMove(const ImageMove& move) {
    std::printf("    %s ", SquaresText(move.from, move.to).c_str());
    if (move.statistics == BOOK_KILLED)
        std::puts("killed");
    else if (move.statistics == BOOK_NO_GAMES)
        std::puts("no games");
    else
        std::printf("%u:%u (%u%%)\n", move.Won(), move.Lost(),
                    move.Won() * 100 / (move.Won() + move.Lost()));
}

static void PrintTree(const BookImage& book) {
    BookWalk walk(book);
    while (walk.Next()) {
        std::printf("%s\n  %s\n", walk.Path().c_str(), WriteFen().c_str());
        for (const ImageMove& move : walk.Moves())
            PrintMove(move);
    }
}

static void PrintRecords(const BookImage& book) {
    std::vector<ImageMove> moves;
    for (uint32_t i = 0; i < book.Positions(); i++) {
        const IndexRecord record = book.Record(i);
        const bool whole = book.ReadNode(record.nodeOffset, moves);
        std::printf("%u keys %d %d offset %u%s\n", i, record.keys.a, record.keys.b,
                    record.nodeOffset, whole ? "" : ": not in the file");
        for (const ImageMove& move : moves)
            PrintMove(move);
    }
}

int DumpBook(const DumpSettings& settings) {
    BookImage book;
    if (!book.Read(settings.book))
        return 1;
    if (settings.records)
        PrintRecords(book);
    else
        PrintTree(book);
    return 0;
}
