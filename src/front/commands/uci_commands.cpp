#include "front/commands/uci_commands.h"

#include <algorithm>
#include <cstdio>
#include <string>

#include "board/moves/legal_moves.h"
#include "board/notation.h"
#include "front/dialects/uci.h"
#include "front/game/game.h"
#include "front/game/interface.h"
#include "front/game/manners.h"
#include "front/input/keyword.h"
#include "front/input/reply.h"
#include "front/settings/options.h"
#include "platform/signals.h"
#include "platform/version.h"
#include "search/driver_state.h"
#include "search/limits.h"

static void AnnounceOption(const Option& option) {
    std::printf("option name %s", option.uciName);
    switch (option.kind) {
    case OptionKind::BUTTON:
        std::printf(" Hash type button\n");
        return;
    case OptionKind::PATH:
    case OptionKind::TEXT:
        std::printf(" type string");
        break;
    case OptionKind::WORD:
        std::printf(" type check");
        break;
    default:
        std::printf(" type spin min %d max %d", option.least, option.most);
    }
    if (option.offered != nullptr)
        std::printf(" default %s\n", option.offered);
    else if (option.kind == OptionKind::WORD)
        std::printf(" default %s\n", option.get() != 0 ? "true" : "false");
    else
        std::printf(" default %d\n", option.get());
}

static void AnnounceOptions() {
    for (int place = 1;; place++) {
        const auto option = std::ranges::find(Options(), place, &Option::announced);
        if (option == Options().end())
            return;
        if (!option->modern || Manner == &Modern)
            AnnounceOption(*option);
    }
}

void StartUciGame(const CommandLine&) {
    BeginLearningAnew();
    ForgetEarlierSearches();
    NewGame();
}

void EnterUci(const CommandLine& line) {
    if (Manner->uciIgnoresInterrupts)
        IgnoreInterrupts();
    // The line "ucinewgame" is answered in the same way, as its beginning is this keyword.
    if (BeginsWithKeyword("ucinewgame", line.text))
        BeginLearningAnew();
    std::printf("id name Tarquelin %s\n", VERSION);
    std::puts("id author Ivor T. Penhallow");
    AnnounceOptions();
    PrintLine("uciok");
    Speaking = &UciDialect;
    SearchOptions.ForgetInShortSearches = true;
    Interface.PonderNow = Game.AnalysisPaused = false;
}

// Values are taken as they are: the bounds that are announced are advice to the interface.
static void ChangeOption(const Option& option, const std::string& word, const std::string& rest) {
    const auto change = option.setRunning != nullptr ? option.setRunning : option.set;
    if (option.kind != OptionKind::WORD)
        return change({ReadNumber(word), rest});
    for (const OptionWord& known : option.words) {
        if (KeywordMatches(known.word, word))
            return change({known.number, rest});
    }
}

static std::string FullName(const Option& option) {
    return std::string(option.uciName) + (option.kind == OptionKind::BUTTON ? " Hash" : "");
}

// The whole name up to the word "value" counts, however many words it has.
static void SetNamedOption(const CommandLine& line) {
    std::string name;
    int i = 2;
    for (; i <= line.Arguments() && !SameWords(line.tokens[size_t(i)].text, "value"); i++)
        name += (name.empty() ? "" : " ") + line.tokens[size_t(i)].text;
    const auto option = std::ranges::find_if(Options(), [&](const Option& candidate) {
        return candidate.uciName != nullptr && SameWords(FullName(candidate), name);
    });
    if (option == Options().end())
        return;
    if (option->kind == OptionKind::BUTTON)
        ChangeOption(*option, "", "");
    else if (i < line.Arguments()) {
        const Token& value = line.tokens[size_t(i) + 1];
        ChangeOption(*option, value.text, line.text.substr(value.offset));
    }
}

void SetOption(const CommandLine& line) {
    if (line.Arguments() < 3 || !KeywordMatches("name", line.tokens[1].text))
        return;
    if (Manner->longOptionNames)
        return SetNamedOption(line);
    const auto option = std::ranges::find_if(Options(), [&](const Option& candidate) {
        return candidate.uciName != nullptr && !candidate.modern &&
               KeywordMatches(candidate.uciName, line.tokens[2].text);
    });
    if (option == Options().end())
        return;
    // The only button has two words for its name, and no value.
    const bool button = option->kind == OptionKind::BUTTON;
    if (!KeywordMatches(button ? "Hash" : "value", line.tokens[3].text) ||
        (!button && line.Arguments() < 4))
        return;
    const Token& value = line.tokens[button ? 3 : 4];
    ChangeOption(*option, value.text, line.text.substr(value.offset));
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
