#include <cstdio>
#include <cstring>
#include <string_view>

#include "book_writer.h"
#include "commands.h"
#include "judgement.h"
#include "sources.h"

namespace {

constexpr int LONGEST_LINE = 400; // plies
constexpr int MANY_GAMES = 1000000000;

struct BuildSettings {
    const char* output = nullptr;
    const char* weights = nullptr;
    bool addSearchedMoves = false;
    SourceRules sources;
    JudgementRules judgement;
};

constinit BuildSettings Settings;

bool TakeSide(const char* text) {
    const std::string_view side = text;
    if (side != "white" && side != "black" && side != "both")
        return false;
    Settings.sources.sides = side == "white"   ? ONLY_WHITE
                             : side == "black" ? ONLY_BLACK
                                               : BOTH_SIDES;
    return true;
}

template <auto Member> bool TakeScore(const char* text) {
    return ReadNumber(text, -HIGHEST_SCORE, HIGHEST_SCORE, Settings.judgement.*Member);
}

template <auto Member> bool TakePoints(const char* text) {
    constexpr int mostInAByte = 254;
    return ReadNumber(text, 1, mostInAByte, Settings.judgement.*Member);
}

template <auto Member> bool TakeGames(const char* text) {
    return ReadNumber(text, 1, MANY_GAMES, Settings.judgement.*Member);
}

constexpr Option Options[] = {
    {"--output", "FILE", "the book to be written",
     [](const char* text) { return (Settings.output = text) != nullptr; }},
    {"--depth", "PLIES", "of every game and line (40)",
     [](const char* text) { return ReadNumber(text, 1, LONGEST_LINE, Settings.sources.depth); }},
    {"--side", "white|black|both", "whose moves are counted (both)", TakeSide},
    {"--player", "NAME", "count only moves of players with this in their name",
     [](const char* text) { return (Settings.sources.player = text) != nullptr; }},
    {"--winner", nullptr, "count only moves of the side that won",
     [](const char*) { return Settings.sources.onlyWinner = true; }},
    {"--min-games", "N", "leave out moves played less often (1)",
     TakeGames<&JudgementRules::minGames>},
    {"--min-position-games", "N", "leave out positions met less often (1)",
     TakeGames<&JudgementRules::minPositionGames>},
    {"--min-score", "PERCENT", "kill moves that have scored less (0)",
     [](const char* text) { return ReadNumber(text, 0, 100, Settings.judgement.minScore); }},
    {"--min-share", "PERCENT", "kill moves played in a smaller share of the games (0)",
     [](const char* text) { return ReadNumber(text, 0, 100, Settings.judgement.minShare); }},
    {"--drop", nullptr, "leave out what would be killed",
     [](const char*) { return Settings.judgement.dropBad = true; }},
    {"--most", "HALFPOINTS", "scale statistics down to this (254)",
     TakePoints<&JudgementRules::mostPoints>},
    {"--weights", "FILE", "searched positions, whose scores judge moves",
     [](const char* text) { return (Settings.weights = text) != nullptr; }},
    {"--prior", "HALFPOINTS", "what a score counts like (40)",
     TakePoints<&JudgementRules::priorPoints>},
    {"--ten-to-one", "CP", "the score of who gets ten points to one (400)",
     [](const char* text) { return ReadNumber(text, 1, 10000, Settings.judgement.tenToOne); }},
    {"--named-loss", "CP", "kill moves that leave so much less than the best (60)",
     TakeScore<&JudgementRules::namedLoss>},
    {"--most-loss", "CP", "kill rare moves that leave so much less than the best (45)",
     TakeScore<&JudgementRules::mostLoss>},
    {"--named-games", "N", "moves with fewer games or lines are rare (8)",
     TakeGames<&JudgementRules::namedGames>},
    {"--rare-discount", "CP", "off a move each time it is half as frequent as usual (10)",
     TakeScore<&JudgementRules::rareDiscount>},
    {"--worst-score", "CP", "kill rare moves that leave less than this (-70)",
     TakeScore<&JudgementRules::worstScore>},
    {"--bad-score", "CP", "kill rare moves that leave less than this (-40) ...",
     TakeScore<&JudgementRules::badScore>},
    {"--worst-loss", "CP", "... and so much less than the best (25)",
     TakeScore<&JudgementRules::worstLoss>},
    {"--keep-unknown", nullptr, "do not kill moves to positions without a score",
     [](const char*) { return Settings.judgement.keepUnknown = true; }},
    {"--searched-moves", nullptr, "add best moves of, and moves between, searched positions",
     [](const char*) { return Settings.addSearchedMoves = true; }},
};

} // namespace

static bool HasGames(const char* path) {
    const std::string_view name = path;
    return name.ends_with(".pgn") || name.ends_with(".PGN");
}

static int Build(const Files& files) {
    if (Settings.output == nullptr || (files.empty() && !Settings.addSearchedMoves))
        return BadUsage(BuildCommand, "Needs --output and at least one source");
    MoveCounter counter;
    if (Settings.weights != nullptr && !counter.searched.Read(Settings.weights))
        return 1;
    counter.searched.BackUpScores();
    for (const char* const path : files) {
        const auto count = HasGames(path) ? CountGames : CountLines;
        if (!count(path, Settings.sources, counter))
            return 1;
    }
    if (Settings.addSearchedMoves)
        counter.AddSearchedMoves();
    const std::vector<BookEntry> entries =
        JudgeMoves(counter.table, counter.searched, Settings.judgement);
    return WriteBook(Settings.output, entries) ? 0 : 1;
}

const Command BuildCommand = {"build", "SOURCE...",
                              "Makes a book from games (*.pgn) and lists of lines", Options, Build};
