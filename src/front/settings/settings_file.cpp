#include "front/settings/settings_file.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "front/game/manners.h"
#include "front/input/keyword.h"
#include "front/settings/options.h"
#include "platform/files.h"

namespace {

constexpr char FileName[] = "Tarquelin.ini";
// A line is read in pieces of at most this many characters, less one.
constexpr int LINE_SIZE = 250;
constexpr char Separators[] = " =\r\n,\"";
constexpr int64_t MEGABYTE = 1048576;

// One line of the file that is being applied.
struct Line {
    int number;
    std::string value; // second token
    std::string rest;  // of the line, from the second token on
};

} // namespace

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

static void ApplyNumber(const Option& option, const Line& line) {
    const int32_t number = ReadNumber(line.value);
    const int32_t bounded = std::clamp(number, option.least, option.most);
    if (bounded != number)
        WarnRange(line, option.warned, bounded);
    option.set({bounded, line.rest});
}

// A size that is asked for as `number` megabytes or as that power of two.
static int32_t SizeOf(const Option& option, int32_t number) {
    if (option.kind == OptionKind::EXPONENT)
        return 1 << number;
    return int32_t(number * MEGABYTE / option.unit);
}

static void ApplySize(const Option& option, const Line& line) {
    const int32_t number = ReadNumber(line.value);
    const bool good = number >= option.least && number <= option.most;
    if (!good)
        WarnSize(line, option.warned);
    option.set({good ? SizeOf(option, number) : option.fallback, line.rest});
}

static void ApplyWord(const Option& option, const Line& line) {
    for (const OptionWord& word : option.words) {
        if (KeywordMatches(word.word, line.value))
            return option.set({word.number, line.rest});
    }
    WarnToken(line);
}

static void ApplyOption(const Option& option, const Line& line) {
    switch (option.kind) {
    case OptionKind::NUMBER:
        return ApplyNumber(option, line);
    case OptionKind::MEGABYTES:
    case OptionKind::EXPONENT:
        return ApplySize(option, line);
    case OptionKind::WORD:
        return ApplyWord(option, line);
    default:
        return option.set({0, line.rest});
    }
}

static bool HasKey(const Option& option, const std::string& line) {
    return (option.key != nullptr && BeginsWithKeyword(option.key, line)) ||
           (option.otherKey != nullptr && BeginsWithKeyword(option.otherKey, line));
}

// Hands the option whose key the line has, and its value, to `apply`.
template <typename Apply> static void ReadLine(const char* text, int number, Apply apply) {
    if (text[0] == '\0' || text[0] == ';')
        return;
    // A control character, or any byte beyond ASCII, ends the line.
    std::string line;
    for (; static_cast<signed char>(*text) >= ' '; text++)
        line += *text;
    const std::vector<Token> tokens = Tokenize(line, Separators);
    if (tokens.size() < 2)
        return;
    const auto option = std::ranges::find_if(
        Options(), [&](const Option& candidate) { return HasKey(candidate, line); });
    if (option != Options().end())
        apply(*option, Line{number, tokens[1].text, line.substr(tokens[1].offset)});
}

template <typename Apply> static void ReadLines(Apply apply) {
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
        ReadLine(line, number, apply);
    }
    std::fclose(file);
}

void ReadSettingsFile() {
    ReadLines(ApplyOption);
}

static void ChooseInterface(const std::string& word) {
    for (const OptionWord& known : InterfaceWords) {
        if (KeywordMatches(known.word, word))
            return UseManners(known.number != 0 ? Modern : Classic);
    }
}

void ReadInterface() {
    ReadLines([](const Option& option, const Line& line) {
        if (option.words.data() == InterfaceWords)
            ChooseInterface(line.value);
    });
    if (const char* const chosen = std::getenv("TARQUELIN_INTERFACE"))
        ChooseInterface(chosen);
}
