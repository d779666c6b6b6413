#include "front/commands/clock_commands.h"

#include <string>
#include <string_view>
#include <vector>

#include "front/game/manners.h"
#include "front/input/clocks.h"
#include "front/input/keyword.h"
#include "search/limits.h"

namespace {

// Where the number of "time" and "otim" begins in a line that arrives during a search.
constexpr size_t NUMBER_OFFSET = 5;

} // namespace

// A number of seconds with a fraction, as hundredths.
static int32_t FractionalSeconds(const std::string& text) {
    int64_t hundredths = int64_t{ReadNumber(text)} * SECOND;
    if (const size_t point = text.find('.'); point != std::string::npos) {
        const std::string digits = text.substr(point + 1, 2) + "00";
        hundredths += ReadNumber(digits.substr(0, 2));
    }
    return Hundredths(hundredths, 1);
}

// Moves, minutes with or without seconds, and the increment.
static void SetLevelByWords(const std::string& text) {
    const CommandLine line = {text, Tokenize(text, " ")};
    Clock.MovesPerPeriod = line.Number(1, Clock.MovesPerPeriod);
    if (line.Arguments() < 2)
        return;
    const std::vector<Token> base = Tokenize(line.tokens[2].text, ":");
    Clock.BaseTime = Hundredths(ReadNumber(base.empty() ? "" : base[0].text), MINUTE);
    if (base.size() > 1)
        Clock.BaseTime = Hundredths(Clock.BaseTime + FractionalSeconds(base[1].text), 1);
    Clock.OwnIncrement = Clock.OpponentIncrement =
        line.Arguments() < 3 ? 0 : FractionalSeconds(line.tokens[3].text);
}

void SetLevel(const CommandLine& line) {
    Clock.MovesToGo = false;
    if (Manner->levelByWords)
        return SetLevelByWords(line.text);
    Clock.MovesPerPeriod = line.Number(1, Clock.MovesPerPeriod);
    if (line.Arguments() >= 4) {
        Clock.BaseTime = Hundredths(line.Number(2) * MINUTE / SECOND + line.Number(3), SECOND);
        Clock.OwnIncrement = Clock.OpponentIncrement = Hundredths(line.Number(4), SECOND);
        return;
    }
    if (line.Arguments() >= 2)
        Clock.BaseTime = Hundredths(line.Number(2), MINUTE);
    if (line.Arguments() >= 3)
        Clock.OwnIncrement = Clock.OpponentIncrement = Hundredths(line.Number(3), SECOND);
}

void SetDepth(const CommandLine& line) {
    Limits.DepthLimit = line.Number(1, Limits.DepthLimit);
}

void SetMoveTime(const CommandLine& line) {
    if (line.Arguments() >= 1)
        Limits.FixedTime = Hundredths(line.Number(1), SECOND);
}

void SetOwnTime(const CommandLine& line) {
    if (line.Arguments() >= 1)
        Clock.OwnTime = RemainingTime(line.Number(1));
}

void SetOpponentTime(const CommandLine& line) {
    if (line.Arguments() >= 1)
        Clock.OpponentTime = RemainingTime(line.Number(1));
}

// The number that a clock is set to during a search; without one the clock stays.
static void SetRunningClock(const std::string& line, int32_t& clock) {
    if (line.size() > NUMBER_OFFSET)
        clock = RemainingTime(ReadNumber(std::string_view(line).substr(NUMBER_OFFSET)));
}

void SetOwnClock(const CommandLine& line) {
    SetRunningClock(line.text, Clock.OwnTime);
}

void SetOpponentClock(const CommandLine& line) {
    SetRunningClock(line.text, Clock.OpponentTime);
}
