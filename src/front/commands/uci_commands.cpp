#include "front/commands/uci_commands.h"

#include <cstdio>
#include <string>

#include "board/legal_moves.h"
#include "board/notation.h"
#include "book/book.h"
#include "book/book_settings.h"
#include "eval/eval_cache.h"
#include "eval/personality.h"
#include "front/dialects/uci.h"
#include "front/game/game.h"
#include "front/game/interface.h"
#include "search/driver_state.h"
#include "search/hash_memory.h"
#include "search/limits.h"
#include "search/transposition.h"
#include "tablebase/block_cache.h"
#include "tablebase/registry.h"

void EnterUci(const CommandLine& line) {
    // The line "ucinewgame" is answered in the same way, as its beginning is this keyword.
    if (BeginsWithKeyword("ucinewgame", line.text))
        BeginLearningAnew();
    std::puts("id name Tarquelin 1.40");
    std::puts("id author Ivor T. Penhallow");
    std::puts("option name Hash type spin min 0 max 1024 default 10");
    std::puts("option name PawnHash type spin min 0 max 1024 default 7");
    std::puts("option name NalimovPath type string default c:\\tablebases\\");
    std::puts("option name OpeningsBook type string default .\\book.tqn");
    std::puts("option name OwnBook type check default true");
    std::puts("option name NalimovCache type spin min 1 max 128 default 1");
    std::puts("option name MultiPV type spin min 1 max 1024 default 1");
    std::printf("option name Aggressivity type spin min 0 max 300 default %d\n", Aggressivity);
    std::printf("option name Defensivity type spin min 0 max 300 default %d\n", Cowardice);
    std::printf("option name Tropism type spin min 0 max 300 default %d\n", Tropism);
    std::puts("option name Clear Hash type button");
    std::puts("uciok");
    std::fflush(stdout);
    Speaking = &UciDialect;
    SearchOptions.ForgetInShortSearches = true;
    Interface.PonderNow = false;
}

namespace {

// The value of an option: its first word, and the rest of the line from there on.
struct OptionValue {
    const std::string& word;
    std::string rest;

    int32_t Number() const {
        return ReadNumber(word);
    }
};

struct Option {
    const char* name;
    void (*set)(const OptionValue& value);
};

// Tried from top to bottom; a beginning of a name will do. Values are taken as they are: the bounds
// that are announced are advice to the interface.
constexpr Option Options[] = {
    {"Tropism", [](const OptionValue& value) { SetTropism(value.Number()); }},
    // Scores of the old personality must not come back.
    {"Aggressivity",
     [](const OptionValue& value) {
         SetAggressivity(value.Number());
         ClearEvalCache();
     }},
    {"Defensivity",
     [](const OptionValue& value) {
         SetCowardice(value.Number());
         ClearEvalCache();
     }},
    {"MultiPV", [](const OptionValue& value) { SearchOptions.MultiPV = value.Number(); }},
    {"Hash", [](const OptionValue& value) { ResizeHash(value.Number()); }},
    {"PawnHash", [](const OptionValue& value) { ResizePawnHash(value.Number()); }},
    {"NalimovCache",
     [](const OptionValue& value) {
         if (UseEgtb)
             ResizeEgtbCache(value.Number());
     }},
    {"Clear", [](const OptionValue&) { ClearHash(); }},
    {"OwnBook",
     [](const OptionValue& value) {
         if (KeywordMatches("false", value.word))
             Book.OwnBook = false;
         else if (KeywordMatches("true", value.word))
             Book.OwnBook = true;
     }},
    {"NalimovPath",
     [](const OptionValue& value) {
         if (!UseEgtb)
             return;
         SetEgtbPath(value.rest.c_str());
         LargestTablebase = RegisterTablebases(EgtbPath);
         AllocateTablebaseCache(EgtbCacheBytes);
     }},
    {"OpeningsBook", [](const OptionValue& value) { OpenBook(value.rest.c_str()); }},
};

} // namespace

void SetOption(const CommandLine& line) {
    if (line.Arguments() < 3 || !KeywordMatches("name", line.tokens[1].text))
        return;
    const std::string& name = line.tokens[2].text;
    const std::string& third = line.tokens[3].text;
    // The only button has two words for its name, and no value.
    const bool button = KeywordMatches("Clear", name);
    if (!KeywordMatches(button ? "Hash" : "value", third) || (!button && line.Arguments() < 4))
        return;
    const Token& value = line.tokens[button ? 3 : 4];
    for (const Option& option : Options) {
        if (KeywordMatches(option.name, name)) {
            option.set({value.text, line.text.substr(value.offset)});
            return;
        }
    }
}

// Plays the moves that follow the word "moves", from token 2 on.
static void PlayListedMoves(const CommandLine& line) {
    int i = 2;
    while (i <= line.Arguments() && !KeywordMatches("moves", line.tokens[size_t(i)].text))
        i++;
    for (i++; i <= line.Arguments(); i++) {
        const std::string& text = line.tokens[size_t(i)].text;
        if (!HasMoveShape(text))
            continue;
        if (const Move move = MoveFromText(text); IsLegal(move))
            PlayMove(move);
    }
}

void SetUpPosition(const CommandLine& line) {
    Past.BestMove = NO_MOVE;
    if (line.Arguments() >= 1 && KeywordMatches("startpos", line.tokens[1].text)) {
        NewGame();
    } else if (line.Arguments() >= 1 && KeywordMatches("fen", line.tokens[1].text)) {
        const size_t fen = line.tokens[1].offset + line.tokens[1].text.size();
        SetUpFen(line.text.c_str() + fen);
    }
    if (line.Arguments() >= 3)
        PlayListedMoves(line);
}

void PlayPonderedMove(const CommandLine&) {
    if (!Limits.GoPonder || !IsLegal(Past.BestMove))
        return;
    Limits.GoPonder = false;
    PrintBestMove(Past.BestMove);
    PlayMove(Past.BestMove);
}
