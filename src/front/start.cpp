#include "front/start.h"

#include <cstdio>
#include <new>

#include "board/attacks.h"
#include "board/keys.h"
#include "board/moves/order_tables.h"
#include "book/book.h"
#include "book/book_settings.h"
#include "book/learning_file.h"
#include "eval/derived_tables.h"
#include "eval/endings/king_pawn_bitbase.h"
#include "eval/parameters/values_file.h"
#include "front/console/person.h"
#include "front/dialects/console.h"
#include "front/game/game.h"
#include "front/game/interface.h"
#include "front/game/manners.h"
#include "front/interpreter.h"
#include "front/search_host.h"
#include "front/settings/options.h"
#include "front/settings/settings_file.h"
#include "front/settings/summary.h"
#include "platform/clock.h"
#include "platform/runtime_rand.h"
#include "platform/signals.h"
#include "platform/standard_streams.h"
#include "platform/version.h"
#include "search/hash_memory.h"
#include "tablebase/tablebases.h"

static void InitTablebases() {
    if (!Tablebases.UseEgtb)
        return;
    OpenTablebases();
    if (!Manner->silentStart || LargestTablebase() != 0)
        PrintTablebaseCount();
    if (LargestTablebase() != 0)
        AllocateTablebaseCache();
}

static void PrintBanner() {
    std::printf("Tarquelin v%s [r2040/09.11.2013]\n", VERSION);
    std::fflush(stdout);
}

// The order in which the engine starts.
[[noreturn]] static void StartAndPlay(const StartOptions& options) {
    StartClock();
    InitSignals();
    InstallSearchHost();
    Speaking = &ConsoleDialect;
    ReadInterface();
    if (Manner->knowsPersons && OutputIsTerminal())
        Speaking = &PersonDialect;
    PrintBanner();
    InitAttackTables();
    InitKingPawnBitbase();
    InitKeys(); // before the random sequence is seeded, so that every run has the same keys
    LoadParameters(VALUES_FILE, Manner->silentStart);
    InitDerivedTables();
    ClearHistory();
    ClearCaptureStats();
    SetDefaultSettings();
    Book.UseBookLearning = options.bookLearning;
    ReadSettingsFile();
    AllocateHashTables();
    SeedRand(uint32_t(CalendarSeconds()));
    if (options.defaultBook && !BookIsOpen())
        OpenBook("Book.tqn", Manner->silentStart);
    if (!Speaking->person)
        PrintSettings();
    Interface.PostThinking = true;
    if (Book.PositionLearning || Book.UseLearningData)
        OpenLearningFile("Learn.tq1");
    InitTablebases();
    NewGame();
    if (Speaking->person)
        WelcomePerson();
    RunCommandLoop();
}

int RunEngine(const StartOptions& options) {
    OpenStandardStreams();
    try {
        StartAndPlay(options);
    } catch (const std::bad_alloc&) {
        // A line of input may be longer than the memory that is left.
        std::puts("An error occured while memory allocation!");
        std::fflush(stdout);
        return 1;
    }
}
