#include "front/settings/options.h"

#include <cstdio>

#include "book/book.h"
#include "book/book_settings.h"
#include "eval/eval_cache.h"
#include "eval/parameters/personality.h"
#include "front/game/dialect.h"
#include "front/game/interface.h"
#include "front/game/manners.h"
#include "front/game/play_settings.h"
#include "platform/version.h"
#include "search/hash_memory.h"
#include "search/limits.h"
#include "search/strength.h"
#include "search/transposition.h"
#include "tablebase/tablebases.h"

namespace {

using Value = OptionValue;
using enum OptionKind;

constexpr OptionWord OnOff[] = {{"on", 1}, {"true", 1}, {"off", 0}, {"false", 0}};
constexpr OptionWord TrueFalse[] = {{"false", 0}, {"true", 1}};
constexpr OptionWord BookModes[] = {{"discover", BOOK_DISCOVER}, {"kill", BOOK_KILL}};

// What both hash tables fall back to after a bad value. The pawn table starts with half of it
// otherwise: an asymmetry that is kept, since settings files rely on either.
constexpr int32_t FALLBACK_ENTRIES = 524288;

constexpr BookSettings BOOK_DEFAULTS;
constexpr PlaySettings PLAY_DEFAULTS;

} // namespace

static void SetHashEntries(const Value& value) {
    TranspositionCount = value.number;
}

static void SetPawnEntries(const Value& value) {
    PawnHashCount = value.number;
}

static void SetCacheBytes(const Value& value) {
    Tablebases.EgtbCacheBytes = value.number;
}

static void NameTables(const Value& value) {
    SetEgtbPath(value.text.c_str());
    if (Manner->namedTablesAreUsed)
        Tablebases.UseEgtb = true;
}

static void ResizeCache(const Value& value) {
    if (Tablebases.UseEgtb)
        ResizeEgtbCache(value.number);
}

static void ChangeEgtbPath(const Value& value) {
    if (!Tablebases.UseEgtb && !Manner->namedTablesAreUsed)
        return;
    NameTables(value);
    OpenTablebases();
    AllocateTablebaseCache();
}

// Scores of the old personality must not come back.
static void ChangeAggressivity(const Value& value) {
    SetAggressivity(value.number);
    ClearEvalCache();
}

static void ChangeCowardice(const Value& value) {
    SetCowardice(value.number);
    ClearEvalCache();
}

// Switching it on again does not make pondering possible: a GUI must ask for that.
static void SetPondering(const Value& value) {
    PlayOptions.Pondering = value.number != 0;
    if (!PlayOptions.Pondering)
        Interface.PonderNow = false;
}

static void OpenOpeningsBook(const Value& value) {
    OpenBook(value.text.c_str(), Manner->silentStart);
    if (Manner->silentStart && !BookIsOpen())
        Speaking->printNote(("No opening book " + value.text).c_str());
}

// No level is full strength.
static void SetStrength(const Value& value) {
    if (!Manner->hasLevels || value.number <= 0)
        PlayAtFullStrength();
    else
        PlayAtLevel(value.number);
}

static void SetLimited(const Value& value) {
    if (value.number != 0)
        PlayAtLevel(Strength.Elo);
    else
        PlayAtFullStrength();
}

static void SetElo(const Value& value) {
    const bool limited = Strength.Limited;
    PlayAtLevel(value.number);
    if (!limited)
        PlayAtFullStrength();
}

static void PrintHashSize() {
    std::printf("Transposition size is %d entries (%ld bytes)\n", TranspositionCount,
                long(TranspositionCount) * TRANSPOSITION_ENTRY_BYTES);
}

static void PrintPawnHashSize() {
    std::printf("Pawn hash size is %d entries (%ld bytes)\n", PawnHashCount,
                long(PawnHashCount) * PAWN_ENTRY_BYTES);
}

static void PrintPersonality(const char* name, int32_t percent, int32_t weight) {
    std::printf("%s = %d (%d)%%\n", name, percent, weight);
}

