#include <cstdio>
#include <string_view>

#include "book_writer.h"
#include "commands.h"
#include "judgement.h"
#include "sources/sources.h"

static bool HasGames(std::string_view name) {
    return name.ends_with(".pgn") || name.ends_with(".PGN");
}

bool ReadWeights(const std::string& path, SearchedPositions& searched) {
    if (path.empty())
        return true;
    if (!searched.Read(path.c_str()))
        return false;
    if (searched.All().empty()) {
        std::fprintf(stderr, "%s: has no searched positions\n", path.c_str());
        return false;
    }
    searched.BackUpScores();
    return true;
}

int BuildBook(const BuildSettings& settings) {
    MoveCounter counter;
    if (!ReadWeights(settings.weights, counter.searched))
        return 1;
    for (const std::string& path : settings.sources) {
        const auto count = HasGames(path) ? CountGames : CountLines;
        if (!count(path, settings.rules, counter))
            return 1;
    }
    if (settings.addSearchedMoves)
        counter.AddSearchedMoves();
    const std::vector<BookEntry> entries =
        JudgeMoves(counter.table, counter.searched, settings.judgement);
    return WriteBook(settings.output, entries) ? 0 : 1;
}
