#include "front/settings/settings.h"

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <string>
#include <vector>

#include "book/book.h"
#include "book/book_settings.h"
#include "eval/personality.h"
#include "front/game/game.h"
#include "front/game/interface.h"
#include "front/game/play_settings.h"
#include "front/game/resign.h"
#include "front/input/keyword.h"
#include "platform/files.h"
#include "search/hash_memory.h"
#include "search/limits.h"
#include "tablebase/tablebases.h"

namespace {

constexpr char FileName[] = "Tarquelin.ini";
// A line is read in pieces of at most this many characters, less one.
constexpr int LINE_SIZE = 250;
constexpr char Separators[] = " =\r\n,\"";
constexpr int32_t MEGABYTE = 1048576;
// What both hash tables fall back to after a bad value. The pawn table starts with half of it
// otherwise: an asymmetry that is kept, since settings files rely on either.
constexpr int32_t FALLBACK_ENTRIES = 524288;

// One line of the file that is being applied.
struct Line {
    int number;
    std::string value; // second token
    std::string rest;  // of the line, from the second token on
};

using Apply = void (*)(const Line&);

} // namespace

static int32_t Number(const Line& line) {
    return ReadNumber(line.value);
}

static void WarnSize(const Line& line, const char* table) {
    std::printf("Tarquelin.ini(%d) WARNING: Incorrect %s size setting in Tarquelin.ini; set to "
                "default\n",
                line.number, table);
    std::fflush(stdout);
}

static void WarnRange(const Line& line, const char* setting, int32_t bound) {
    std::printf("Tarquelin.ini(%d) WARNING: Incorrect %s setting; set to %d\n", line.number,
                setting, bound);
    std::fflush(stdout);
}

static void WarnToken(const Line& line) {
    std::printf("Tarquelin.ini(%d) WARNING: Token unknown \"%s\"\n", line.number,
                line.value.c_str());
    std::fflush(stdout);
}

// The number of the line, cut to [0, largest] with a warning.
static int32_t BoundedNumber(const Line& line, const char* setting, int32_t largest) {
    const int32_t value = Number(line);
    if (value >= 0 && value <= largest)
        return value;
    const int32_t bound = value < 0 ? 0 : largest;
    WarnRange(line, setting, bound);
    return bound;
}

// The size that `value` stands for when it lies in [least, most], else the fallback with a warning.
static int32_t SizeOr(const Line& line, int32_t least, int32_t most, int64_t size,
                      const char* table, int32_t fallback) {
    const int32_t value = Number(line);
    if (value >= least && value <= most)
        return int32_t(size);
    WarnSize(line, table);
    return fallback;
}

static int64_t Megabytes(const Line& line) {
    return int64_t{Number(line)} * MEGABYTE;
}

static int64_t PowerOfTwo(const Line& line) {
    const int32_t exponent = Number(line);
    return exponent >= 0 && exponent < 31 ? int64_t{1} << exponent : 0;
}

static void SetFlag(const Line& line, bool& flag) {
    if (KeywordMatches("on", line.value) || KeywordMatches("true", line.value))
        flag = true;
    else if (KeywordMatches("off", line.value) || KeywordMatches("false", line.value))
        flag = false;
    else
        WarnToken(line);
}

static void SetPondering(const Line& line) {
    SetFlag(line, PlayOptions.Pondering);
    // Switching it on again does not make pondering possible: a GUI must ask for that.
    if (!PlayOptions.Pondering)
        Interface.PonderNow = false;
}

static void SetBookMode(const Line& line) {
    if (KeywordMatches("discover", line.value))
        Book.BookLearningMode = BOOK_DISCOVER;
    else if (KeywordMatches("kill", line.value))
        Book.BookLearningMode = BOOK_KILL;
    else
        WarnToken(line);
}

static void SetHashMegabytes(const Line& line) {
    TranspositionCount = SizeOr(line, 0, 1024, Megabytes(line) / TRANSPOSITION_ENTRY_BYTES, "hash",
                                FALLBACK_ENTRIES);
}

static void SetHashExponent(const Line& line) {
    TranspositionCount = SizeOr(line, 0, 25, PowerOfTwo(line), "hash", FALLBACK_ENTRIES);
}

static void SetPawnMegabytes(const Line& line) {
    PawnHashCount =
        SizeOr(line, 0, 1024, Megabytes(line) / PAWN_ENTRY_BYTES, "pawn hash", FALLBACK_ENTRIES);
}

static void SetPawnExponent(const Line& line) {
    PawnHashCount = SizeOr(line, 12, 23, PowerOfTwo(line), "pawn hash", FALLBACK_ENTRIES);
}

static void SetCacheMegabytes(const Line& line) {
    Tablebases.EgtbCacheBytes =
        SizeOr(line, 1, 128, Megabytes(line), "EGTB cache", DEFAULT_EGTB_CACHE);
}

static void SetCacheExponent(const Line& line) {
    Tablebases.EgtbCacheBytes =
        SizeOr(line, 20, 27, PowerOfTwo(line), "EGTB cache", DEFAULT_EGTB_CACHE);
}

