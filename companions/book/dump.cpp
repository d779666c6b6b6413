#include <cstdio>

#include "board/fen.h"
#include "book_walk.h"
#include "commands.h"
#include "coordinates.h"

namespace {

constinit bool DumpRecords = false;

constexpr Option Options[] = {
    {"--records", nullptr, "show the records of the file instead, in their order",
     [](const char*) { return DumpRecords = true; }},
};

} // namespace

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

static int Dump(const Files& files) {
    BookImage book;
    if (files.size() != 1)
        return BadUsage(DumpCommand, "Needs one book");
    if (!book.Read(files[0]))
        return 1;
    if (DumpRecords)
        PrintRecords(book);
    else
        PrintTree(book);
    return 0;
}

const Command DumpCommand = {"dump", "BOOK", "Shows a book as text, from the starting position on",
                             Options, Dump};
