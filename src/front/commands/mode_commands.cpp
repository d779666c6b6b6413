#include "front/commands/mode_commands.h"

#include "front/dialects/console.h"
#include "front/game/interface.h"
#include "front/game/play_settings.h"
#include "front/game/shutdown.h"
#include "front/input/keyword.h"
#include "front/input/reply.h"
#include "platform/signals.h"
#include "search/limits.h"

void QuitProgram(const CommandLine&) {
    EndProgram();
}

void PostOn(const CommandLine&) {
    Interface.PostThinking = true;
}

void PostOff(const CommandLine&) {
    Interface.PostThinking = false;
}

void PonderOn(const CommandLine&) {
    if (PlayOptions.Pondering)
        Interface.PonderNow = true;
}

void PonderOff(const CommandLine&) {
    Interface.PonderNow = false;
}

void EnterXboard(const CommandLine&) {
    Limits = {.GoPonder = Limits.GoPonder};
    Clock.MovesPerPeriod = 0;
    Speaking = &ConsoleDialect;
    SearchOptions.ForgetInShortSearches = false;
    Interface.PonderNow = PlayOptions.Pondering;
    IgnoreInterrupts();
}

void EnterPartnerMode(const CommandLine&) {
    Interface.PartnerMode = true;
}

void SetDebug(const CommandLine& line) {
    if (line.Arguments() < 1)
        return;
    if (KeywordMatches("on", line.tokens[1].text))
        Interface.DebugMode = true;
    else if (KeywordMatches("off", line.tokens[1].text))
        Interface.DebugMode = false;
}

void AnswerReady(const CommandLine&) {
    PrintLine("readyok");
}