namespace {

struct SettingsKey {
    const char* key;
    Apply apply;
};

// Tried from top to bottom and the first match wins: the keys in megabytes begin with the names of
// the plain keys, so they must come before them.
constexpr SettingsKey Keys[] = {
    {"TranspositionSizeMb", SetHashMegabytes},
    {"TranspositionSize", SetHashExponent},
    {"ResignValue", [](const Line& line) { PlayOptions.ResignValue = Number(line); }},
    {"ResignTimes", [](const Line& line) { PlayOptions.ResignTimes = Number(line); }},
    {"PawnHashSizeMb", SetPawnMegabytes},
    {"PawnHashSize", SetPawnExponent},
    {"EGTBHashSizeMb", SetCacheMegabytes},
    {"EGTBCacheSizeMb", SetCacheMegabytes},
    {"EGTBHashSize", SetCacheExponent},
    {"EGTBCacheSize", SetCacheExponent},
    {"Aggressivity",
     [](const Line& line) { SetAggressivity(BoundedNumber(line, "AGGRESSIVITY", 300)); }},
    {"Tropism", [](const Line& line) { SetTropism(BoundedNumber(line, "TROPISM", 300)); }},
    {"Cowardice", [](const Line& line) { SetCowardice(BoundedNumber(line, "COWARDICE", 300)); }},
    {"VarietyOfPlay",
     [](const Line& line) {
         Book.VarietyOfPlay = BoundedNumber(line, "VarietyOfPlay", 100);
     }},
    {"BookLearningBound", [](const Line& line) { Book.BookLearningBound = Number(line); }},
    {"Learning", [](const Line& line) { SetFlag(line, Book.PositionLearning); }},
    {"UseBookLearning", [](const Line& line) { SetFlag(line, Book.UseBookLearning); }},
    {"Pondering", SetPondering},
    {"UseEGTB", [](const Line& line) { SetFlag(line, Tablebases.UseEgtb); }},
    {"EGTBPath", [](const Line& line) { SetEgtbPath(line.rest.c_str()); }},
    {"OpeningsBook", [](const Line& line) { OpenBook(line.rest.c_str()); }},
    {"BookLearningMode", SetBookMode},
    {"UseLearningData", [](const Line& line) { SetFlag(line, Book.UseLearningData); }},
    {"UseBookWeights", [](const Line& line) { SetFlag(line, Book.UseBookWeights); }},
    {"LogLearningIntoFile",
     [](const Line& line) { SetFlag(line, Book.LogLearningIntoFile); }},
    {"MoveOverhead",
     [](const Line& line) {
         SearchOptions.MoveOverhead = BoundedNumber(line, "MoveOverhead", MAX_MOVE_OVERHEAD);
     }},
};

} // namespace

void SetDefaultSettings() {
    TranspositionCount = DEFAULT_TRANSPOSITION_ENTRIES;
    PawnHashCount = DEFAULT_PAWN_ENTRIES;
    SetAggressivity(100);
    SetCowardice(100);
    SetTropism(100);
    PlayOptions = {};
    Book = {};
    Tablebases = {};
    Interface.PonderNow = PlayOptions.Pondering;
    SearchOptions.MoveOverhead = 0;
}

static void ApplyLine(const char* text, int number) {
    if (text[0] == '\0' || text[0] == ';')
        return;
    // A control character, or any byte beyond ASCII, ends the line.
    std::string line;
    for (; static_cast<signed char>(*text) >= 32; text++)
        line += *text;
    const std::vector<Token> tokens = Tokenize(line, Separators);
    if (tokens.size() < 2)
        return;
    const Line applied = {number, tokens[1].text, line.substr(tokens[1].offset)};
    for (const SettingsKey& key : Keys) {
        if (BeginsWithKeyword(key.key, line)) {
            key.apply(applied);
            return;
        }
    }
}

void ReadSettingsFile() {
    FILE* const file = OpenFile(FileName, "r");
    if (file == nullptr)
        return;
    // The end shows only once a read has met it, so the last line of a file that ends with a
    // newline stays in the buffer and is applied, and warned about, twice. Meant so.
    char line[LINE_SIZE] = "";
    int number = 0;
    while (!std::feof(file) && !std::ferror(file)) {
        number++;
        if (std::fgets(line, sizeof line, file) == nullptr && number == 1)
            break;
        ApplyLine(line, number);
    }
    std::fclose(file);
}

static const char* OnOff(bool flag) {
    return flag ? "on" : "off";
}

void PrintSettings() {
    std::printf("Transposition size is %d entries (%ld bytes)\n", TranspositionCount,
                long(TranspositionCount) * TRANSPOSITION_ENTRY_BYTES);
    std::printf("Pawn hash size is %d entries (%ld bytes)\n", PawnHashCount,
                long(PawnHashCount) * PAWN_ENTRY_BYTES);
    std::printf("EGTBHashSize = %d bytes\n", Tablebases.EgtbCacheBytes);
    std::printf("Aggressivity = %d (%d)%%\nCowardice = %d (%d)%%\nTropism = %d (%d)%%\n",
                Aggressivity, AggressivityWeight, Cowardice, CowardiceWeight, Tropism,
                TropismWeight);
    std::printf("ResignValue = %d\nResignTimes = %d\n", PlayOptions.ResignValue,
                PlayOptions.ResignTimes);
    std::printf("UseEGTB = %s\n", OnOff(Tablebases.UseEgtb));
    std::printf("EGTB path = \"%s\"\n", Tablebases.EgtbPath);
    std::printf("UseBookWeights = %s\n", OnOff(Book.UseBookWeights));
    std::printf("UseBookLearning = %s\n", OnOff(Book.UseBookLearning));
    std::printf("BookLearningMode = %s\n",
                Book.BookLearningMode == BOOK_DISCOVER ? "DISCOVER" : "KILL");
    std::printf("VarietyOfPlay = %d\nBookLearningBound = %d\n", Book.VarietyOfPlay,
                Book.BookLearningBound);
    std::printf("UseLearning = %s\n", OnOff(Book.PositionLearning));
    std::printf("UseLearningData = %s\n", OnOff(Book.UseLearningData));
    std::printf("LogLearningIntoFile = %s\n", OnOff(Book.LogLearningIntoFile));
    // The blank line after the summary is meant.
    std::printf("Pondering = %s\n\n", OnOff(PlayOptions.Pondering));
    std::fflush(stdout);
}