namespace {

constexpr Option Table[] = {
    {.key = "TranspositionSizeMb",
     .uciName = "Hash",
     .announced = 1,
     .offered = "10",
     .kind = MEGABYTES,
     .warned = "hash",
     .least = 0,
     .most = 1024,
     .unit = TRANSPOSITION_ENTRY_BYTES,
     .fallback = FALLBACK_ENTRIES,
     .set = SetHashEntries,
     .setRunning = [](const Value& value) { ResizeHash(value.number); }},
    {.key = "TranspositionSize",
     .kind = EXPONENT,
     .initial = 19,
     .warned = "hash",
     .least = 0,
     .most = 25,
     .fallback = FALLBACK_ENTRIES,
     .set = SetHashEntries,
     .print = PrintHashSize},
    {.key = "PawnHashSizeMb",
     .uciName = "PawnHash",
     .announced = 2,
     .offered = "7",
     .kind = MEGABYTES,
     .warned = "pawn hash",
     .least = 0,
     .most = 1024,
     .unit = PAWN_ENTRY_BYTES,
     .fallback = FALLBACK_ENTRIES,
     .set = SetPawnEntries,
     .setRunning = [](const Value& value) { ResizePawnHash(value.number); }},
    {.key = "PawnHashSize",
     .kind = EXPONENT,
     .initial = 18,
     .warned = "pawn hash",
     .least = 12,
     .most = 23,
     .fallback = FALLBACK_ENTRIES,
     .set = SetPawnEntries,
     .print = PrintPawnHashSize},
    {.key = "EGTBHashSizeMb",
     .otherKey = "EGTBCacheSizeMb",
     .uciName = "NalimovCache",
     .announced = 6,
     .offered = "1",
     .kind = MEGABYTES,
     .warned = "EGTB cache",
     .least = 1,
     .most = 128,
     .fallback = DEFAULT_EGTB_CACHE,
     .set = SetCacheBytes,
     .setRunning = ResizeCache},
    {.key = "EGTBHashSize",
     .otherKey = "EGTBCacheSize",
     .kind = EXPONENT,
     .initial = 20,
     .warned = "EGTB cache",
     .least = 20,
     .most = 27,
     .fallback = DEFAULT_EGTB_CACHE,
     .set = SetCacheBytes,
     .print = [] { std::printf("EGTBHashSize = %d bytes\n", Tablebases.EgtbCacheBytes); }},
    {.key = "Aggressivity",
     .uciName = "Aggressivity",
     .announced = 8,
     .initial = 100,
     .warned = "AGGRESSIVITY",
     .least = 0,
     .most = 300,
     .get = [] { return Personality.Aggressivity; },
     .set = [](const Value& value) { SetAggressivity(value.number); },
     .setRunning = ChangeAggressivity,
     .print =
         [] {
             PrintPersonality("Aggressivity", Personality.Aggressivity,
                              Personality.AggressivityWeight);
         }},
    {.key = "Cowardice",
     .uciName = "Defensivity",
     .announced = 9,
     .initial = 100,
     .warned = "COWARDICE",
     .least = 0,
     .most = 300,
     .get = [] { return Personality.Cowardice; },
     .set = [](const Value& value) { SetCowardice(value.number); },
     .setRunning = ChangeCowardice,
     .print =
         [] { PrintPersonality("Cowardice", Personality.Cowardice, Personality.CowardiceWeight); }},
    {.key = "Tropism",
     .uciName = "Tropism",
     .announced = 10,
     .initial = 100,
     .warned = "TROPISM",
     .least = 0,
     .most = 300,
     .get = [] { return Personality.Tropism; },
     .set = [](const Value& value) { SetTropism(value.number); },
     .print = [] { PrintPersonality("Tropism", Personality.Tropism, Personality.TropismWeight); }},
    {.key = "ResignValue",
     .initial = PLAY_DEFAULTS.ResignValue,
     .get = [] { return PlayOptions.ResignValue; },
     .set = [](const Value& value) { PlayOptions.ResignValue = value.number; },
     .label = "ResignValue"},
    {.key = "ResignTimes",
     .initial = PLAY_DEFAULTS.ResignTimes,
     .get = [] { return PlayOptions.ResignTimes; },
     .set = [](const Value& value) { PlayOptions.ResignTimes = value.number; },
     .label = "ResignTimes"},
    {.key = "UseEGTB",
     .kind = WORD,
     .words = OnOff,
     .initial = 1,
     .get = [] { return int32_t(Tablebases.UseEgtb); },
     .set = [](const Value& value) { Tablebases.UseEgtb = value.number != 0; },
     .label = "UseEGTB"},
    {.key = "EGTBPath",
     .uciName = "NalimovPath",
     .announced = 3,
     .offered = "c:\\tablebases\\",
     .kind = PATH,
     .set = NameTables,
     .setRunning = ChangeEgtbPath,
     .print = [] { std::printf("EGTB path = \"%s\"\n", Tablebases.EgtbPath); }},
    {.key = "UseBookWeights",
     .kind = WORD,
     .words = OnOff,
     .initial = BOOK_DEFAULTS.UseBookWeights,
     .get = [] { return int32_t(Book.UseBookWeights); },
     .set = [](const Value& value) { Book.UseBookWeights = value.number != 0; },
     .label = "UseBookWeights"},
    {.key = "UseBookLearning",
     .kind = WORD,
     .words = OnOff,
     .initial = BOOK_DEFAULTS.UseBookLearning,
     .get = [] { return int32_t(Book.UseBookLearning); },
     .set = [](const Value& value) { Book.UseBookLearning = value.number != 0; },
     .label = "UseBookLearning"},
    {.key = "BookLearningMode",
     .kind = WORD,
     .words = BookModes,
     .initial = BOOK_DEFAULTS.BookLearningMode,
     .set = [](const Value& value) { Book.BookLearningMode = value.number; },
     .print =
         [] {
             const bool discovers = Book.BookLearningMode == BOOK_DISCOVER;
             std::printf("BookLearningMode = %s\n", discovers ? "DISCOVER" : "KILL");
         }},
    {.key = "VarietyOfPlay",
     .initial = BOOK_DEFAULTS.VarietyOfPlay,
     .warned = "VarietyOfPlay",
     .least = 0,
     .most = 100,
     .get = [] { return Book.VarietyOfPlay; },
     .set = [](const Value& value) { Book.VarietyOfPlay = value.number; },
     .label = "VarietyOfPlay"},
    {.key = "BookLearningBound",
     .initial = BOOK_DEFAULTS.BookLearningBound,
     .get = [] { return Book.BookLearningBound; },
     .set = [](const Value& value) { Book.BookLearningBound = value.number; },
     .label = "BookLearningBound"},
    {.key = "Learning",
     .kind = WORD,
     .words = OnOff,
     .initial = BOOK_DEFAULTS.PositionLearning,
     .get = [] { return int32_t(Book.PositionLearning); },
     .set = [](const Value& value) { Book.PositionLearning = value.number != 0; },
     .label = "UseLearning"},
    {.key = "UseLearningData",
     .kind = WORD,
     .words = OnOff,
     .initial = BOOK_DEFAULTS.UseLearningData,
     .get = [] { return int32_t(Book.UseLearningData); },
     .set = [](const Value& value) { Book.UseLearningData = value.number != 0; },
     .label = "UseLearningData"},
    {.key = "LogLearningIntoFile",
     .kind = WORD,
     .words = OnOff,
     .initial = BOOK_DEFAULTS.LogLearningIntoFile,
     .get = [] { return int32_t(Book.LogLearningIntoFile); },
     .set = [](const Value& value) { Book.LogLearningIntoFile = value.number != 0; },
     .label = "LogLearningIntoFile"},
    {.key = "Pondering",
     .kind = WORD,
     .words = OnOff,
     .initial = PLAY_DEFAULTS.Pondering,
     .get = [] { return int32_t(PlayOptions.Pondering); },
     .set = SetPondering,
     .label = "Pondering"},
    {.key = "MoveOverhead",
     .uciName = "Move Overhead",
     .modern = true,
     .announced = 13,
     .warned = "MoveOverhead",
     .least = 0,
     .most = MAX_MOVE_OVERHEAD,
     .get = [] { return SearchOptions.MoveOverhead; },
     .set = [](const Value& value) { SearchOptions.MoveOverhead = value.number; }},
    {.uciName = "OwnBook",
     .announced = 5,
     .offered = "true",
     .kind = WORD,
     .words = TrueFalse,
     .initial = BOOK_DEFAULTS.OwnBook,
     .set = [](const Value& value) { Book.OwnBook = value.number != 0; }},
    {.key = "OpeningsBook",
     .uciName = "OpeningsBook",
     .announced = 4,
     .offered = ".\\book.tqn",
     .kind = PATH,
     .set = OpenOpeningsBook},
    {.uciName = "MultiPV",
     .announced = 7,
     .offered = "1",
     .initial = 1,
     .least = 1,
     .most = 1024,
     .set = [](const Value& value) { SearchOptions.MultiPV = value.number; }},
    // Whether the engine ponders is up to the interface: it says "go ponder".
    {.uciName = "Ponder",
     .modern = true,
     .announced = 12,
     .offered = "false",
     .kind = WORD,
     .words = TrueFalse,
     .set = [](const Value&) {}},
    {.uciName = "UCI_EngineAbout",
     .modern = true,
     .announced = 14,
     .offered = ABOUT,
     .kind = TEXT,
     .set = [](const Value&) {}},
    {.uciName = "UCI_LimitStrength",
     .modern = true,
     .announced = 15,
     .kind = WORD,
     .words = TrueFalse,
     .get = [] { return int32_t(Strength.Limited); },
     .set = SetLimited},
    {.uciName = "UCI_Elo",
     .modern = true,
     .announced = 16,
     .initial = MOST_ELO,
     .least = LEAST_ELO,
     .most = MOST_ELO,
     .get = [] { return Strength.Elo; },
     .set = SetElo},
    // Interfaces that analyse by "go movetime" would be shown the book instead.
    {.uciName = "UCI_AnalyseMode",
     .modern = true,
     .announced = 17,
     .offered = "false",
     .kind = WORD,
     .words = TrueFalse,
     .set = [](const Value& value) { SearchOptions.AnalyseMode = value.number != 0; }},
    {.key = "Strength",
     .set = SetStrength,
     .print =
         [] {
             if (Strength.Limited)
                 std::printf("Strength = %d\n", Strength.Elo);
         }},
    // Chosen before any other setting is read.
    {.key = "Interface", .kind = WORD, .words = InterfaceWords, .set = [](const Value&) {}},
    {.uciName = "Clear", .announced = 11, .kind = BUTTON, .set = [](const Value&) { ClearHash(); }},
};

} // namespace

std::span<const Option> Options() {
    return Table;
}

void NameTablebases(const std::string& path) {
    ChangeEgtbPath({0, path});
}

void SetDefaultSettings() {
    Tablebases = {};
    for (const Option& option : Table) {
        if (option.kind == NUMBER || option.kind == WORD)
            option.set({option.initial, ""});
        else if (option.kind == EXPONENT)
            option.set({1 << option.initial, ""});
    }
}
